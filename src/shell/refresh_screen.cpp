#include "shell/refresh_screen.h"

#include "base/number_text.h"
#include "drafting/command_machine.h"
#include "drafting/frames.h"
#include "shell/held_controls.h"
#include "shell/pep_window.h"
#include "shell/pressure_window.h"
#include "shell/template_play.h"
#include "shell/tool_hints.h"
#include "shell/tutor.h"

#include <array>
#include <filesystem>

namespace {
struct HintRow {
  Ctl Target;
  const char *Text;
};

constexpr HintRow Hints[] = {
    {Ctl::mnuFileNew, "New: an empty grain of the same dimensions (Ctrl+N)"},
    {Ctl::mnuFileOpen, "Open: a grain file from disk (Ctrl+O)"},
    {Ctl::mnuFileSave, "Save: the grain under its name (Ctrl+S)"},
    {Ctl::mnuFileSaveAs, "Save As: the grain under a new name (Ctrl+Shift+S)"},
    {Ctl::mnuRecovered,
     "Opens the copy kept of a design that was open when the program last ended without closing"},
    {Ctl::mnuImport, "Import DXF: a drawing of another program as a new design"},
    {Ctl::ExportDXF, "Export DXF: the drawing for machining and other programs"},
    {Ctl::mnuFileExit, "Exit: closes the program"},
    {Ctl::Zoom_Reset, "Zoom to Grain: the whole grain circle"},
    {Ctl::Zoom_x2, "Zoom In x2: about the centre of the view"},
    {Ctl::Zoom_1h, "Zoom Out x1/2: about the centre of the view"},
    {Ctl::mnuViewTools, "Tools Pane: the drawing tools left of the drawing"},
    {Ctl::mnuViewReport, "Report Pane: the figures left of the contours"},
    {Ctl::mnuViewSide, "Side Pane: the running tool and the grain, right of the drawing"},
    {Ctl::mnuRefresh, "Refresh: draws everything again"},
    {Ctl::mnuDims, "Dimensions: diameter, length, throat and burning ends of the grain"},
    {Ctl::mnuLiveBurn, "Live Burn: the curve of the drawing at hand, beside it"},
    {Ctl::mnuDebugMode, "Debug Mode: shows more about faults"},
    {Ctl::mnuIntro, "Introduction: the first page again"},
    {Ctl::mnuchoosetemplate, "Choose Template: a parametric grain by its picture, with numbers of your own"},
    {Ctl::mnumaketemplate, "Make Template: records a drawing with variables, to be drawn again with others"},
    {Ctl::tbTemplates, "Templates: a parametric grain by its picture, with numbers of your own"},
    {Ctl::mnuTutor, "Tutor: lessons that show what to do and watch how it is done"},
    {Ctl::tbTutor, "Tutor: lessons that show what to do and watch how it is done"},
    {Ctl::MacroRecord,
     "Record Lesson: what you do becomes a lesson for others, with a message to each input"},
    {Ctl::Empty_Template, "A parametric grain by its picture"},
    {Ctl::tbNew, "New: an empty grain of the same dimensions (Ctrl+N)"},
    {Ctl::tbOpen, "Open: a grain file from disk (Ctrl+O)"},
    {Ctl::tbSave, "Save: the grain under its name (Ctrl+S)"},
    {Ctl::tbRefresh, "Refresh: draws everything again"},
    {Ctl::RunSim2, "Run Sim: burns the grain and shows its areas, Kn and outlines"},
    {Ctl::Performance_Sim,
     "Motor Performance: pressure, thrust and mass flow of this burn over time for a propellant"},
    {Ctl::PEP_Simulation,
     "Propellant Performance: flame temperature, c*, impulse and products from the ingredients"},
    {Ctl::Pressure_PEP, "Works out c* and Isp from the propellant's ingredients"},
    {Ctl::Save_Results, "Save Results: the burn's table as a file that a spreadsheet evaluates"},
    {Ctl::Design_Mode, "Back to Design Mode: the drawing can be changed again"},
    {Ctl::Recovery_SaveAs, "Saves the recovered design under a name of your choice"},
    {Ctl::Recovery_Discard, "Starts empty; the recovered copy stays in the File menu"},
    {Ctl::Empty_Open, "Opens a grain file (Ctrl+O)"},
    {Ctl::tb3DRender, "3D View: the grain cut open, at any instant of its burn"},
    {Ctl::tb2DPlot, "2D Plot: the drawing, and the contours of the burn once it was run"},
    {Ctl::tb3DConfig, "3D Setup: colours, textures, liner and background of the 3D view"},
    {Ctl::View_Front, "Front: end B, as it is drawn (1; the other end: 5)"},
    {Ctl::View_Side, "Side: end B at the right (2; the other side: 6)"},
    {Ctl::View_Top, "Top: from above (3; from below: 7)"},
    {Ctl::View_Iso, "Isometric (4)"},
    {Ctl::View_Fit, "Fit: the whole grain in the picture (F)"},
    {Ctl::View_Perspective, "Perspective, or parallel (P)"},
    {Ctl::Cut_None, "Whole: nothing is cut away (C)"},
    {Ctl::Cut_Lengthwise, "Cut Lengthwise: drag the grip, or [ and ]; Shift+[ and ] turn it (C)"},
    {Ctl::Cut_Across, "Cut Across: drag the grip, or [ and ] (C)"},
    {Ctl::Show_Liner, "Liner: shown, or left out (L)"},
    {Ctl::Show_Core, "Core: the casting mandrel that leaves the port (M)"},
    {Ctl::Save_Shot, "Save Picture: this view as a PNG file"},
    {Ctl::Export_Mesh, "Export: this part at this burn distance, as STL or 3MF"},
    {Ctl::Burn_Play, "Plays the burn, or holds it (Space)"},
};

constexpr Ctl ResultControls[] = {Ctl::Report_Frame, Ctl::Burn_Area,       Ctl::Kn_Ratio,
                                  Ctl::Ap_At_Ratio,  Ctl::Volume_Loadings, Ctl::Sliver_Fraction,
                                  Ctl::Neutrallity,  Ctl::Design_Mode,     Ctl::Performance_Sim};
constexpr Ctl DesignControls[] = {Ctl::Tools_Frame,        Ctl::Motor_Dimensions,  Ctl::Grain_Diam_Label,
                                  Ctl::Grain_Length_Label, Ctl::Throat_Diam_Label, Ctl::Ends_Exposed_Label};

std::string Figure(double mm) { return PlainText(static_cast<float>(mm)); }

void DimensionLabels(Screen &out, const GrainDoc &doc) {
  out[Ctl::Grain_Diam_Label].Text = "Grain Diameter: " + Figure(doc.GrainDiam);
  out[Ctl::Grain_Length_Label].Text = "Grain Length: " + PlainText(doc.GrainLength);
  out[Ctl::Throat_Diam_Label].Text = "Throat Diameter: " + PlainText(doc.ThroatDiam);
  out[Ctl::Ends_Exposed_Label].Text = std::string("End A: ") + (doc.EndsExposed & 1 ? "Yes" : "No") +
                                      (doc.EndsExposed & 2 ? "    End B: Yes" : "    End B: No");
}

void RecentEntries(Workbench &bench) {
  constexpr std::array<Ctl, 4> entry{Ctl::mnuMRU0, Ctl::mnuMRU1, Ctl::mnuMRU2, Ctl::mnuMRU3};
  for (std::size_t i = 0; i < entry.size(); ++i) {
    Control &shown = bench.Out[entry[i]];
    shown.Visible = i < bench.Recent.Entry.size();
    shown.Text = shown.Visible ? bench.Recent.Entry[i].Caption : "";
    shown.Hint = shown.Visible ? bench.Recent.Entry[i].Path : "";
  }
  Control &copy = bench.Out[Ctl::mnuRecovered];
  copy.Visible = !bench.Recovered.CopyPath.empty();
  copy.Text = std::filesystem::path(bench.Recovered.CopyPath).stem().string();
}

void RecoveryControls(Workbench &bench) {
  Screen &out = bench.Out;
  for (const Ctl c : {Ctl::RecoveryBar, Ctl::Recovery_SaveAs, Ctl::Recovery_Discard})
    out[c].Visible = bench.Recovered.Open;
  out[Ctl::RecoveryBar].Text =
      "The program last ended without closing. Its design stands here again; a copy is kept as " +
      std::filesystem::path(bench.Recovered.CopyPath).filename().string() + ".";
}

// A frame that a running command waits for stands in the side pane.
bool AsksInFrame(const Screen &out) {
  for (const Ctl frame : {Ctl::XFormOption, Ctl::Delete_Mode, Ctl::Selection_Frame, Ctl::Window_Frame,
                          Ctl::Mirror_Frame, Ctl::Movement_Frame, Ctl::BoxWH_Frame, Ctl::Poly_Frame})
    if (out[frame].Visible) return true;
  return false;
}

void ModeControls(Workbench &bench) {
  Screen &out = bench.Out;
  const bool results = bench.Sim.ResultMode;
  for (const Ctl c : ResultControls) out[c].Visible = results;
  for (const Ctl c : DesignControls) out[c].Visible = !results;
  const auto kept = [&](Ctl entry, const char *name) {
    return out[entry].Checked = GetSetting(bench.Settings, "Settings", name, "1") != "0";
  };
  const bool tools = kept(Ctl::mnuViewTools, "ToolsPane"), side = kept(Ctl::mnuViewSide, "SidePane");
  const bool report = kept(Ctl::mnuViewReport, "ReportPane");
  out[Ctl::Tools_Frame].Visible = !results && tools;
  out[Ctl::Report_Frame].Visible = results && report;
  out[Ctl::Side_Pane].Visible = !results && (side || AsksInFrame(out));
  out[Ctl::RunSim2].Enabled = out[Ctl::mnuDims].Enabled = !results;
  if (results)
    for (const Ctl c : {Ctl::RunSim2, Ctl::mnuDims, Ctl::tbRotationDraw, Ctl::Zoom_Window})
      out[c].Hint = "Go back to design mode first";
  // In design mode the charts keep the last run's curves at a smaller size; before a run there is nothing to
  // show.
  const bool wide1 = out.PixelWidth >= 768, wide2 = out.PixelWidth >= 1024 && !bench.Chart2Hidden;
  out[Ctl::MyChart1_Frame].Visible = results || (wide1 && !out.MyChart1.Series.empty());
  out[Ctl::MyChart2_Frame].Visible = !out.MyChart2.Series.empty() && (results || wide2);
  out[Ctl::sbHints].Visible = !results;
  out[Ctl::Idle_Prompt].Visible = !out[Ctl::UserPrompt].Visible;
  const bool begun = bench.Template.Record.Running || bench.Template.Play.Running;
  const bool empty = bench.Grain.Table.EntCount < 0 && !results && !begun && bench.Draft.Cmd.CmdNo == 0;
  for (const Ctl c : {Ctl::Empty_Hint, Ctl::Empty_Circle, Ctl::Empty_Open, Ctl::Empty_Template})
    out[c].Visible = empty;
}
} // namespace

