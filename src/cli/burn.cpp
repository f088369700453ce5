#include "cli/burn.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "burnback/run_sim.h"
#include "cli/exit_codes.h"
#include "cli/motor_options.h"
#include "cli/outputs.h"
#include "outputs/named_figures.h"
#include "outputs/picture.h"
#include "shell/grain_file.h"

#include <chrono>
#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

namespace {

int Fail(int code, const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return code;
}

DimensionOptions DimensionsOf(const BurnArguments &a) {
  DimensionOptions given;
  if (a.HasDiameter) given.Diameter = a.Diameter;
  if (a.HasLength) given.Length = a.Length;
  if (a.HasThroat) given.Throat = a.Throat;
  if (a.HasEnds) given.Ends = a.Ends;
  return given;
}

std::string TableText(const BurnRun &run) {
  std::string text =
      "burn_distance_mm,perimeter_mm,port_area_mm2,core_area_mm2,ends_area_mm2,total_area_mm2,kn\n";
  for (int i = 0; i < run.RowsReached; ++i) {
    const RowFigures &row = run.Figures[i];
    for (const double v :
         {run.StepDist[i], run.StepPerimeter[i], Pi * run.GrainRadius * run.GrainRadius - run.StepSection[i],
          row.CoreArea, row.EndsArea, row.CoreArea + row.EndsArea})
      text += PlainText(v) + ',';
    text += (run.HasThroat ? PlainText(row.Kn) : "") + '\n';
  }
  return text;
}

std::string Report(const BurnArguments &a, const GrainDoc &doc, const BurnRun &run) {
  const ReportText text = FormatReport(run);
  const char *const ends[] = {"none", "A", "B", "A and B"};
  const auto line = [](const char *name, const std::string &value, const char *unit) {
    return fmt::format("  {:<22}{:>14}{}{}\n", name, value, *unit ? " " : "", unit);
  };
  const auto short6 = [](double v) { return fmt::format("{:.6g}", v); };
  std::string out =
      fmt::format("{}\n  grain {} x {} mm, throat {} mm, burning ends: {}\n\n",
                  std::filesystem::path(a.File).filename().string(), PlainText(2 * doc.GrainRadius),
                  PlainText(doc.GrainLength), PlainText(doc.ThroatDiam), ends[doc.EndsExposed & 3]);
  out += line("Max burn area", text.Burn_Area, "mm2");
  out += line("Max Kn", run.HasThroat ? short6(run.MaxKn) : text.Kn_Ratio, "");
  out += line("Ap/At", run.HasThroat ? short6(run.ApAt) : text.Ap_At_Ratio, "");
  out += line("Volume loading", text.Volume_Loadings, "");
  out += line("Sliver fraction", text.Sliver_Fraction, "");
  out += line("Neutrality", text.Neutrallity, "");
  out += line("Web (wall contact)", run.TouchDist == -1 ? "N/A" : PlainText(run.TouchDist),
              run.TouchDist == -1 ? "" : "mm");
  out += line("End of burn", short6(run.LastLiveDist), "mm");
  out += line("Steps", std::to_string(run.StepCount), "");
  out += line("Propellant volume", fmt::format("{:.2f}", run.InitialVolume / 1000), "cm3");
  out += line("Section check", fmt::format("{:.2g}", run.SectionCheck), "");
  return out;
}

// A line on the terminal once a run has taken half a second.
struct ProgressLine {
  std::chrono::steady_clock::time_point Began = std::chrono::steady_clock::now();
  int Shown = -1;
  bool Terminal = ::isatty(STDERR_FILENO) != 0;
  bool operator()(double part) {
    const int percent = static_cast<int>(100 * part);
    if (Terminal && percent != Shown &&
        std::chrono::steady_clock::now() - Began > std::chrono::milliseconds(500)) {
      Shown = percent;
      fmt::print(stderr, "\rburning {:3d} %", percent);
    }
    return true;
  }
  ~ProgressLine() {
    if (Shown >= 0) fmt::print(stderr, "\r              \r");
  }
};

} // namespace

int BurnCommand(const BurnArguments &a) {
  Design design;
  if (std::string trouble = ReadGrainFile(a.File, design); !trouble.empty()) return Fail(BadUse, trouble);
  design.CurrentFile = a.File;
  if (std::string trouble = ApplyDimensions(DimensionsOf(a), design.Doc); !trouble.empty())
    return Fail(BadUse, trouble);
  if (a.HasStep && !(a.Step > 0)) return Fail(BadUse, "--step: expected millimetres above 0");

  BurnOptions options;
  options.Step = a.HasStep ? a.Step : 0;
  if (!a.WorkDir.empty()) {
    if (!std::filesystem::is_directory(a.WorkDir))
      return Fail(BadUse, a.WorkDir + ": there is no such folder");
    options.WorkFolder = a.WorkDir + "/";
  }
  Outputs outputs;
  outputs.Input = a.File;
  for (const std::string *path : {&a.Table, &a.Svg, &a.Png})
    if (!path->empty())
      if (std::string trouble = PlanOutput(outputs, *path); !trouble.empty()) return Fail(BadUse, trouble);

  BurnRun run;
  BurnRefusal refusal;
  bool burnt;
  {
    ProgressLine progress;
    options.Progress = [&](double part) { return progress(part); };
    burnt = BurnDesign(design, options, run, refusal);
  }
  if (!burnt) {
    return Fail(refusal.BadUse ? BadUse : Refused, RefusalWords(refusal));
  }
  if (!run.Notice.empty()) fmt::print(stderr, "{}\n", run.Notice);

  std::string trouble;
  const auto fill = [&](const std::string &path, const auto &write) {
    if (trouble.empty() && !path.empty()) trouble = FillOutput(outputs, path, write);
  };
  fill(a.Table, [&](const std::string &draft) { return WriteWhole(draft, TableText(run)); });
  fill(a.Svg,
       [&](const std::string &draft) { return WriteBurnPicture(design, run, PictureForm::Svg, draft); });
  fill(a.Png,
       [&](const std::string &draft) { return WriteBurnPicture(design, run, PictureForm::Png, draft); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  if (!trouble.empty()) return Fail(BadUse, trouble);
  fmt::print("{}", a.Json ? JsonText(NamedBurnFigures(design.Doc, run)) : Report(a, design.Doc, run));
  return Done;
}
