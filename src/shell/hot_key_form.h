#pragma once
#include "shell/workbench.h"

// The list that opens beside a tool pressed with the right button, and the form that binds keys to the tool.
void OpenHotKeyList(Workbench &, Ctl button); // nothing for a button that cannot be bound
void HotKeyListEvent(Workbench &, const Event &);
void HotKeyFormEvent(Workbench &, const Event &);
