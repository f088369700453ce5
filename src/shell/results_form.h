#pragma once
#include "shell/workbench.h"

// Save_Results: the form, then the run at the step it was given, then the file. Whatever the form is closed
// with, design mode follows; cancelled, nothing is run and no file is touched.
void SaveResults(Workbench &);
void SaveResultsEvent(Workbench &, const Event &);
