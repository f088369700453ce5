#include "shell/dispatch.h"

#include "base/fault.h"
#include "drafting/ask_question.h"
#include "drafting/command_machine.h"
#include "drafting/creation.h"
#include "drafting/hot_keys.h"
#include "drafting/point_modes.h"
#include "drafting/properties.h"
#include "drafting/typing.h"
#include "drafting/view.h"
#include "shell/design_view.h"
#include "shell/dialogs.h"
#include "shell/dxf_menu.h"
#include "shell/file_menu.h"
#include "shell/help_pages.h"
#include "shell/hot_key_form.h"
#include "shell/pep_window.h"
#include "shell/pressure_window.h"
#include "shell/propellant_form.h"
#include "shell/recorder.h"
#include "shell/refresh_screen.h"
#include "shell/results_form.h"
#include "shell/settings_dialogs.h"
#include "shell/setup3d_form.h"
#include "shell/start_up.h"
#include "shell/template_play.h"
#include "shell/template_record.h"
#include "shell/template_windows.h"
#include "shell/tool_finder.h"
#include "shell/tutor.h"
#include "shell/tutor_author.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int RightButton = 2;

void SetTheme(Workbench &bench, const char *name) {
  SaveSetting(bench.Settings, "Settings", "Theme", name);
  WriteSettings(bench.Settings);
}

void TogglePane(Workbench &bench, const char *name) {
  const bool shown = GetSetting(bench.Settings, "Settings", name, "1") != "0";
  SaveSetting(bench.Settings, "Settings", name, shown ? "0" : "1");
  WriteSettings(bench.Settings);
}

void RunSimulation(Workbench &bench) {
  LeaveCommand(bench.Draft);
  bench.Running = true;
  // A lesson's drawing must not take the place of the user's own, which is put aside.
  const std::string keep = bench.Draft.KeepWork ? bench.Claim.TempFile : "";
  RunSim2(bench.Grain, bench.Out, {keep, bench.Command.KnBatch}, bench.Sim);
  bench.Running = false;
}

void Zoom(Workbench &bench, void (*change)(DrawSurface &)) {
  change(bench.Out.Panel);
  RedrawDrawing(bench);
}

void CloseProgram(Workbench &bench) {
  if (LessonRecords(bench.Tutor.Rec.Lesson) && !CancelLesson(bench)) return;
  if (bench.Template.Record.Running && !CancelRecording(bench)) return;
  if (bench.Template.Play.Running) Stop_Macro(bench);
  if (!bench.Record.On || StopRecording(bench)) CloseMain(bench);
}

void OpenMotorWindow(Workbench &bench) {
  ShowPressureResults(bench);
  DeliverSent(bench);
}

void FindAndPress(Workbench &);

