#include "burnback/run_driver.h"

#include "base/number_text.h"
#include "burnback/burn_files.h"
#include "geometry/verify.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int MostSteps = 32767; // StepCount is a 16-bit number

void AddOutlineRow(SimStepTable &steps, const BurnEntity &row, int index, double turn) {
  OutlineRow out;
  out.EntType = static_cast<std::int16_t>(row.EntType);
  out.RowIndex = static_cast<std::int16_t>(index);
  const double c = std::cos(turn), s = std::sin(turn);
  const auto set = [&](double x, double y, float &toX, float &toY) { // back by the true turn
    toX = static_cast<float>(x * c + y * s);
    toY = static_cast<float>(y * c - x * s);
  };
  set(row.BurnX1, row.BurnY1, out.X1, out.Y1);
  set(row.BurnX2, row.BurnY2, out.X2, out.Y2);
  if (row.EntType != LineType) {
    set(row.CenterX, row.CenterY, out.CenterX, out.CenterY);
    out.Radius = static_cast<float>(row.Radius);
    out.StartAngle = row.EntType == CircleType ? 0 : static_cast<float>(NormalAngle(row.StartAngle - turn));
    out.EndAngle = row.EntType == CircleType ? static_cast<float>(TwoPi)
                                             : static_cast<float>(NormalAngle(row.EndAngle - turn));
  }
  steps.Row.push_back(out);
}

void AddWallMarks(BurnRun &run, const BurnEntity &row, double turn) {
  for (const bool second : {false, true}) {
    double x = second ? row.CaseX2 : row.CaseX1, y = second ? row.CaseY2 : row.CaseY1;
    if (x == 0 && y == 0) continue;
    TurnPoint(x, y, -turn);
    run.WallMarks.push_back(
        {static_cast<float>(x), static_cast<float>(y), static_cast<std::int16_t>(run.StepCount + 1), second});
  }
}

bool Refuse(BurnRefusal &refusal, std::string text) {
  refusal.Text = std::move(text);
  return false;
}

bool RefuseAt(BurnRefusal &refusal, std::string text, double x, double y) {
  refusal.HasPlace = true;
  refusal.X = x;
  refusal.Y = y;
  return Refuse(refusal, std::move(text));
}

} // namespace

std::string CheckStep(double R, double step) {
  if (step > 0 && step <= R && 2 * R / step <= MostSteps) return {};
  return "The burn step must be above 0 mm, at most the grain radius (" + PlainText(R) +
         " mm), and give at most 32767 steps";
}

bool CheckOutline(const Design &design, BurnRun &run, BurnRefusal &refusal) {
  const double R = design.Doc.GrainRadius;
  const AreaScan scan =
      ScanArea(design.Table, R, R / 100, false, std::max(design.Doc.JoinTolerance, 1e-9 * R));
  if (scan.Closed) {
    run.CentroidX = scan.CentroidX;
    run.CentroidY = scan.CentroidY;
    return true;
  }
  refusal.Open = true;
  for (const double crossing : scan.Crossing) {
    double x = crossing, y = scan.ScanY;
    TurnPoint(x, y, -scan.Turn);
    refusal.MarkX.push_back(x);
    refusal.MarkY.push_back(y);
  }
  Refuse(refusal, OpenOutlineText(scan));
  if (!refusal.MarkX.empty()) {
    // The open end itself says more than the scan line does.
    Profile profile;
    Init(profile, design.Table, R, design.Doc.JoinTolerance);
    refusal.HasPlace = true;
    refusal.X = profile.ProfileOK ? refusal.MarkX[0] : profile.ChainTipX;
    refusal.Y = profile.ProfileOK ? refusal.MarkY[0] : profile.ChainTipY;
  }
  return false;
}

