#pragma once
#include "view3d/grain_section.h"
#include "view3d/mesh.h"

#include <array>
#include <string>
#include <vector>

// Positions across the motor are kept on a grid of whole units that single precision holds exactly, so that
// what is worked out stays true in a file of single-precision numbers.
struct RimPoint {
  std::int32_t X = 0, Y = 0;
  bool operator==(const RimPoint &) const = default;
};
double GridUnit(double grainRadius); // mm, a power of two of about 1e-7 of the radius
RimPoint ToGrid(double x, double y, double unit);

// An edge of a flat region with the solid on its left, and the outward normals at both ends.
struct RimEdge {
  RimPoint From, To;
  float NX1 = 0, NY1 = 0, NX2 = 0, NY2 = 0;
  Surface Tag = Surface::Port;
};
using RimLoop = std::vector<RimEdge>; // closed: each edge begins where the one before it ends

struct PlanePoint {
  double X = 0, Y = 0;
};

// An arc in chords; with ChordCount they stay within `chord` (mm) of it on both sides. The first and last
// points are its ends and the inner ones stand a little outside it, so that the area under the chords is that
// of the arc. A whole circle has all points outside, the last one being the first again.
std::vector<PlanePoint> CutArc(const SectionPiece &, PlanePoint from, PlanePoint to, int chords);
int ChordCount(const SectionPiece &, double chord); // 1 for a line

// All pieces of a section cut once, so that solids that share them share their points.
struct CutSection {
  double Unit = 0;
  std::vector<std::vector<RimPoint>> Point;    // by piece, both ends included
  std::vector<std::vector<PlanePoint>> Normal; // by piece and point, to the right of the walk
};
CutSection CutPieces(const GrainSection &, double chord);

// A loop of pieces as a rim; forward[i] tells whether piece i is walked as it stands.
RimLoop RimOf(const CutSection &, const std::vector<int> &pieces, const std::vector<char> &backwards,
              const std::vector<Surface> &tags);
void SmoothJoints(RimLoop &); // one normal where neighbours meet within three degrees