struct PressRow {
  Ctl Target;
  void (*Action)(Workbench &);
};
constexpr PressRow PressTable[] = {
    {Ctl::mnuFileNew, NewGrain},
    {Ctl::tbNew, NewGrain},
    {Ctl::mnuFileOpen, OpenGrain},
    {Ctl::tbOpen, OpenGrain},
    {Ctl::Empty_Open, OpenGrain},
    {Ctl::mnuFileSave, [](Workbench &b) { SaveGrain(b); }},
    {Ctl::tbSave, [](Workbench &b) { SaveGrain(b); }},
    {Ctl::mnuFileSaveAs, [](Workbench &b) { SaveGrainAs(b); }},
    {Ctl::Recovery_SaveAs, [](Workbench &b) { SaveGrainAs(b); }},
    {Ctl::Recovery_Discard, DiscardRecovered},
    {Ctl::mnuImport, ImportDxfDrawing},
    {Ctl::ExportDXF, ExportDXF},
    {Ctl::mnuRecovered, OpenRecoveredCopy},
    {Ctl::mnuMRU0, [](Workbench &b) { OpenRecent(b, 0); }},
    {Ctl::mnuMRU1, [](Workbench &b) { OpenRecent(b, 1); }},
    {Ctl::mnuMRU2, [](Workbench &b) { OpenRecent(b, 2); }},
    {Ctl::mnuMRU3, [](Workbench &b) { OpenRecent(b, 3); }},
    {Ctl::mnuFileExit, CloseProgram},
    {Ctl::Zoom_Reset, ShowWholeGrain},
    {Ctl::Diagnosis_Next, ShowNextFault},
    {Ctl::Close_Gaps, ApplyCloseGaps},
    {Ctl::Zoom_x2, [](Workbench &b) { Zoom(b, Zoomx2); }},
    {Ctl::Zoom_1h, [](Workbench &b) { Zoom(b, Zoom1h); }},
    {Ctl::mnuEditUndo, [](Workbench &b) { UndoChange(b.Draft); }},
    {Ctl::tbUndo, [](Workbench &b) { UndoChange(b.Draft); }},
    {Ctl::mnuEditRedo, [](Workbench &b) { RedoChange(b.Draft); }},
    {Ctl::tbRedo, [](Workbench &b) { RedoChange(b.Draft); }},
    {Ctl::tbBack, [](Workbench &b) { Back(b.Draft, 2); }},
    {Ctl::tbEscape, [](Workbench &b) { Escape(b.Draft); }},
    {Ctl::Empty_Circle, [](Workbench &b) { StartCommand(b.Draft, *CommandOf(Ctl::Circle_CtrEdge)); }},
    {Ctl::mnuRefresh, RedrawDrawing},
    {Ctl::tbRefresh, RedrawDrawing},
    {Ctl::mnuThemeLight, [](Workbench &b) { SetTheme(b, "Light"); }},
    {Ctl::mnuThemeDark, [](Workbench &b) { SetTheme(b, "Dark"); }},
    {Ctl::mnuViewTools, [](Workbench &b) { TogglePane(b, "ToolsPane"); }},
    {Ctl::mnuViewReport, [](Workbench &b) { TogglePane(b, "ReportPane"); }},
    {Ctl::mnuViewSide, [](Workbench &b) { TogglePane(b, "SidePane"); }},
    {Ctl::tb3DRender, OpenView3d},
    {Ctl::tb2DPlot, CloseView3d},
    {Ctl::tb3DConfig, EditSetup3d},
    {Ctl::mnuView3d, [](Workbench &b) { b.View.Open ? CloseView3d(b) : OpenView3d(b); }},
    {Ctl::mnuDims, MenuDimensions},
    {Ctl::mnuLiveBurn, ToggleLive},
    {Ctl::mnuOptions, ShowOptions},
    {Ctl::tbConfigure, ShowOptions},
    {Ctl::mnuGrid, ShowGrid},
    {Ctl::mnuIncrements, ShowIncrements},
    {Ctl::mnuDebugMode, [](Workbench &b) { b.Grain.DebugMode = b.Grain.DebugMode == 0; }},
    {Ctl::mnuFindTool, FindAndPress},
    {Ctl::mnuHelpTools, [](Workbench &b) { ShowHelp(b, Ctl::mnuHelpTools); }},
    {Ctl::mnuRecord, ToggleRecording},
    {Ctl::mnuIntro, ShowIntro},
    {Ctl::mnuAbout, ShowAbout},
    {Ctl::RunSim2, RunSimulation},
    {Ctl::Save_Results, SaveResults},
    {Ctl::Performance_Sim, OpenMotorWindow},
    {Ctl::PEP_Simulation, ShowPep},
    {Ctl::Design_Mode, [](Workbench &b) { LeaveResults(b.Grain, b.Out, b.Sim); }},
};

// Drafting sleeps while results are shown.
void PressInDrawing(Workbench &bench, const Event &event) {
  if (bench.Sim.ResultMode) return;
  const bool automatic = bench.Draft.Track.AutoPoint;
  Event press = event;
  press.Target = ToolWanted(bench, event.Target);
  PressDrafting(bench.Draft, press);
  if (bench.Draft.Track.AutoPoint == automatic) return;
  SaveSetting(bench.Settings, "Settings", "AutoPoint", automatic ? "0" : "1");
  WriteSettings(bench.Settings);
}

void Press(Workbench &bench, const Event &event) {
  if (!bench.Out[event.Target].Enabled) return;
  if (event.Button == RightButton) return OpenHotKeyList(bench, event.Target);
  bench.Out[Ctl::HotKeyList].Visible = false;
  if (PressTutor(bench, event.Target, event.Text) || !LessonAllows(bench, event.Target)) return;
  if (PressInView3d(bench, event.Target) || PressTemplate(bench, event)) return;
  for (const PressRow &row : PressTable)
    if (row.Target == event.Target) return row.Action(bench);
  PressInDrawing(bench, event);
}

void PressControl(Workbench &bench, Ctl target) {
  Event press;
  press.Target = target;
  NotePress(bench, target);
  Press(bench, press);
}

void FindAndPress(Workbench &bench) {
  if (const auto tool = AskTool(bench)) PressControl(bench, *tool);
}

void DrawingKey(Workbench &bench, const Event &event) {
  if (bench.Sim.ResultMode) return;
  const bool control = event.Shift == 2;
  if (control && event.KeyCode == 'Z') return UndoChange(bench.Draft);
  if (control && event.KeyCode == 'Y') return RedoChange(bench.Draft);
  if (TypeAtPointer(bench.Draft, event)) return ShowPointer(bench.Draft);
  PanelKey(bench.Draft, event);
  if (const auto target = HotKeyPressed(bench.Draft, event.KeyCode, event.Shift))
    PressControl(bench, *target);
}

constexpr Ctl Fields[] = {Ctl::X_Input, Ctl::Y_Input};

void MainKey(Workbench &bench, const Event &event) {
  constexpr int F1 = 112, F2 = 113, controlKey = 2;
  if (event.KeyCode == F1 && event.Shift == 0) return HelpKey(bench, event.Target);
  if (event.KeyCode == 'K' && event.Shift == controlKey) return FindAndPress(bench);
  if (event.KeyCode == F2 && event.Target != Ctl::DrawPanel) return OfferVariables(bench, event.Target);
  const bool drawing = event.Target == Ctl::DrawPanel;
  if (bench.View.Open && drawing && event.Shift <= 1) return View3dKey(bench, event.KeyCode, event.Shift);
  if (IsPropertyField(event.Target)) return PropertyKey(bench.Draft, event);
  if (std::find(std::begin(Fields), std::end(Fields), event.Target) != std::end(Fields))
    return FieldKey(bench.Draft, event);
  if (event.Target == Ctl::DrawPanel || event.KeyCode == 27) return DrawingKey(bench, event);
  CreationText(bench.Draft, event);
}

