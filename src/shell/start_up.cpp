#include "shell/start_up.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "drafting/command_machine.h"
#include "drafting/hot_keys.h"
#include "shell/design_defaults.h"
#include "shell/design_view.h"
#include "shell/dialogs.h"
#include "shell/dispatch.h"
#include "shell/file_menu.h"
#include "shell/recovery.h"
#include "shell/refresh_screen.h"

#include <vector>

namespace {
constexpr const char *PlaceKeys[] = {"MainLeft", "MainTop", "MainWidth", "MainHeight"};

void HideWindows(Screen &out) {
  for (const Ctl c : {Ctl::frmMain, Ctl::frmSplash, Ctl::Dimensions, Ctl::IntroPage, Ctl::frmAbout,
                      Ctl::SimMsg, Ctl::UserPrompt, Ctl::Question_Form, Ctl::HotKeyForm, Ctl::Options_Form,
                      Ctl::Grid_Control, Ctl::Increments_2d})
    out[c].Visible = false;
}

void LoadWindowPlace(Workbench &bench) {
  WindowPlace &place = bench.Out.MainPlace;
  int *const value[] = {&place.Left, &place.Top, &place.Width, &place.Height};
  for (int i = 0; i < 4; ++i) {
    const double kept = Val(GetSetting(bench.Settings, "Settings", PlaceKeys[i]));
    if (kept >= -100000 && kept <= 100000) *value[i] = static_cast<int>(kept);
  }
}

void LoadMain(Workbench &bench, std::vector<std::string> &notices) {
  bench.Settings = LoadSettings(bench.Folders.AppDir + "settings.ini");
  bench.Recent = LoadRecentFiles(bench.Settings);
  LoadWindowPlace(bench);
  bench.Grain = Design{};
  bench.Grain.AppDir = bench.Folders.AppDir;
  const std::string trouble = ApplyDefaultFile(bench.Folders.AppDir + "DefaultFile", bench.Grain);
  if (!trouble.empty()) notices.push_back(trouble);
  const std::string keys = ReadHotKeys(bench.Folders.AppDir + "HotKeys", bench.Draft.HotKeyTable);
  if (!keys.empty()) notices.push_back(keys);
  ClaimWorkFiles(bench.Claim, bench.Folders.AppDir);
  RecoverDesign(bench, notices);
  bench.Chart2Hidden = bench.Out.PixelWidth < 1024;
  bench.Draft.Track.AutoPoint = GetSetting(bench.Settings, "Settings", "AutoPoint") == "1";
  bench.Draft.KeepWork = [&bench] { KeepWorkFile(bench); };
  LeaveCommand(bench.Draft);
}

// Fields and working copy: the design at hand, else the built-in values, and over them the keys.
void FillDimensions(Workbench &bench) {
  LoadDimensions(bench);
  GrainDoc shown = bench.Grain.Doc;
  if (!(shown.GrainRadius > 0)) {
    const DimensionsCopy &copy = bench.Dialog;
    SetDimensions(shown, copy.Diameter, copy.Length, copy.Throat, copy.EndsExposed);
  }
  ApplyKeys(bench.Command, shown);
  ApplyKeys(bench.Command, bench.Grain.Doc);
  PrefillDimensions(bench, shown);
}
} // namespace

bool StartUp(Workbench &bench, const WorkFolders &folders, const CommandLine &line) {
  Screen &out = bench.Out;
  out.OnEvent = [&bench](const Event &event) { Dispatch(bench, event); };
  bench.Folders = folders;
  bench.Command = line;
  HideWindows(out);
  if (!folders.Trouble.empty()) {
    out.Ask({folders.Trouble, "Morvandel", Buttons::Ok, Icon::Stop});
    return false;
  }
  std::vector<std::string> notices;
  LoadMain(bench, notices);
  RefreshScreen(bench);

  out[Ctl::frmSplash].Visible = true;
  if (!line.GrainFile.empty() && ReadIntoDesign(bench, line.GrainFile))
    KeepRecent(bench, bench.Grain.CurrentFile);
  if (!line.MissingFile.empty()) notices.push_back(line.MissingFile + ": there is no such file");
  FillDimensions(bench);
  out.Wait(2);
  out[Ctl::frmSplash].Visible = false;

  const bool keyed = line.CmdParamCount >= 5 && bench.Grain.Doc.GrainDiam > 0;
  if (!keyed && !AskDimensions(bench)) {
    if (!bench.Recovered.Open) EmptyWorkFile(bench); // a file named on the command line is no lost work
    return false;
  }
  ShowWholeGrain(bench);
  RefreshScreen(bench);
  out[Ctl::frmMain].Visible = true;
  std::string told;
  for (const std::string &notice : notices) told += (told.empty() ? "" : "\n\n") + notice;
  if (!told.empty()) out.Ask({told, "Morvandel", Buttons::Ok, Icon::Exclamation});
  if (IntroWanted(bench)) ShowIntro(bench);
  RefreshScreen(bench);
  return true;
}

bool CloseMain(Workbench &bench) {
  Screen &out = bench.Out;
  if (!bench.Grain.SavedFlag) {
    const Answer answer = out.Ask(
        {"Save Grain Before exiting Morvandel?", out[Ctl::frmMain].Text, Buttons::YesNo, Icon::Question});
    if (answer == Answer::Yes && !SaveGrain(bench)) return false;
  }
  EmptyWorkFile(bench); // only now: a kill while the question stands must not lose the design
  if (!out.MainPlace.Minimised && out.MainPlace.Width > 0) {
    const int value[] = {out.MainPlace.Left, out.MainPlace.Top, out.MainPlace.Width, out.MainPlace.Height};
    for (int i = 0; i < 4; ++i)
      SaveSetting(bench.Settings, "Settings", PlaceKeys[i], std::to_string(value[i]));
  }
  SaveRecentFiles(bench.Settings, bench.Recent);
  WriteSettings(bench.Settings);
  bench.Ended = true;
  out[Ctl::frmMain].Visible = false;
  return true;
}
