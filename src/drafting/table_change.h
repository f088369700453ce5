#pragma once
#include "geometry/primitives.h"
#include "shell/grain_document.h"

#include <vector>

// What a change of the drawing does, in stretches of lines, circles and arcs.
struct TableChange {
  std::vector<Entity> Gone, Kept, Made;
  std::vector<Point> Breaks; // where parts of one row that were kept now meet

  struct Pairing { // a row of the change and the changed row it lies on, -1 when on none
    Entity Row;
    int On = -1;
  };
  std::vector<Entity> Before; // the rows that are no longer as they were
  std::vector<Pairing> After; // the rows that were not there
  std::vector<std::pair<double, double>> Span;
};

// Rows that are alike in both tables take no part; Selected and GroupNo are not looked at. A new row on the
// same line or circle as an old one, and overlapping it, keeps what they share; it belongs to the one it
// shares most with. Places nearer than the tolerance, mm, are one.
void CompareTables(const EntityTable &before, const EntityTable &after, double tolerance, TableChange &);

bool SameGeometry(const Entity &, const Entity &); // exactly, by the fields that the type uses
