#pragma once
#include "drafting/command_table.h"

#include <vector>

// How a selection is built: picks, a window, a type, all; what is done with it; and the deletes.

bool StartErase(Drafting &);            // 85
bool StartSelection(Drafting &);        // 86, 94, 95
void ClickErase(Drafting &, Point);     // 85
void ClickSelection(Drafting &, Point); // 86, 94, 95: by method
void EnterSelection(Drafting &);        // 70..73, 76, 86, 94, 95: the selection is complete
void BackSelection(Drafting &);         // the same
const char *StemSelection(const Drafting &);
void PreviewSelection(Drafting &, Point); // the window being drawn

// A click while the selection is being built; true when it was taken for that.
bool SelectionClick(Drafting &, Point);
bool Selecting(const Drafting &); // the running command still builds its selection
// Hands the selection to the running command, which logs the step as `kind` (0: Enter). With nothing selected
// the command is left.
void AcceptSelection(Drafting &, int kind);
void LogAccept(Drafting &, int kind);
// The command stands again at the building of a selection, or ends with the idle selection it took.
void SelectAgain(Drafting &);

int CountSelected(const EntityTable &);
// Rows by the rule in force against WindowLeft..WindowBottom. Circles and arcs by their extreme points.
bool InWindow(const Entity &, const SelectionValues &);
void SetWindow(SelectionValues &, Point corner, Point opposite); // in any order
void MarkWindow(Drafting &, Point corner, Point opposite);       // further rows; none is unmarked
// Into Overlay: the window, the rows it would take lit, and the rule's name at its upper left corner.
void ShowWindow(Drafting &, Point corner, Point opposite); // by the rule in force
using TakesRow = bool (*)(const Entity &, const SelectionValues &);
void ShowWindow(Drafting &, Point corner, Point opposite, TakesRow, const char *rule);

// The marked rows (Turn 0) and, with images, the rows that are theirs turned by Turn pitches; each row once,
// by the first picked row it is an image of.
struct TurnedIndex {
  int Index = -1, Turn = 0;
};
std::vector<TurnedIndex> SelectedRows(const Drafting &, bool images);
void DeleteSelected(Drafting &); // the marked rows (in rotation mode their images too), one undo

// Idle: a press and release on the same spot selects one entity, or deselects it; a drag selects by
// WindowRule.
void IdlePress(Drafting &, Point);
void IdleMove(Drafting &, Point);
void IdleRelease(Drafting &, Point);
void IdlePick(Drafting &, Point);          // what a release on the spot does
void IdleWindow(Drafting &, Point, Point); // and a drag

std::span<const ButtonRow> SelectionButtons(); // Selection_Frame, Window_Frame, Delete_Mode
void RefreshSelection(Drafting &);
