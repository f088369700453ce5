#pragma once
#include "geometry/find_entity.h"
#include "geometry/primitives.h"
#include "platform/screen.h"
#include "shell/grain_document.h"

#include <string_view>
#include <vector>

// What a solver asks for and what it answers. Solvers read rows by value and change no table: the same call
// serves a preview, and Commit applies its answer.

// A row that was picked, and where. A temporary grain circle has the index EntCount + 1; what cuts is always
// the copy held here.
struct PickedRow {
  bool Found = false;
  int Index = -1;
  Entity Row;
  Point At;               // mm; a line: the foot of the position on it; a circle or arc: the position itself
  bool GeomAbort = false; // the picker's own failure, "ERROR: No Solution Found" is due
};
PickedRow RowPick(const EntityTable &, int index, Point position); // a row known beforehand
// FindEntity; with grainCircle the grain's outer edge can be picked too, as the last row. The table stays.
PickedRow PickRow(const EntityTable &, Point position, double grainRadius, const PickScope & = {},
                  bool grainCircle = false);

struct RowChange {
  int Index = -1;
  Entity Row;
};
struct Solution {
  Box Failure; // an empty Text: solved. An empty Title stands for the main window's caption
  std::vector<RowChange> Changed;
  std::vector<Entity> Added;
  std::vector<int> Deleted; // indices as they were before the commit
  bool Solved() const { return Failure.Text.empty(); }
};
Solution Failed(std::string_view text, std::string_view title = "", Icon = Icon::Exclamation);

inline constexpr std::string_view TableFullText = "The drawing is full: it holds 301 entities at most";

// Writes the changed rows, appends the added ones, then deletes. All rows or none: a failed solution and one
// that would need more than 301 rows are told in the returned box (its Text empty when done) and change
// nothing.
Box Commit(EntityTable &, const Solution &);
