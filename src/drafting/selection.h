#pragma once
#include "drafting/command_table.h"

// How a selection is built: picks, a window, a type, all; and the deletes.

bool StartErase(Drafting &);     // 85
bool StartSelection(Drafting &); // 86, 94, 95
void ClickErase(Drafting &, Point);
void ClickSelection(Drafting &, Point); // 86, 94, 95: by method
void EnterDelete(Drafting &);           // 86
void BackSelection(Drafting &);         // 70..73, 76, 86, 94, 95
const char *StemSelection(const Drafting &);

// A click while the selection is being built; true when it was taken for that.
bool SelectionClick(Drafting &, Point);
bool Selecting(const Drafting &); // the running command still builds its selection
int CountSelected(const EntityTable &);
// Rows by the rule in force against WindowLeft..WindowBottom. Circles and arcs by their extreme points.
bool InWindow(const Entity &, const SelectionValues &);
void MarkWindow(Drafting &, Point corner, Point opposite);
void DeleteSelected(Drafting &); // the marked rows (in rotation mode their images too), one undo

void IdlePress(Drafting &, Point);
void IdleMove(Drafting &, Point);
void IdleRelease(Drafting &, Point); // one entity on the same spot, else the window

std::span<const ButtonRow> SelectionButtons(); // Selection_Frame, Window_Frame, Delete_Mode
void RefreshSelection(Drafting &);
