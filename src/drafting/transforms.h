#pragma once
#include "drafting/command_table.h"

// Moving, turning, scaling, mirroring and stretching rows. The row routines are pure.

Entity MovedRow(Entity, double dx, double dy); // a line's Slope stays
Entity RotatedRow(Entity, Point about, double angle);
Entity ScaledRow(Entity, Point about, double factor); // factor above 0
Entity MirroredRow(Entity, Point p, Point q);
// Ends inside the rectangle move, those outside stay; a circle with its centre; an arc with one end inside
// keeps its sweep.
Entity StretchedRow(Entity, const SelectionValues &window, double dx, double dy);

bool StartTransform(Drafting &); // 70..73, 76
bool StartBoxMove(Drafting &);   // 77
void ClickTransform(Drafting &, Point);
void ClickBoxMove(Drafting &, Point);
void EnterTransform(Drafting &); // the selection is complete
void BackTransform(Drafting &);
void BackBoxMove(Drafting &);
void TypedTransform(Drafting &, double); // 72, 73
const char *StemTransform(const Drafting &);
const char *StemBoxMove(const Drafting &);
void PreviewTransform(Drafting &, Point);

std::span<const ButtonRow> TransformButtons(); // XFormOption, Mirror_Frame, Movement_Frame
