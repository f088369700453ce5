#pragma once
#include "desktop/bindings.h"

class QVBoxLayout;

// The lists and frames of the running command, each shown while the core shows it.
void AddCommandFrames(Bindings &, QVBoxLayout &);
QWidget *LabelledField(Bindings &, Ctl, const QString &label, const QString &unit);
QWidget *Option(Bindings &, Ctl); // a radio button
