#pragma once
#include "shell/workbench.h"

// The search of TemplateForm: "Optimise..." opens its panel below the rows. Each better trial goes into the
// rows, and with them into drawing, curve and figures.

void OfferSearch(Workbench &); // the form opens: the panel is shut, its ranges are the variables'
void ShowSearch(Workbench &);  // the panel true to the state
bool SearchEvent(Workbench &, const Event &); // false: of none of its controls
void StopSearch(Workbench &);                 // at once; the best so far stays
