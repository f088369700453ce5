#pragma once
#include "platform/scene.h"
#include "view3d/cut_mesh.h"
#include "view3d/solids.h"

#include <memory>
#include <string>

// The solids of a view at one instant of the burn, by value: they may be made in another thread.
struct SolidRequest {
  Design Grain;
  std::shared_ptr<const FrontStart> Front; // of this design, when it is known already
  double EndKnown = 0;                     // with it: the result's End
  double BurnDist = 0;                     // mm
  double Liner = 0;                        // mm; 0: none
  bool Core = false;
  bool Cut = false;
  CutPlane Plane;
};
struct SolidResult {
  std::shared_ptr<const FrontStart> Front; // none: the design cannot be burnt
  double End = 0;                          // mm: nothing is left from here on
  bool BurntOut = false;
  std::string Trouble; // why there is no grain, in a sentence
  std::vector<SceneSolid> Solid;
  double PortRadius = 0;           // mm, of the circle that has the port's area
  double BestCut = 0;              // CutThroughPort across the cut's normal
  int Groups = 0, LooseGroups = 0; // pieces that the propellant is in; those that hang on nothing
};
SolidResult MakeSolids(const SolidRequest &);

// What differs in the solids. Designs are told apart by what makes them burn.
bool SameSolids(const SolidRequest &, const SolidRequest &);

double ViewChord(double grainRadius); // mm
enum class MeshPart : std::uint8_t { Grain, Core, Liner };
// One part, uncut, as it is handed to other programs. The trouble, or empty.
std::string PartMesh(const SolidRequest &, MeshPart, double chord, Mesh &);
