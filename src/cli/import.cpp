#include "cli/import.h"

#include "base/number_text.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "dxf/dxf_import.h"
#include "dxf/dxf_units.h"
#include "shell/grain_file.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cmath>
#include <fmt/format.h>

namespace {
constexpr double MostLength = 1e6; // mm

int Fail(int code, const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return code;
}

std::string BadArgument(const ImportArguments &a) {
  const auto above = [](double v) { return v > 0 && v <= MostLength; };
  const auto notBelow = [](double v) { return v >= 0 && v <= MostLength; };
  if (a.HasDiameter && !above(a.Diameter)) return "--grain-diameter: expected millimetres above 0";
  if (a.HasLength && !notBelow(a.Length)) return "--length: expected millimetres, 0 or more";
  if (a.HasThroat && !notBelow(a.Throat)) return "--throat: expected millimetres, 0 or more";
  if (a.HasTolerance && !above(a.Tolerance)) return "--tolerance: expected millimetres above 0";
  if (!notBelow(a.Join)) return "--join: expected millimetres, 0 or more";
  return {};
}

// What the drawing does not tell stands to the diameter as in the grain the program starts with.
void FillDimensions(const ImportArguments &a, GrainDoc &doc) {
  const double diameter = doc.GrainDiam;
  const double length = a.HasLength ? a.Length : std::min(2 * diameter, MostLength);
  const double throat = a.HasThroat ? a.Throat : 0.15 * diameter;
  SetDimensions(doc, diameter, length, throat,
                a.Ends == "none" ? 0
                : a.Ends == "A"  ? 1
                : a.Ends == "B"  ? 2
                                 : 3);
}
} // namespace

void AddImport(CLI::App &app, ImportArguments &a) {
  CLI::App *const command = app.add_subcommand("import", "read a DXF drawing into a grain file");
  command->add_option("FILE.dxf", a.File, "drawing, a text DXF of any release")->required();
  command->add_option("OUT.mvd", a.Out, "grain file to write")->required();
  const auto given = [](bool &has) { return [&has](const std::string &) { has = true; }; };
  command->add_option("--grain-diameter", a.Diameter, "grain diameter, mm (else as the drawing tells it)")
      ->each(given(a.HasDiameter));
  command->add_option("--length", a.Length, "grain length, mm (else twice the diameter)")
      ->each(given(a.HasLength));
  command->add_option("--throat", a.Throat, "nozzle throat diameter, mm (else 0.15 of the grain's)")
      ->each(given(a.HasThroat));
  command->add_option("--ends", a.Ends, "burning ends")->check(CLI::IsMember({"none", "A", "B", "AB"}));
  command->add_option("--units", a.Units,
                      "unit of the drawing: mm, cm, m, in, ft, ... (else $INSUNITS, else mm)");
  command
      ->add_option("--tolerance", a.Tolerance,
                   "of the tangent arcs that stand for ellipses and splines, mm (else 0.001, or 0.01 where "
                   "that fits in no design)")
      ->each(given(a.HasTolerance));
  command->add_option("--join", a.Join, "ends nearer than this are joined, mm (0.01)");
  command->add_flag("--center", a.Centre, "move the middle of the drawing to the grain's centre");
}

int ImportCommand(const ImportArguments &a) {
  if (const std::string bad = BadArgument(a); !bad.empty()) return Fail(BadUse, bad);
  DxfImportOptions wish;
  wish.GrainDiameter = a.Diameter;
  wish.Tolerance = a.Tolerance;
  wish.Centre = a.Centre;
  if (!a.Units.empty()) {
    const auto unit = UnitOf(a.Units);
    if (!unit) return Fail(BadUse, "--units: " + a.Units + " is no unit of length that is known here");
    wish.MillimetresPerUnit = unit->Millimetres;
  }
  Design design;
  design.Doc.JoinTolerance = a.Join;
  DxfImportReport report;
  bool tooMany = false;
  if (const std::string trouble = ImportDxfFile(a.File, wish, design, report, tooMany); !trouble.empty())
    return Fail(tooMany ? Refused : BadUse, trouble);
  FillDimensions(a, design.Doc);

  Outputs outputs;
  outputs.Input = a.File;
  std::string trouble = PlanOutput(outputs, a.Out);
  if (trouble.empty())
    trouble =
        FillOutput(outputs, a.Out, [&](const std::string &draft) { return WriteGrainFile(draft, design); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  if (!trouble.empty()) return Fail(BadUse, trouble);

  for (const std::string &line : report.Words) fmt::print("{}\n", line);
  fmt::print("Grain {} x {} mm, throat {} mm.\n", PlainText(2 * design.Doc.GrainRadius),
             PlainText(design.Doc.GrainLength), PlainText(design.Doc.ThroatDiam));
  if (!report.Problem.empty()) fmt::print("{}\n", report.Problem);
  return Done;
}
