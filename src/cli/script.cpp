#include "cli/script.h"

#include "base/whole_file.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "cli/private_folder.h"
#include "drafting/view.h"
#include "outputs/picture.h"
#include "platform/scripted_screen.h"
#include "shell/file_menu.h"
#include "shell/grain_file.h"
#include "shell/play_script.h"
#include "shell/start_up.h"

#include <fmt/format.h>

namespace {

int Fail(int code, std::string words) {
  for (char &c : words)
    if (c == '\n' || c == '\r') c = ' '; // a box may have several lines
  fmt::print(stderr, "{}\n", words);
  return code;
}

bool Start(Workbench &bench, const std::string &folder, const std::string &design) {
  WriteWhole(folder + "IntroFile.txt", "1\r\n"); // no intro page
  WorkFolders folders;
  folders.AppDir = folder;
  const bool started = StartUp(bench, folders, ReadCommandLine({"Gd=20", "Gl=40", "Ea=1", "Eb=1", "Td=3"})) &&
                       (design.empty() || ReadIntoDesign(bench, design));
  bench.Grain.Doc.SnapToGrid = 0;
  return started;
}

void Trace(const Workbench &bench, const Script &script, std::size_t from) {
  for (std::size_t i = from; i < script.Next; ++i)
    if (const std::string &line = script.Line[i]; !line.empty() && line[0] != '#')
      fmt::print(stderr, "{:4}  {}\n", i + 1, line);
  const Control &prompt = bench.Out[Ctl::UserPrompt];
  fmt::print(stderr, "      {} entities  {}\n", bench.Grain.Table.EntCount + 1,
             prompt.Visible ? prompt.Text : "");
}

std::string WriteDrawing(Workbench &bench, const std::string &path) {
  constexpr int side = 800; // points
  DrawSurface surface = bench.Out.Panel;
  if (!bench.Sim.ResultMode) {
    surface.PixelWidth = surface.PixelHeight = side;
    surface.Overlay.clear();
    ZoomReset(surface, bench.Grain.Doc);
    Redraw(surface, bench.Grain);
  }
  return WritePicture(surface, PictureForm::Svg, side, side, path);
}

} // namespace

int ScriptCommand(const ScriptArguments &a) {
  std::string text;
  if (std::string trouble = ReadWhole(a.File, text); !trouble.empty()) return Fail(BadUse, trouble);
  Design probe;
  if (!a.Design.empty())
    if (std::string trouble = ReadGrainFile(a.Design, probe); !trouble.empty()) return Fail(BadUse, trouble);
  Outputs outputs;
  outputs.Input = a.File;
  for (const std::string *path : {&a.Save, &a.Svg})
    if (!path->empty())
      if (std::string trouble = PlanOutput(outputs, *path); !trouble.empty()) return Fail(BadUse, trouble);
  const PrivateFolder folder;
  if (folder.Path.empty()) return Fail(BadUse, "no folder for work files can be made");

  ScriptedScreen screen;
  Workbench bench(screen);
  BindScript(bench, screen);
  if (!Start(bench, folder.Path, a.Design)) return Fail(BadUse, a.File + ": cannot start");
  screen.Lines = ReadScript(text);
  while (!AtEnd(screen.Lines)) {
    const std::size_t from = screen.Lines.Next;
    screen.PlayLine();
    if (a.Trace) Trace(bench, screen.Lines, from);
  }
  screen.RefuseLeftOvers();
  if (!screen.Lines.Fault.empty()) return Fail(Refused, a.File + ": " + screen.Lines.Fault);

  std::string trouble;
  if (!a.Save.empty())
    trouble = FillOutput(outputs, a.Save,
                         [&](const std::string &draft) { return WriteGrainFile(draft, bench.Grain); });
  if (trouble.empty() && !a.Svg.empty())
    trouble =
        FillOutput(outputs, a.Svg, [&](const std::string &draft) { return WriteDrawing(bench, draft); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  return trouble.empty() ? static_cast<int>(Done) : Fail(BadUse, trouble);
}
