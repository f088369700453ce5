#pragma once
#include "shell/workbench.h"

#include <span>

// What the answers of TemplateForm draw and burn, tried beside the drawing.

Ctl TemplateControl(Ctl first, int row); // Prompt0, VariableName0, Variable_Slider0 ...

// Template.Ask.Values and Doc from the answers; else Trouble and AtFault. False: there is trouble.
bool EvaluateAnswers(Workbench &);

// Evaluates, and asks the screen for the drawing and the burn when the values are good. The newest wins; what
// cannot be drawn or burnt leaves the last good shape and is told in Template_Note, by the variable's name.
void TryAnswers(Workbench &);

void ShowTrial(Workbench &); // picture, chart, figures and note true to the state
