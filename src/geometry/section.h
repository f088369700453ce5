#pragma once
#include "geometry/solution.h"

// Command 69: the piece of an entity between its nearest crossings with the others, shown under the pointer
// and removed by a click. Lengths in mm. The table stays as it is and may hold all of its 301 rows.

struct Section {
  bool Found = false;
  PickedRow Cut; // At: the middle of the piece that stays when there is a crossing on one side only
  Entity Piece;  // what a click removes, for drawing
  PickedRow Left,
      Right; // Found when a crossing bounds the piece at its first or second end; At: the crossing
};

// Crossings count within the entity, an own end within 1e-3 being that end, and on the other entity or within
// 0.01 (product) of a line's ends. The grain's outer edge takes part. A circle with fewer than two crossings
// is one piece.
Section SectionTrim(const EntityTable &, Point position, double grainRadius, const PickScope & = {});

// Crossings on both sides divide the entity, one trims it, none deletes it; a circle is trimmed to the rest.
Solution SectionCut(const Section &);
