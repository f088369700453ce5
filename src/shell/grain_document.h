#pragma once
#include <array>
#include <cstdint>
#include <string>

constexpr double Pi = 3.14159265358979;
constexpr double TwoPi = 6.28318530717958;

enum EntityType : std::int32_t { LineType = 1, CircleType = 2, ArcType = 4 };

// One drawing element; lengths in mm, origin at the grain centre, Y up, angles in radians, arcs
// counter-clockwise from StartAngle to EndAngle. Read EntType first: fields that do not apply hold what was
// there.
struct Entity {
  std::int32_t EntType = 0;
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // line: its ends; arc: the ends at StartAngle and EndAngle
  double CenterX = 0, CenterY = 0;       // arc, circle: centre; line: midpoint
  double Radius = 0, StartAngle = 0, EndAngle = 0;
  double Slope = 0, Intercept = 0; // line: guarded slope and Y1 - Slope*X1
  bool Selected = false;
  std::int16_t GroupNo = 0;
};

struct EntityTable {
  std::array<Entity, 301> Row{};
  int EntCount = -1; // index of the highest used row; rows 0..EntCount are dense
};

struct GrainDoc {
  double GrainDiam = 0;
  float GrainRadius = 0, GrainLength = 0, ThroatDiam = 0;
  std::int16_t EndsExposed = 3; // 1 end A, 2 end B
  double BurnIncrement = 0;
  double SimIncrementDisplay = 5;
  float GridSpacing = 1, GridLineType = 2;
  float GridColor = 128 + 128 * 256 + 128 * 65536;
  std::int32_t DisplayGrid = 0, SnapToGrid = 0;
  float BackColor = 0 + 128 * 256 + 192 * 65536;
  float LineColor = 128 + 255 * 256 + 255 * 65536;
  double JoinTolerance = 0.01;
  double TolA = 0, TolB = 0, TolC = 0, TolD = 0; // GrainRadius by 1e3, 1e4, 1e5, 1e6; 0 until they are set
  float LinerThickness = 0;
};

// Drafting defaults, one set beside the document, not in grain files; angles in radians.
struct DraftDefaults {
  double ArcStartDefault = 0, ArcEndDefault = 90 * Pi / 180;
  float LineAngleDefault = static_cast<float>(30 * Pi / 180);
  double ArcAngleDefault = 90 * Pi / 180, RotationAngleDefault = 90 * Pi / 180, ScaleFactorDefault = 1;
};

struct Design {
  GrainDoc Doc;
  EntityTable Table;
  DraftDefaults Defaults;
  std::string CurrentFile, AppDir; // AppDir ends with the path separator
  bool SavedFlag = true, GeomAbort = false;
  int DebugMode = 0, MacroMode = 0; // MacroMode 2: a template plays; no drawing, no boxes, no work files
};

// Checked: Fault 9 outside 0..300.
Entity &RowAt(EntityTable &, int i);
const Entity &RowAt(const EntityTable &, int i);
void AppendRow(EntityTable &, const Entity &); // Fault 9 when all 301 rows are used; the table stays
void DeleteRow(EntityTable &, int i);          // closes the gap, order kept; Fault 9 at a row not in use

// |dY| below flat gives 1e-9, else |dX| below flat 1e6, else dY/dX held to 1e-9..1e6 in size; never 0.
double GuardedSlope(double x1, double y1, double x2, double y2, double flat = 0.0001);
void SetLineSlope(Entity &); // Slope, Intercept and midpoint from the ends
Entity MakeLine(double x1, double y1, double x2, double y2);
Entity MakeCircle(double cx, double cy, double radius);
Entity MakeArc(double cx, double cy, double radius, double start, double end);

// Sets TolA..TolD and LinerThickness too; Fault 6, the document unchanged, when a value does not fit its
// type.
void SetDimensions(GrainDoc &, double diameter, double length, double throat, int ends);
void SetTolerances(GrainDoc &); // TolA..TolD, LinerThickness from GrainRadius
