#pragma once
#include "shell/grain_document.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

struct ResultRow {
  float BurnDist = 0, CoreArea = 0, ConduitArea = 0, EndsArea = 0, Kn = 0;
};

// The same figures as they were worked out, before they are narrowed.
struct RowFigures {
  double BurnDist = 0, CoreArea = 0, EndsArea = 0, Kn = 0; // mm, mm2, mm2; Kn 0 without a throat
  double Section = 0;                                      // mm2 left by the sum of the steps, once
};

// One drawn piece of an outline, in design coordinates.
struct OutlineRow {
  float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0, CenterX = 0, CenterY = 0, Radius = 0, StartAngle = 0, EndAngle = 0;
  std::int16_t EntType = 0, RowIndex = 0;
};

// Outlines of all steps, one after the other.
struct SimStepTable {
  std::deque<OutlineRow> Row;
  std::vector<std::size_t> Start{0}; // step i (from 1) holds rows Start[i-1] .. Start[i]-1
};

// Where an outline ended at the wall; kept in debug mode. Design coordinates, mm.
struct WallMark {
  float X = 0, Y = 0;
  std::int16_t Step = 0;
  bool Second = false; // of the walk's second end
};

struct BurnOptions {
  double Step = 0;        // mm; 0: GrainRadius/1000. The first step is half of it.
  std::string WorkFolder; // where GraphicFile, CheckFile and KnProfile go, ends with a separator; empty: none
                          // are written
  bool KnBatch = false;   // KnProfile too
  int DebugMode = 0;
  std::function<bool(double part)> Progress; // 0..1, now and then; false stops the run
};

// Why a run was refused, in the system's words, with the place.
struct BurnRefusal {
  std::string Text;
  bool HasPlace = false;
  double X = 0, Y = 0;              // design coordinates
  bool Open = false;                // refused by the area scan (already at the very start of the run)
  std::vector<double> MarkX, MarkY; // further places to mark
  bool Stopped = false;             // by Progress; not a fault of the design
  bool BadUse = false;              // an impossible step, an unwritable work folder
};

// Everything a burn leaves. Steps count from 1; step i is the front at (i - 1/2) BurnIncrement.
struct BurnRun {
  double GrainRadius = 0, BurnIncrement = 0, ProfileRotation = 0;
  double CentroidX = 0, CentroidY = 0;
  std::int16_t StepCount = 0; // steps with a perimeter
  int RowsReached = 0;        // rows of Result: fewer than StepCount when the grain's length is gone first
  std::vector<double> StepDist, StepPerimeter,
      StepSection;                 // mm, mm, mm2 of propellant left; StepCount values each
  std::vector<ResultRow> Result;   // RowsReached rows
  std::vector<RowFigures> Figures; // RowsReached rows
  SimStepTable Steps;
  std::vector<WallMark> WallMarks;
  float TouchDist = -1; // first step's distance at the wall, -1 when never
  double LastLiveDist = 0;
  float SliverVolume = 0, InitialVolume = 0; // mm3
  std::string Notice;        // something odd that did not stop the run, in the system's words; else empty
  double Section = 0;        // sum of perimeter x step, mm2
  double SectionAtStart = 0; // propellant section before the burn, exact, mm2
  double MaxBurnArea = 0, MaxKn = 0, ApAt = 0, VolumeLoading = 0, SliverFraction = 0, Neutrality = 0,
         SectionCheck = 0;
  bool HasThroat = false, HasSliver = false; // else "N/A"
};

// The whole burn of a design, without a screen: area scan, regression, work files, figures. False: refused,
// nothing was written. `run` is replaced on success only.
bool BurnDesign(const Design &, const BurnOptions &, BurnRun &run, BurnRefusal &refusal);

// The report's six texts, as the screen shows them.
struct ReportText {
  std::string Burn_Area, Kn_Ratio, Ap_At_Ratio, Volume_Loadings, Sliver_Fraction, Neutrallity;
};
ReportText FormatReport(const BurnRun &);
