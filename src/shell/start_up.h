#pragma once
#include "shell/workbench.h"

#include <string>

// The start sequence up to the shown main window and intro page: settings, defaults, recovery, splash,
// Dimensions. Sets Screen::OnEvent. False: the user left the Dimensions dialog by Cancel, or the work folder
// cannot be used (told in a box); the process ends.
bool StartUp(Workbench &, const WorkFolders &, const CommandLine &);

// The closing sequence of frmMain: asks to save, empties the recovery file, keeps window place and recent
// files. False: the design could not be saved as asked, so the window stays.
bool CloseMain(Workbench &);
