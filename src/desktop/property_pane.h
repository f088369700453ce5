#pragma once
#include "desktop/bindings.h"

QWidget *BuildPropertyPane(Bindings &);  // the picked entity's numbers
QWidget *BuildDiagnosisLine(Bindings &); // why the outline does not burn, with what can be done
