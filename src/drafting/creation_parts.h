#pragma once
#include "drafting/command_table.h"

#include <optional>
#include <string>
#include <vector>

// What the files of creation share.

// The rows made of the points held, with their copies; nothing when there were none, which was told.
std::optional<std::vector<Entity>> CommitShape(Drafting &);

// The number in a field of a frame, written back; nothing, after a box, when it is none. Its text is appended
// to the formulas, an empty one for a plain number.
std::optional<double> FrameValue(Drafting &, Ctl field, std::vector<std::string> &formulas);
// Value4 of an accept: the formulas, or "ENTERKEY" when there are none.
std::string EnterText(std::span<const std::string> formulas);
void ShowFrame(Drafting &, Ctl frame, Ctl first); // over the panel, which takes no click
void HideFrame(Drafting &, Ctl frame);
void BackToFrame(Drafting &, Ctl frame, Ctl first); // a step back from the position to the frame

void AcceptBox(Drafting &, const Event &);
void PressReference(Drafting &, const Event &);
void AcceptPolygon(Drafting &, const Event &);
void PressPolygonOption(Drafting &, const Event &);
void RefreshBox(Drafting &);
void RefreshPolygon(Drafting &);
