#pragma once
#include "shell/workbench.h"

// What PEP_SimA holds between two starts of the program: the mix, temperature, range, what the sliders pick
// and the chart.

void RememberPep(Workbench &); // into the settings; that they cannot be written is no reason to stop the user
void RecallPep(Workbench &);   // what is kept and still makes sense, into boxes that hold nothing else yet