bool WriteBurnFile(const Design &design, const BurnOptions &options, double firstStep, double step,
                   StreamedFile *graphicFile, BurnRun &run, BurnRefusal &refusal) {
  const double R = design.Doc.GrainRadius;
  Regression g;
  Profile &p = g.Chain;
  Init(p, design.Table, R, design.Doc.JoinTolerance);
  if (!p.ProfileOK) return RefuseAt(refusal, "Error: Can't Connect Entities", p.ChainTipX, p.ChainTipY);
  if (p.Sources.empty())
    return Refuse(refusal, "Can't Simulate End Burning Geometries"); // no core surface in the grain
  run.GrainRadius = R;
  run.BurnIncrement = step;
  run.ProfileRotation = p.ProfileRotation;
  StartRegression(g, static_cast<int>(std::min(2 * R / step + 2, MostSteps + 2.0)), step);
  run.SectionAtStart = g.Section;
  bool live = true;
  int unpaired = 0; // steps in a row
  p.BurnIncrement = firstStep;
  while (live && p.BurnDist <= 2 * R && run.StepCount < MostSteps) {
    StepFront(g);
    if (run.TouchDist == -1 && g.AtWall) run.TouchDist = static_cast<float>(p.BurnDist);
    // A piece that vanishes at the wall may leave one end alone for a step; longer is worth a word.
    unpaired = g.LeftCount != g.RightCount ? unpaired + 1 : 0;
    if (unpaired == 2 && run.Notice.empty())
      run.Notice = "Error: LeftSideCounter =" + std::to_string(g.LeftCount) +
                   " RightSideCounter =" + std::to_string(g.RightCount) +
                   "   @Burn Distance:" + FormatMask(p.BurnDist, "0.##");
    live = g.LiveRows > 0;
    for (std::size_t i = 0; i < p.BurnTable.size(); ++i) {
      BurnEntity &row = p.BurnTable[i];
      if (row.BurntOut) continue;
      if (options.DebugMode)
        AddWallMarks(run, row, p.Turn);
      else
        row.CaseX1 = row.CaseY1 = row.CaseX2 = row.CaseY2 = 0;
      if (graphicFile) WriteRow(*graphicFile, row, static_cast<int>(i));
      AddOutlineRow(run.Steps, row, static_cast<int>(i), p.Turn);
    }
    if (graphicFile) {
      if (options.DebugMode && live) {
        int index = static_cast<int>(p.BurnTable.size());
        for (const BurnEntity &arc : CaseArcs(p)) WriteRow(*graphicFile, arc, index++);
      }
      WriteStepEnd(*graphicFile);
    }
    if (live && g.Perimeter > 0) {
      ++run.StepCount;
      run.StepDist.push_back(p.BurnDist);
      run.StepPerimeter.push_back(g.Perimeter);
      run.StepSection.push_back(g.Section);
      run.Steps.Start.push_back(run.Steps.Row.size());
      run.LastLiveDist = p.BurnDist;
    }
    p.BurnIncrement = step;
    if (options.Progress && run.StepCount % 16 == 0 && !options.Progress(std::min(1.0, p.BurnDist / R))) {
      refusal.Stopped = true;
      return Refuse(refusal, "Stopped");
    }
  }
  if (run.StepCount == 0) return Refuse(refusal, "Can't Simulate End Burning Geometries");
  return true;
}