void RefreshScreen(Workbench &bench) {
  Screen &out = bench.Out;
  UnmarkTutor(bench);
  RefreshDrafting(bench.Draft);
  RefreshFrames(bench.Draft, !bench.Sim.ResultMode);
  out[Ctl::HotKeyPrompt].Visible = out[Ctl::HotKeyList].Visible;
  for (const HintRow &row : Hints) out[row.Target].Hint = row.Text;
  for (const ToolHint &row : ToolHints()) out[row.Target].Hint = row.Text;
  NameHotKeys(out, bench.Draft.HotKeyTable);
  out[Ctl::mnuRecord].Checked = bench.Record.On;
  out[Ctl::frmMain].Text = "Morvandel - " + bench.Caption;
  const bool dark =
      GetSetting(bench.Settings, "Settings", "Theme", out.SystemIsDark ? "Dark" : "Light") == "Dark";
  out[Ctl::mnuThemeDark].Checked = dark;
  out[Ctl::mnuThemeLight].Checked = !dark;
  out[Ctl::mnuDebugMode].Checked = bench.Grain.DebugMode != 0;
  DimensionLabels(out, bench.Grain.Doc);
  RecentEntries(bench);
  RecoveryControls(bench);
  ModeControls(bench);
  RefreshDiagnosis(bench);
  RefreshTemplates(bench);
  RefreshTutor(bench);
  HoldControls(bench);
  RefreshPressure(bench);
  RefreshPep(bench);
  RefreshLive(bench);
  RefreshView3d(bench);
}
