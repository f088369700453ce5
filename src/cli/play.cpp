#include "base/number_text.h"
#include "burnback/run_sim.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "cli/templates.h"
#include "drafting/view.h"
#include "macros/template_trials.h"
#include "outputs/named_figures.h"
#include "outputs/picture.h"
#include "shell/grain_file.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <charconv>
#include <fmt/format.h>

namespace {
int Fail(int code, std::string words) {
  std::replace(words.begin(), words.end(), '\n', ' ');
  fmt::print(stderr, "{}\n", words);
  return code;
}

bool Number(std::string_view text, double &value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

std::string WriteDrawing(Design &design, const std::string &path) {
  constexpr int side = 800; // points
  DrawSurface surface;
  surface.PixelWidth = surface.PixelHeight = side;
  ZoomReset(surface, design.Doc);
  Redraw(surface, design);
  return WritePicture(surface, PictureForm::Svg, side, side, path);
}
} // namespace

std::string ReadAnswer(const std::string &text, TemplateAnswer &answer) {
  const std::size_t equals = text.find('=');
  if (equals == text.npos || equals == 0 || equals + 1 == text.size())
    return "expected NAME=VALUE, found " + text;
  answer = {text.substr(0, equals), text.substr(equals + 1)};
  return {};
}

std::string ReadGrainOption(const std::string &text, TemplateGrain &grain) {
  constexpr std::string_view form = "--grain: expected DIAMETER,LENGTH,THROAT,none|A|B|AB";
  double *const number[] = {&grain.Diameter, &grain.Length, &grain.Throat};
  std::string_view rest = text;
  for (std::size_t i = 0; i < 4 && !rest.empty(); ++i) {
    const std::size_t end = std::min(rest.find(','), rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (i < 3) {
      if (!Number(piece, *number[i]) || !(*number[i] >= 0 && *number[i] <= 1e6) || (i < 2 && *number[i] == 0))
        return std::string(form);
      continue;
    }
    grain.EndsExposed = piece == "none" ? 0 : piece == "A" ? 1 : piece == "B" ? 2 : piece == "AB" ? 3 : -1;
    if (grain.EndsExposed < 0) return std::string(form);
  }
  return rest.empty() ? "" : std::string(form);
}

std::string ReadTrials(const std::string &name, const std::string &folder,
                       const std::vector<std::string> &set, const std::string &grain,
                       TemplateTrials &trials) {
  const std::string path = LocateTemplate(name, folder);
  std::string trouble = ReadMacFile(path.empty() ? name : path, trials.Mac);
  if (trouble.empty() && !grain.empty()) trouble = ReadGrainOption(grain, trials.Grain);
  for (const std::string &text : set)
    if (trouble.empty()) trouble = ReadAnswer(text, trials.Fixed.emplace_back());
  std::replace(trouble.begin(), trouble.end(), '\n', ' ');
  return trouble;
}

void AddPlay(CLI::App &app, PlayArguments &a) {
  CLI::App *const command = app.add_subcommand("play", "draw a template with these values");
  command->add_option("TEMPLATE", a.Template, "its name, or the path of a .Mac file")->required();
  command->add_option("NAME=VALUE", a.Value, "a number, or a formula of the variables before it");
  command->add_option("--grain", a.Grain, "DIAMETER,LENGTH,THROAT,none|A|B|AB, mm (else as recorded)");
  command->add_option("--folder", a.Folder, "folder of the templates (else your own, else the shipped ones)");
  command->add_option("--save", a.Save, "write the design");
  command->add_option("--svg", a.Svg, "write a picture of the drawing as SVG");
  command->add_flag("--json", a.Json, "burn it and print the figures as JSON");
}

int PlayCommand(const PlayArguments &a) {
  TemplateTrials asked;
  if (std::string trouble = ReadTrials(a.Template, a.Folder, a.Value, a.Grain, asked); !trouble.empty())
    return Fail(BadUse, trouble);
  const std::string path = LocateTemplate(a.Template, a.Folder);
  Outputs outputs;
  outputs.Input = path;
  for (const std::string *file : {&a.Save, &a.Svg})
    if (!file->empty())
      if (std::string trouble = PlanOutput(outputs, *file); !trouble.empty()) return Fail(BadUse, trouble);

  Design design;
  const TemplateResult drawn = DesignFromTemplate(asked.Mac, asked.Fixed, asked.Grain, design);
  if (!drawn.Trouble.empty()) return Fail(drawn.Instruction < 0 ? BadUse : Refused, drawn.Trouble);
  design.CurrentFile = path;
  BurnRun run;
  BurnRefusal refusal;
  if (a.Json && !BurnDesign(design, {}, run, refusal))
    return Fail(refusal.BadUse ? BadUse : Refused, RefusalWords(refusal));

  std::string trouble;
  if (!a.Save.empty())
    trouble =
        FillOutput(outputs, a.Save, [&](const std::string &draft) { return WriteGrainFile(draft, design); });
  if (trouble.empty() && !a.Svg.empty())
    trouble =
        FillOutput(outputs, a.Svg, [&](const std::string &draft) { return WriteDrawing(design, draft); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  if (!trouble.empty()) return Fail(BadUse, trouble);
  if (a.Json)
    fmt::print("{}", JsonText(NamedBurnFigures(design.Doc, run)));
  else
    fmt::print("{} entities, grain {} x {} mm\n", design.Table.EntCount + 1, PlainText(design.Doc.GrainDiam),
               PlainText(design.Doc.GrainLength));
  return Done;
}
