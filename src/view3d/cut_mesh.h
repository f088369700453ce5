#pragma once
#include "view3d/mesh.h"

#include <string>

// Points with NX*x + NY*y + NZ*z > Offset are kept; the normal need not have unit length. mm
struct CutPlane {
  double NX = 1, NY = 0, NZ = 0, Offset = 0;
};

// The part of a closed solid in front of the plane, closed again by a flat CutFace; empty when nothing is in
// front. The trouble, or empty; the result is replaced on success only.
std::string CutMesh(const Mesh &, const CutPlane &, Mesh &result);