void FillFigures(const GrainDoc &doc, BurnRun &run) {
  const double h = run.BurnIncrement, R = run.GrainRadius, length = doc.GrainLength, throat = doc.ThroatDiam;
  const int ends = (doc.EndsExposed & 1) + (doc.EndsExposed >> 1 & 1);
  const double At = Pi * (throat / 2) * (throat / 2);
  run.Result.clear();
  run.Figures.clear();
  run.SliverVolume = 0;
  run.MaxBurnArea = run.MaxKn = 0;
  double P = 0;
  for (const double perimeter : run.StepPerimeter) P += perimeter;
  run.Section = P * h;
  double A0 = run.Section; // what the steps leave to burn
  run.InitialVolume = static_cast<float>(length * A0);
  run.HasThroat = throat > 0;
  double b = 0, sum = 0;
  for (int i = 0; i < run.StepCount; ++i) {
    b += h;
    if (static_cast<float>(b * ends) >= doc.GrainLength) break;
    RowFigures row;
    row.BurnDist = b;
    row.CoreArea = (length - b * ends) * run.StepPerimeter[i];
    A0 -= h * run.StepPerimeter[i];
    // A little more than half a step back: the front touched the wall in this step.
    if (run.SliverVolume == 0 && run.TouchDist - h / 1.9 <= b)
      run.SliverVolume = static_cast<float>((length - b * ends) * A0);
    row.Section = A0;
    row.EndsArea = ends * A0;
    const double total = row.CoreArea + row.EndsArea;
    run.MaxBurnArea = std::max(run.MaxBurnArea, total);
    sum += total;
    if (run.HasThroat) {
      row.Kn = total / At;
      run.MaxKn = std::max(run.MaxKn, row.Kn);
    }
    run.Figures.push_back(row);
    run.Result.push_back({static_cast<float>(b), static_cast<float>(row.CoreArea), 0,
                          static_cast<float>(row.EndsArea), static_cast<float>(row.Kn)});
  }
  run.RowsReached = static_cast<int>(run.Result.size());
  run.VolumeLoading = run.Section / (Pi * R * R);
  run.HasSliver = run.TouchDist != -1 && h < run.TouchDist && run.InitialVolume > 0;
  run.SliverFraction = run.HasSliver ? run.SliverVolume / static_cast<double>(run.InitialVolume) : 0;
  run.ApAt = run.HasThroat ? (Pi * R * R - run.Section) / At : 0;
  run.Neutrality = run.MaxBurnArea > 0 ? sum / (run.StepCount * run.MaxBurnArea) : 0;
  run.SectionCheck = std::abs(run.Section - run.SectionAtStart) / run.SectionAtStart;
}

bool BurnDesign(const Design &design, const BurnOptions &options, BurnRun &run, BurnRefusal &refusal) {
  refusal = {};
  const double R = design.Doc.GrainRadius, step = options.Step == 0 ? R / 1000 : options.Step;
  const auto badUse = [&](std::string text) {
    refusal.BadUse = true;
    return Refuse(refusal, std::move(text));
  };
  if (!(R > 0)) return badUse("The grain diameter must be greater than 0");
  if (std::string trouble = CheckStep(R, step); !trouble.empty()) return badUse(trouble);
  if (design.Table.EntCount < 0) return Refuse(refusal, "Can't Simulate End Burning Geometries");
  BurnRun fresh;
  if (!CheckOutline(design, fresh, refusal)) return false;
  StreamedFile graphicFile;
  const bool files = !options.WorkFolder.empty();
  if (files) {
    OpenStreamed(graphicFile, options.WorkFolder + "GraphicFile");
    if (!graphicFile.Trouble.empty()) return badUse(graphicFile.Trouble);
  }
  if (!WriteBurnFile(design, options, step / 2, step, files ? &graphicFile : nullptr, fresh, refusal))
    return false;
  FillFigures(design.Doc, fresh);
  if (files) {
    // Not synced to the disk as a design is: the next run writes them anew.
    const auto write = [&](const char *name, const std::string &text) {
      StreamedFile file;
      OpenStreamed(file, options.WorkFolder + name);
      WriteStreamed(file, text);
      return CommitStreamed(file);
    };
    std::string trouble = CommitStreamed(graphicFile);
    if (trouble.empty()) trouble = write("CheckFile", CheckFileText(fresh));
    if (trouble.empty() && options.KnBatch) trouble = write("KnProfile", KnProfileText(fresh));
    if (!trouble.empty()) return badUse(trouble);
  }
  run = std::move(fresh);
  return true;
}

ReportText FormatReport(const BurnRun &run) {
  ReportText text;
  text.Burn_Area = FormatMask(run.MaxBurnArea, "#####.##");
  text.Kn_Ratio = run.HasThroat ? PlainText(static_cast<float>(run.MaxKn)) : "N/A";
  text.Ap_At_Ratio = run.HasThroat ? PlainText(static_cast<float>(run.ApAt)) : "N/A";
  text.Volume_Loadings = FormatMask(run.VolumeLoading, "0.0%");
  text.Sliver_Fraction = run.HasSliver ? FormatMask(run.SliverFraction, "0.0%") : "N/A";
  text.Neutrallity = FormatMask(run.Neutrality, "0.0%");
  return text;
}
