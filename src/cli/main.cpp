#include "cli/burn.h"
#include "cli/data.h"
#include "cli/exit_codes.h"
#include "cli/export.h"
#include "cli/import.h"
#include "cli/lessons.h"
#include "cli/mesh.h"
#include "cli/motor.h"
#include "cli/optimise.h"
#include "cli/pep.h"
#include "cli/render.h"
#include "cli/script.h"
#include "cli/sweep.h"
#include "cli/templates.h"
#include "shell/command_line.h"
#include "shell/kn_batch.h"
#include "shell/work_folder.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace {

// The system's own command line: /Kn and the five keys.
int KnBatch(const std::vector<std::string> &arguments) {
  std::string words;
  const int code = RunKnBatch(ReadCommandLine(arguments), FindFolders(ExecutablePath()), words);
  if (!words.empty()) fmt::print(stderr, "{}\n", words);
  return code;
}

bool IsOwnCommandLine(const std::vector<std::string> &arguments) {
  for (const std::string &a : arguments)
    if (a.rfind("/Kn", 0) == 0 || a.rfind("/kn", 0) == 0 || a.rfind("/KN", 0) == 0) return true;
  return false;
}

} // namespace

int main(int argc, char **argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (IsOwnCommandLine(arguments)) return KnBatch(arguments);

  CLI::App app{"Morvandel - Solid Motor Geometry Simulator, without its window"};
  app.set_version_flag("--version", "Morvandel " MORVANDEL_VERSION);
  app.require_subcommand(1);
  app.footer(
      "A batch Kn run:  morvandel-cli [FILE.mvd] /Kn Gd=MM Gl=MM Ea=0|1 Eb=0|1 Td=MM\n"
      "Exit codes: 0 done, 1 refused (open or crossing outline; a script's line), 2 bad use, bad file or "
      "unwritable target.");

  BurnArguments burn;
  CLI::App *const command = app.add_subcommand("burn", "burn a grain file: report, step table, picture");
  command->add_option("FILE.mvd", burn.File, "grain file")->required();
  CLI::Option *const diameter =
      command->add_option("--diameter", burn.Diameter, "grain diameter, mm (changes the circle only)");
  CLI::Option *const length = command->add_option("--length", burn.Length, "grain length, mm");
  CLI::Option *const throat =
      command->add_option("--throat", burn.Throat, "nozzle throat diameter, mm; 0: no Kn");
  CLI::Option *const ends = command->add_option("--ends", burn.Ends, "burning ends")
                                ->check(CLI::IsMember({"none", "A", "B", "AB"}));
  CLI::Option *const step =
      command->add_option("--step", burn.Step, "burn step, mm (else a thousandth of the radius)");
  command->add_option("--workdir", burn.WorkDir, "folder for the work files GraphicFile and CheckFile");
  command->add_option("--table", burn.Table, "write the step table (CSV)");
  command->add_option("--svg", burn.Svg, "write the picture of the burn as SVG");
  command->add_option("--png", burn.Png, "write the picture of the burn as PNG");
  command->add_flag("--json", burn.Json, "print the figures as JSON");

  ScriptArguments script;
  CLI::App *const play = app.add_subcommand("script", "play a script of drafting steps");
  play->add_option("FILE", script.File, "script, one step a line")->required();
  play->add_option("--design", script.Design, "grain file to begin with (else an empty grain 20 x 40 mm)");
  play->add_option("--save", script.Save, "write the design at the end");
  play->add_option("--svg", script.Svg, "write a picture of the drawing at the end as SVG");
  play->add_flag("--trace", script.Trace, "tell each line, the entity count and the prompt after it");

  ExportArguments exporting;
  AddExport(app, exporting);
  ImportArguments importing;
  AddImport(app, importing);
  MotorArguments motor;
  AddMotor(app, motor);
  SweepArguments sweep;
  AddSweep(app, sweep);
  PepArguments pep;
  AddPep(app, pep);
  DataArguments data;
  AddData(app, data);
  MeshArguments mesh;
  AddMesh(app, mesh);
  RenderArguments render;
  AddRender(app, render);
  TemplatesArguments templates;
  AddTemplates(app, templates);
  LessonsArguments lessons;
  AddLessons(app, lessons);
  OptimiseArguments optimise;
  AddOptimise(app, optimise);
  PlayArguments playing;
  AddPlay(app, playing);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError &error) {
    return app.exit(error) == 0 ? Done : BadUse;
  }
  if (play->parsed()) return ScriptCommand(script);
  if (app.got_subcommand("export")) return ExportCommand(exporting);
  if (app.got_subcommand("import")) return ImportCommand(importing);
  if (app.got_subcommand("pep")) return PepCommand(pep);
  if (app.got_subcommand("data")) return DataCommand(data);
  if (app.got_subcommand("motor")) return MotorCommand(motor);
  if (app.got_subcommand("sweep")) return SweepCommand(sweep);
  if (app.got_subcommand("mesh")) return MeshCommand(mesh);
  if (app.got_subcommand("render")) return RenderCommand(render);
  if (app.got_subcommand("templates")) return TemplatesCommand(templates);
  if (app.got_subcommand("lessons")) return LessonsCommand(lessons);
  if (app.got_subcommand("optimise")) return OptimiseCommand(optimise);
  if (app.got_subcommand("play")) return PlayCommand(playing);
  burn.HasDiameter = diameter->count() > 0;
  burn.HasLength = length->count() > 0;
  burn.HasThroat = throat->count() > 0;
  burn.HasEnds = ends->count() > 0;
  burn.HasStep = step->count() > 0;
  return BurnCommand(burn);
}
