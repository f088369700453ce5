#include "cli/export.h"

#include "base/whole_file.h"
#include "burnback/results_export.h"
#include "burnback/run_sim.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "dxf/dxf_writer.h"
#include "shell/grain_file.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <fmt/format.h>

namespace {
int Fail(int code, const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return code;
}
} // namespace

void AddExport(CLI::App &app, ExportArguments &a) {
  CLI::App *const command =
      app.add_subcommand("export", "write a drawing as DXF, or the results of its burn for a spreadsheet");
  command->add_option("FILE.mvd", a.File, "grain file")->required();
  CLI::Option *const dxf = command->add_option("--dxf", a.Dxf, "write the drawing (DXF, release 12)");
  command->add_flag("--grain", a.Grain, "with the grain's edge as one more circle")->needs(dxf);
  command->add_flag("--plain", a.Plain, "plain R12 for strict readers")->needs(dxf);
  CLI::Option *const results =
      command->add_option("--results", a.Results, "write the results as a spreadsheet's table (CSV)");
  command->add_option("--step", a.Step, "burn step, mm (else a hundredth of the radius)")
      ->needs(results)
      ->each([&a](const std::string &) { a.HasStep = true; });
  command->add_flag("--no-dimensions", a.NoDimensions, "without the parameter row")->needs(results);
  command->add_option("--header", a.Header, "a first line of your own")->needs(results);
}

int ExportCommand(const ExportArguments &a) {
  if (a.Dxf.empty() && a.Results.empty()) return Fail(BadUse, "export: expected --dxf or --results");
  if (a.HasStep && !(a.Step > 0)) return Fail(BadUse, "--step: expected millimetres above 0");
  Design design;
  if (std::string trouble = ReadGrainFile(a.File, design); !trouble.empty()) return Fail(BadUse, trouble);
  design.CurrentFile = a.File;
  Outputs outputs;
  outputs.Input = a.File;
  for (const std::string *path : {&a.Dxf, &a.Results})
    if (!path->empty())
      if (std::string trouble = PlanOutput(outputs, *path); !trouble.empty()) return Fail(BadUse, trouble);

  std::string results;
  if (!a.Results.empty()) {
    ResultsForm form;
    form.Header = a.Header;
    form.IncludeDimensions = !a.NoDimensions;
    BurnRefusal refusal;
    if (!ExportResults(design, {}, a.HasStep ? a.Step : 0, form, results, refusal))
      return Fail(refusal.BadUse ? BadUse : Refused, RefusalWords(refusal));
  }
  std::string trouble;
  if (!a.Dxf.empty()) {
    const DxfChoice choice{a.Plain ? DxfForm::PlainR12 : DxfForm::Own, a.Grain};
    trouble = FillOutput(outputs, a.Dxf,
                         [&](const std::string &draft) { return WriteDxfFile(draft, design, choice); });
  }
  if (trouble.empty() && !a.Results.empty())
    trouble =
        FillOutput(outputs, a.Results, [&](const std::string &draft) { return WriteWhole(draft, results); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  return trouble.empty() ? static_cast<int>(Done) : Fail(BadUse, trouble);
}
