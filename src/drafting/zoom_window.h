#pragma once
#include "drafting/command_table.h"

// Command 80 stands over the running command, which goes on as it was.
void StartZoomWindow(Drafting &);
void LeaveZoomWindow(Drafting &);
void ClickZoomWindow(Drafting &, Point);
