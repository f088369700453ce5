#pragma once
#include "drafting/command_table.h"

#include <functional>

// Moving, turning, scaling, mirroring and stretching the selection (70..73, 76, 77).

bool StartTransform(Drafting &);              // 70..73, 76
void ChooseTransform(Drafting &, bool copy);  // XFormOption
void TransformSelected(Drafting &, int kind); // the selection is complete; logged as kind
void ClickTransform(Drafting &, Point);
void TypedTransform(Drafting &, double); // 72: degrees; 73: the factor
const char *StemTransform(const Drafting &);
void PreviewTransform(Drafting &, Point); // 70..73, 76

bool StartBoxMove(Drafting &); // 77
void ClickBoxMove(Drafting &, Point);
const char *StemBoxMove(const Drafting &);
void PreviewBoxMove(Drafting &, Point);
void PressMovement(Drafting &, const Event &); // Movement_Frame

// What a transform makes of a row; the second argument counts the copies, 1 for the first and for a move.
using RowMap = std::function<Entity(const Entity &, int)>;

// The selected rows, and while rotation draw is on their images, through the map: a row that is an image of a
// picked one turned by k pitches gets turn(k) o map o turn(-k). copies 0 moves the rows, else so many are
// added. "ERROR: Entity's too small" when a row would shrink below 0.0001.
Solution TransformRows(const Drafting &, int copies, const RowMap &);

void ShowTransformed(Drafting &, const RowMap &); // the selected rows once, into Overlay

std::span<const ButtonRow> TransformButtons(); // XFormOption, Mirror_Frame, Movement_Frame
