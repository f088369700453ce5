#pragma once
#include "view3d/grain_section.h"
#include "view3d/mesh.h"

#include <string>

// The grain along the motor.
struct GrainEnds {
  double Length = 0;                     // mm, before the burn
  bool AExposed = true, BExposed = true; // an exposed end burns inward, an inhibited one stays
};
GrainEnds EndsOf(const GrainDoc &);

// Closed solids of a section. Arcs are cut into chords that stay within `chord` (mm) of the arc on both sides
// and leave the area within it as it was, so that a mesh has the volume of the exact solid. A wall arc shared
// by two solids is cut the same way in both. Each returns the trouble, or empty; the mesh is replaced on
// success only.

// The propellant that is left.
std::string GrainMesh(const GrainSection &, const GrainEnds &, double chord, Mesh &);
// The ring between the grain circle and thickness (mm) outside it, over the whole length.
std::string LinerMesh(const GrainSection &, const GrainEnds &, double thickness, double chord, Mesh &);
// The casting mandrel: what the port leaves free, over the whole length.
std::string CoreMesh(const GrainSection &, const GrainEnds &, double chord, Mesh &);
// The same with a draft (degrees a side, 0 to 45): the outline itself at end A, widened as the burn would
// widen it towards end B. Refused when the widened outline has lost pieces of the outline or grown new ones
// to the wall.
std::string DraftedCoreMesh(const FrontStart &, const GrainEnds &, double chord, double draft, Mesh &);

// Section and grain in one go: the mesh of a design's propellant at a burn distance, made when it is wanted.
std::string Triangulate(const FrontStart &, const GrainEnds &, double burnDist, double chord, Mesh &);

std::string CheckChord(double grainRadius, double chord); // above 0, at most the radius; not absurdly fine
