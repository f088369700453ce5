#pragma once
#include "platform/event.h"
#include "shell/workbench.h"

// One event of the user, whole: every control, the drawing and the charts are true to the workbench when it
// returns. Events of modal windows come here too, while the event that opened them is still at work. Nothing
// is thrown; an unforeseen fault is shown in a box and leaves the design as it stands.
void Dispatch(Workbench &, const Event &);
