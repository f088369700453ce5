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
#include "shell/pep_memory.h"
#include "shell/recovery.h"
#include "shell/refresh_screen.h"
#include "shell/tutor.h"

#include <vector>

namespace {
struct PlaceField {
  const char *Key;
  int WindowPlace::*Field;
};
constexpr PlaceField PlaceFields[] = {
    {"MainLeft", &WindowPlace::Left},       {"MainTop", &WindowPlace::Top},
    {"MainWidth", &WindowPlace::Width},     {"MainHeight", &WindowPlace::Height},
    {"SideWidth", &WindowPlace::SideWidth}, {"ChartHeight", &WindowPlace::ChartHeight}};

void HideWindows(Screen &out) {
  for (const Ctl c : {Ctl::frmMain,           Ctl::frmSplash,
                      Ctl::Dimensions,        Ctl::IntroPage,
                      Ctl::frmAbout,          Ctl::SimMsg,
                      Ctl::UserPrompt,        Ctl::Question_Form,
                      Ctl::HotKeyForm,        Ctl::Options_Form,
                      Ctl::Grid_Control,      Ctl::Increments_2d,
                      Ctl::Save_Results_Form, Ctl::Export_DXF,
                      Ctl::Find_Tool,         Ctl::Help_Window,
                      Ctl::Pressure_Results,  Ctl::Propellants_Form,
                      Ctl::PEP_SimA,          Ctl::VariableNameForm,
                      Ctl::MacroParams,       Ctl::Grain_Selection_Window,
                      Ctl::Template_File,     Ctl::TemplateForm,
                      Ctl::PreviewForm,       Ctl::TutorFrame,
                      Ctl::TutorMsgForm,      Ctl::View_3D,
                      Ctl::Setup_3D})
    out[c].Visible = false;
}

void LoadWindowPlace(Workbench &bench) {
  for (const PlaceField &field : PlaceFields) {
    const double kept = Val(GetSetting(bench.Settings, "Settings", field.Key));
    if (kept >= -100000 && kept <= 100000) bench.Out.MainPlace.*field.Field = static_cast<int>(kept);
  }
}

// Without keys of the user's own the shipped ones hold, and are kept for changes where that can be done.
void LoadHotKeys(Workbench &bench, std::vector<std::string> &notices) {
  const std::string own = bench.Folders.AppDir + "HotKeys", shipped = bench.Folders.Install + "data/HotKeys";
  const bool first = !FileExists(own) && !bench.Folders.Install.empty();
  const std::string trouble = ReadHotKeys(first ? shipped : own, bench.Draft.HotKeyTable);
  if (!trouble.empty()) notices.push_back(trouble);
  std::string bytes;
  if (first && trouble.empty() && ReadWhole(shipped, bytes).empty()) WriteWhole(own, bytes);
}

void LoadMain(Workbench &bench, std::vector<std::string> &notices) {
  bench.Settings = LoadSettings(bench.Folders.AppDir + "settings.ini");
  bench.Recent = LoadRecentFiles(bench.Settings);
  LoadWindowPlace(bench);
  bench.Grain = Design{};
  bench.Grain.AppDir = bench.Folders.AppDir;
  bench.Template.Folders = UserTemplates(bench.Folders.AppDir);
  const std::string trouble = ApplyDefaultFile(bench.Folders.AppDir + "DefaultFile", bench.Grain);
  if (!trouble.empty()) notices.push_back(trouble);
  const std::string look = ReadLook(bench.Folders.AppDir + "Default3DFile", bench.View.Look);
  if (!look.empty()) notices.push_back(look);
  LoadHotKeys(bench, notices);
  ClaimWorkFiles(bench.Claim, bench.Folders.AppDir);
  RecoverDesign(bench, notices);
  bench.Chart2Hidden = bench.Out.PixelWidth < 1024;
  bench.Draft.Track.AutoPoint =
      GetSetting(bench.Settings, "Settings", "AutoPoint", bench.Out.ByHand ? "1" : "0") == "1";
  bench.Draft.KeepWork = [&bench] { KeepWorkFile(bench); };
  bench.Draft.MarkFaults = [&bench] {
    DrawFaults(bench);
    DrawLessonMark(bench);
  };
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
  out.TakesKey = [&bench](int key, int shift) {
    constexpr int control = 2; // the menus' own
    return (shift & control) == 0 && HotKeyPressed(bench.Draft, key, shift).has_value();
  };
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
    for (const PlaceField &field : PlaceFields)
      SaveSetting(bench.Settings, "Settings", field.Key, std::to_string(out.MainPlace.*field.Field));
  }
  if (out[Ctl::PEP_SimA].Visible) RememberPep(bench);
  SaveRecentFiles(bench.Settings, bench.Recent);
  WriteSettings(bench.Settings);
  bench.Ended = true;
  out[Ctl::frmMain].Visible = false;
  return true;
}
