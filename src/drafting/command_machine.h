#pragma once
#include "drafting/command_table.h"

// The one road of drafting events. Every routine brings Panel, prompt and frames up to date.

void StartCommand(Drafting &, const CommandRow &);
// The running command again from its first step: picks, points and marks dropped, BackPos at BackDepth.
void RestartCommand(Drafting &);
void LeaveCommand(Drafting &); // to idle, whatever stands; the selection goes too
void Back(Drafting &, int button);
void Escape(Drafting &);

void MouseDown(Drafting &, const Event &);
void MouseMove(Drafting &, const Event &);
void ShowPointer(Drafting &); // what follows the pointer, anew where it is
void MouseUp(Drafting &, const Event &);
// A position that did not come from the pointer (typed): no grid snap, no tracker.
void ClickAt(Drafting &, Point);
// At the position where the pointer, which is at ClickX, ClickY, is held.
void ClickHeld(Drafting &, Point);

void DeleteKey(Drafting &);                    // the selection goes, and the command is left
void PanelKey(Drafting &, const Event &);      // Enter, Delete, Tab, Escape on DrawPanel
bool PressDrafting(Drafting &, const Event &); // tools, frames, lists, modes; false: not ours
void UndoChange(Drafting &);                   // in mid-command the picks are dropped first
void RedoChange(Drafting &);
void ResetDrafting(Drafting &);   // another design: idle, no marks, an empty undo ring
void RefreshDrafting(Drafting &); // every control of drafting true to the state
