#pragma once
#include "shell/template_trial.h"

#include <optional>

// The rows of TemplateForm: what each of them asks for and shows.

inline std::size_t At(int row) { return static_cast<std::size_t>(row); }
int RowAmong(Ctl, Ctl first); // -1: none of those from the first on

// Of rows 0 and 1 the grain's diameter and length, else the template's own, with its range at the diameter at
// hand.
std::optional<TemplateVariable> VariableOf(const TemplateAsking &, int row);
std::string WordsOf(const TemplateVariable &);                  // as its row tells it
std::string SliderText(const TemplateVariable &, double value); // as many decimals as its slider's moves need
double ValueAtSlider(const TemplateVariable &, double place);
double SpinStep(const TemplateVariable &);                      // 1, 2 or 5 times a power of ten
std::optional<double> ValueOf(const TemplateAsking &, int row); // of its last good answer

void FollowDiameter(TemplateAsking &); // lengths that nobody has touched, and the ranges
void ShowRows(Workbench &);
// All answers at once, as a search sets them and takes them back: drawn, burnt and shown.
void PutAnswers(Workbench &, const TemplateAnswers &);
