#pragma once
#include "platform/screen.h"
#include "view3d/camera.h"
#include "view3d/look.h"
#include "view3d/view_solids.h"

#include <memory>
#include <string>

struct Workbench;

// The grain in three dimensions, in the drawing's place while Open.
struct View3d {
  bool Open = false;
  Camera Eye;
  std::string Fitted; // the grain that Eye was put before
  Camera FittedEye;   // as it was put: as long as Eye is that, it follows the window's size
  Look3d Look;
  Look3d Editing; // what Setup_3D holds
  bool Whole = false, Across = false;
  double CutTurn = 180;                    // degrees: the lengthwise cut takes away what lies there
  bool Aim = true;                         // the first cut is yet to be aimed at the port
  double LengthPart = 0, AcrossPart = 0.5; // where the cuts are, of the radius and of the length
  bool Liner = true, Core = false;
  double BurnDist = 0; // mm
  std::string BurnText;
  bool Playing = false;

  // The pointer: what it holds since it went down.
  enum class Hold : std::uint8_t { None, Turn, Pan, Plane } Held = Hold::None;
  double HeldX = 0, HeldY = 0, HeldPart = 0;
  Camera HeldEye;
  bool OverGrip = false;

  // The solids: the newest request, and what stands in the picture.
  unsigned Number = 0;
  std::shared_ptr<const SolidRequest> Asked;
  SolidResult Newest;
  bool UnderWay = false;
};

void OpenView3d(Workbench &);  // where it cannot be drawn: told, and the drawing stays
void CloseView3d(Workbench &); // to the drawing; solids and their memory are given back
void View3dEvent(Workbench &, const Event &);
void View3dKey(Workbench &, int keyCode, int shift);
void StandGrainAnew(Workbench &); // another design is open: before the eye as a whole, at the burn's begin
bool PressInView3d(Workbench &, Ctl); // true: a button of the drawing that means the view while it is open
void ChartMovedBurn(Workbench &);     // the burn goes to the instant under a chart's pointer
void RefreshView3d(Workbench &);      // controls, solids, marks on the charts

void SaveShot3d(Workbench &);
void ExportMesh3d(Workbench &);
SolidRequest WantedSolids(const Workbench &);
double LinerOf(const Workbench &); // mm, of the view's liner

// The cut in force: towards what it takes away, and where it stands, mm.
struct CutPlace {
  Place3 Toward, Middle, Along, Other; // unit vectors but for Middle; Along lies upward in the picture
  double AlongReach = 0, OtherLow = 0, OtherHigh = 0; // of its frame, mm
};
CutPlace CutOf(const Workbench &);
Place3 GripOf(const CutPlace &);
void FitView3d(Workbench &);      // all of the grain in the picture, seen as it is
MeshBox BoxOf(const Workbench &); // of grain and liner before the burn