void MainText(Workbench &bench, const Event &event) {
  bench.Template.Field = event.Target;
  if (IsPropertyField(event.Target)) return PropertyText(bench.Draft, event);
  if (std::find(std::begin(Fields), std::end(Fields), event.Target) != std::end(Fields)) {
    FieldText(bench.Draft, event);
    return ShowPointer(bench.Draft);
  }
  CreationText(bench.Draft, event);
}

void AboutEvent(Workbench &bench, const Event &event) {
  if (event.What != Event::Kind::Text) bench.Out[Ctl::frmAbout].Visible = false;
}

void Route(Workbench &bench, const Event &event) {
  if (PlayHolds(bench, event) || TutorTakes(bench, event)) return;
  const std::string_view window = RowOf(event.Target).Window;
  const bool beside = event.What == Event::Kind::Press && window != "frmMain" && window != "tbToolBar";
  if (beside && bench.Out[event.Target].Enabled && !LessonAllows(bench, event.Target)) return;
  if (TemplateWindowEvent(bench, event)) return;
  if (window == "TutorMsgForm") return TutorMessageEvent(bench, event);
  if (window == "Dimensions") return DimensionsEvent(bench, event);
  if (window == "IntroPage") return IntroEvent(bench, event);
  if (window == "frmAbout") return AboutEvent(bench, event);
  if (window == "Question_Form") return QuestionEvent(bench.Out, event);
  if (window == "Options_Form") return OptionsEvent(bench, event);
  if (window == "Grid_Control") return GridEvent(bench, event);
  if (window == "Increments_2d") return IncrementsEvent(bench, event);
  if (window == "Save_Results_Form") return SaveResultsEvent(bench, event);
  if (window == "Export_DXF") return ExportDxfEvent(bench, event);
  if (window == "HotKeyForm") return HotKeyFormEvent(bench, event);
  if (window == "PEP_SimA") return PepEvent(bench, event);
  const bool motor = bench.Out[Ctl::Pressure_Results].Visible;
  if (motor && event.Target == Ctl::Pressure_PEP && event.What == Event::Kind::Press) return ShowPep(bench);
  if (window == "Pressure_Results") return PressureEvent(bench, event);
  if (window == "Propellants_Form") return PropellantFormEvent(bench, event);
  if (window == "View_3D") return View3dEvent(bench, event);
  if (window == "Setup_3D") return Setup3dEvent(bench, event);
  if (window == "Find_Tool") return FindToolEvent(bench, event);
  if (window == "Help_Window") return HelpEvent(bench, event);
  if (event.Target == Ctl::HotKeyList) return HotKeyListEvent(bench, event);
  if (event.What == Event::Kind::Drop) {
    if (bench.Out[Ctl::mnuFileOpen].Enabled) OpenDropped(bench, event.Text);
    return;
  }
  if (event.What == Event::Kind::Close) return CloseProgram(bench);
  if (event.What == Event::Kind::Press) return Press(bench, event);
  if (event.What == Event::Kind::Key) return MainKey(bench, event);
  if (event.What == Event::Kind::Text) return MainText(bench, event);
  if (event.Target == Ctl::DrawPanel) return PanelEvent(bench, event);
  if (event.Target == Ctl::MyLiveChart) {
    LiveChartEvent(bench, event);
    return ChartMovedBurn(bench);
  }
  if (event.What == Event::Kind::MouseMove &&
      (event.Target == Ctl::MyChart1 || event.Target == Ctl::MyChart2)) {
    ReplayAt(bench.Out, bench.Sim, event.X);
    ChartMovedBurn(bench);
  }
}

} // namespace

void Dispatch(Workbench &bench, const Event &event) {
  if (event.Target == Ctl::Count || bench.Ended) return;
  if (bench.Running) return;
  if (!std::isfinite(event.X) || !std::isfinite(event.Y) || !std::isfinite(event.Notches)) return;
  NoteEvent(bench, event);
  const int depth = ++bench.Tutor.Depth;
  if (event.Target != Ctl::MyLiveChart) LeaveLiveChart(bench);
  try {
    Route(bench, event);
    if (depth == 1) FollowLesson(bench);
  } catch (const Fault &fault) {
    bench.Running = false;
    bench.Grain.GeomAbort = true;
    bench.Out[Ctl::SimMsg].Visible = false;
    bench.Out.Ask({"Unanticipated error " + std::to_string(fault.Number) + ": " + fault.Text,
                   bench.Out[Ctl::frmMain].Text, Buttons::Ok, Icon::Exclamation});
  }
  NoteResult(bench, event);
  RefreshScreen(bench);
  if (depth == 1) TellLesson(bench);
  --bench.Tutor.Depth;
}
