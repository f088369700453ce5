#pragma once
#include "shell/workbench.h"

// Propellants_Form: the user's library. OK writes it whole; a text that no propellant can have, or a file
// that cannot be written, is told and leaves the form open.
void EditPropellants(Workbench &);
void PropellantFormEvent(Workbench &, const Event &);
