#pragma once
#include "shell/workbench.h"

void KeepPropellant(Workbench &); // into the motor's library, under the name in Pep_Name
