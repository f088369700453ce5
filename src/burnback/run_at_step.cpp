#include "burnback/run_at_step.h"

#include "base/whole_file.h"
#include "burnback/run_driver.h"

#include <numeric>
#include <utility>

namespace {

// The whole regression at one step: every step whole, or the first one half.
bool WriteBurnFileAtStep(const Design &design, const BurnOptions &options, double step, bool half,
                         StreamedFile &file, BurnRun &run, BurnRefusal &refusal) {
  StreamedFile *const to = options.WorkFolder.empty() ? nullptr : &file;
  if (to) OpenStreamed(file, options.WorkFolder + (half ? "GraphicFile2" : "GraphicFile"));
  refusal.Text = file.Trouble;
  refusal.BadUse = !file.Trouble.empty();
  return file.Trouble.empty() &&
         WriteBurnFile(design, options, half ? step / 2 : step, step, to, run, refusal);
}

void FillRows(const GrainDoc &doc, const std::vector<double> &midStep, BurnRun &run) {
  const double s = run.BurnIncrement, R = run.GrainRadius, length = doc.GrainLength, throat = doc.ThroatDiam;
  const int ends = (doc.EndsExposed & 1) + (doc.EndsExposed >> 1 & 1);
  const double At = Pi * (throat / 2) * (throat / 2);
  double left = s * std::accumulate(midStep.begin(), midStep.end(), 0.0), b = 0;
  run.HasThroat = throat > 0;
  for (std::size_t i = 0; i < run.StepPerimeter.size(); ++i) {
    b += s;
    if (static_cast<float>(b * ends) >= doc.GrainLength) break;
    left -= i < midStep.size() ? s * midStep[i] : 0;
    RowFigures row{b, (length - b * ends) * run.StepPerimeter[i], ends * left, 0, left};
    if (run.HasThroat) row.Kn = (row.CoreArea + row.EndsArea) / At;
    run.Figures.push_back(row);
    run.Result.push_back({static_cast<float>(b), static_cast<float>(row.CoreArea),
                          static_cast<float>(Pi * R * R - left), static_cast<float>(row.EndsArea),
                          static_cast<float>(row.Kn)});
  }
  run.RowsReached = static_cast<int>(run.Result.size());
}

} // namespace

bool RunSim3(const Design &design, const BurnOptions &options, double step, BurnRun &run,
             BurnRefusal &refusal) {
  refusal = {};
  if (design.Table.EntCount < 0) {
    refusal.Text = "Can't Simulate End Burning Geometries";
    return false;
  }
  refusal.Text = CheckStep(design.Doc.GrainRadius, step);
  refusal.BadUse = !refusal.Text.empty();
  BurnRun nodal, midStep;
  if (refusal.BadUse || !CheckOutline(design, nodal, refusal)) return false;
  StreamedFile nodalFile, midStepFile;
  if (!WriteBurnFileAtStep(design, options, step, false, nodalFile, nodal, refusal)) return false;
  if (!WriteBurnFileAtStep(design, options, step, true, midStepFile, midStep, refusal)) return false;
  FillRows(design.Doc, midStep.StepPerimeter, nodal);
  nodal.Steps = {};
  if (!options.WorkFolder.empty()) {
    refusal.Text = CommitStreamed(nodalFile);
    if (refusal.Text.empty()) refusal.Text = CommitStreamed(midStepFile);
    refusal.BadUse = !refusal.Text.empty();
    if (refusal.BadUse) return false;
  }
  run = std::move(nodal);
  return true;
}
