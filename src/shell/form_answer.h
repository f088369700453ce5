#pragma once
#include "shell/workbench.h"

#include <optional>

// What an event means to a form with two closing buttons: its own button, Enter (not on Cancel), Escape and
// the window's close box.
enum class FormAct : std::uint8_t { None, Accept, Cancel };
FormAct ActOf(const Event &, Ctl accept, Ctl cancel);

struct NumberRange {
  double Least, Most;
  bool Whole = false;
  bool AboveLeast = false; // Least itself is too little
};
// A text as a formula. Nothing when it is no number of the range: a box has said so and the focus goes to the
// field.
std::optional<double> FormNumber(Workbench &, Ctl field, const std::string &text, const NumberRange &);

// After a change of a document value: the design is unsaved once there is something in it.
void DocumentChanged(Workbench &);
