#pragma once
#include "shell/workbench.h"

// Setup_3D: colours, textures, liner and background of the 3D view. OK writes Default3DFile; what cannot be
// taken is told and leaves the form open.
void EditSetup3d(Workbench &);
void Setup3dEvent(Workbench &, const Event &);
