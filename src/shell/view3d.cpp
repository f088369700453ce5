#include "shell/view3d.h"

#include "base/number_text.h"
#include "drafting/command_machine.h"
#include "shell/live_view.h"
#include "shell/workbench.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {
constexpr int SliderSteps = 1000;

// Textures that cannot be shown are told and left out of the picture, not out of the file.
void CheckTextures(Workbench &bench) {
  std::string told;
  for (std::size_t i = 0; i < TextureCount; ++i) {
    const std::string &path = bench.View.Look.Bitmap[i];
    const std::string trouble = path.empty() ? "" : bench.Out.CheckBitmap(path);
    bench.Out.View3d.Texture[i] = trouble.empty() ? path : "";
    if (!trouble.empty()) told += (told.empty() ? "" : "\n") + trouble;
  }
  if (!told.empty())
    bench.Out.Ask({told, bench.Out[Ctl::Setup_3D].Text, Buttons::Ok, Icon::Exclamation, true});
}

void AimCut(Workbench &bench) {
  View3d &view = bench.View;
  if (!view.Aim || !view.Newest.Front || view.Whole || view.Across) return;
  view.Aim = false;
  view.LengthPart = -view.Newest.BestCut / BoxOf(bench).High[1]; // the normal points to what stays
}

void Take(Workbench &bench, unsigned number, SolidResult &result) {
  View3d &view = bench.View;
  if (!view.Open || number != view.Number) return;
  view.UnderWay = false;
  view.Newest = std::move(result);
  if (view.Newest.BurntOut) view.Playing = false;
  AimCut(bench);
  PictureScene &scene = bench.Out.View3d;
  scene.Solid = view.Newest.Solid;
  ++scene.Number;
  RefreshView3d(bench);
}

// The front of a design is worked out once, not for each instant.
void AskForSolids(Workbench &bench) {
  View3d &view = bench.View;
  auto request = std::make_shared<SolidRequest>(WantedSolids(bench));
  if (view.Asked && SameSolids(*view.Asked, *request)) return;
  const bool same = view.Asked && SameBurn(view.Asked->Grain, request->Grain);
  if (same && view.Newest.Front) {
    request->Front = view.Newest.Front;
    request->EndKnown = view.Newest.End;
  } else {
    view.Newest.Front.reset();
  }
  view.Asked = request;
  view.UnderWay = true;
  const auto result = std::make_shared<SolidResult>();
  bench.Out.StartSolids([request, result] { *result = MakeSolids(*request); },
                        [&bench, number = ++view.Number, result] { Take(bench, number, *result); });
}

// A grain of other measures stands before the eye anew.
void FitNewGrain(Workbench &bench) {
  const GrainDoc &doc = bench.Grain.Doc;
  const std::string grain = PlainText(doc.GrainRadius) + " " + PlainText(doc.GrainLength);
  if (bench.View.Fitted == grain) return;
  bench.View.Fitted = grain;
  FitView3d(bench);
}

void FillScene(Workbench &bench) {
  const View3d &view = bench.View;
  PictureScene &scene = bench.Out.View3d;
  const MeshBox box = BoxOf(bench);
  const CameraMatrices m = MatricesOf(view.Eye, box);
  scene.View = m.View;
  scene.Projection = m.Projection;
  const auto paint = [&](Paint p) { return view.Look.Colour[static_cast<std::size_t>(p)]; };
  const Paint bySurface[] = {Paint::Burning,    Paint::Exposed, Paint::Exposed, Paint::Inhibited,
                             Paint::Propellant, Paint::Liner,   Paint::Liner,   Paint::Liner,
                             Paint::Core,       Paint::Core,    Paint::Cut};
  for (std::size_t i = 0; i < scene.Colour.size(); ++i) scene.Colour[i] = paint(bySurface[i]);
  const GrainDoc &doc = bench.Grain.Doc;
  scene.TextureSize = static_cast<float>(std::max<double>(1e-6, doc.GrainRadius));
  scene.OwnGround = view.Look.OwnGround;
  scene.Ground = view.Look.Ground;
  scene.Radius = static_cast<float>(box.High[1]);
  scene.PortRadius = static_cast<float>(view.Newest.PortRadius);
  const double burnt = view.Newest.BurntOut ? 0 : view.BurnDist;
  scene.LowZ = static_cast<float>(doc.EndsExposed & 1 ? burnt : 0);
  scene.HighZ = static_cast<float>(doc.GrainLength - (doc.EndsExposed & 2 ? burnt : 0));
  scene.Moving = view.Playing;
  scene.Plane = {};
  scene.Frame.clear();
  scene.GripHeld = view.Held == View3d::Hold::Plane || view.OverGrip;
  if (!view.Whole && !view.Newest.Solid.empty()) {
    const CutPlace cut = CutOf(bench);
    const double offset =
        cut.Toward.X * cut.Middle.X + cut.Toward.Y * cut.Middle.Y + cut.Toward.Z * cut.Middle.Z;
    scene.Plane = {static_cast<float>(cut.Toward.X), static_cast<float>(cut.Toward.Y),
                   static_cast<float>(cut.Toward.Z), static_cast<float>(offset)};
    const auto at = [&](double along, double other) {
      const Pixel p = Project(view.Eye, {cut.Middle.X + cut.Along.X * along + cut.Other.X * other,
                                         cut.Middle.Y + cut.Along.Y * along + cut.Other.Y * other,
                                         cut.Middle.Z + cut.Along.Z * along + cut.Other.Z * other});
      return ScenePoint{static_cast<float>(p.X), static_cast<float>(p.Y)};
    };
    scene.Frame = {at(cut.AlongReach, cut.OtherLow), at(cut.AlongReach, cut.OtherHigh),
                   at(-cut.AlongReach, cut.OtherHigh), at(-cut.AlongReach, cut.OtherLow)};
    const Pixel grip = Project(view.Eye, GripOf(cut));
    scene.Grip = {static_cast<float>(grip.X), static_cast<float>(grip.Y)};
  }
  scene.Key.clear();
  if (view.Newest.Solid.empty()) return;
  if (!view.Newest.BurntOut) {
    scene.Key = {{"Burning surface", paint(Paint::Burning)}};
    if (doc.EndsExposed & 3) scene.Key.push_back({"Exposed end", paint(Paint::Exposed)});
    if ((doc.EndsExposed & 3) != 3) scene.Key.push_back({"Inhibited end", paint(Paint::Inhibited)});
    std::string propellant = view.Whole ? "Propellant" : "Cut propellant";
    if (view.Newest.Groups > 1) propellant += ", " + std::to_string(view.Newest.Groups) + " pieces";
    if (view.Newest.LooseGroups > 0) propellant += ", " + std::to_string(view.Newest.LooseGroups) + " loose";
    scene.Key.push_back({propellant, paint(view.Whole ? Paint::Propellant : Paint::Cut)});
    if (view.Core) scene.Key.push_back({"Core", paint(Paint::Core)});
  }
  if (view.Liner) scene.Key.push_back({"Liner", paint(Paint::Liner)});
}

void RefreshControls(Workbench &bench) {
  Screen &out = bench.Out;
  const View3d &view = bench.View;
  constexpr std::uint32_t running = 0xFFFF80; // a button's face that is on
  const auto lit = [&](Ctl c, bool on) { out[c].Colour = on ? running : 0; };
  lit(Ctl::tb3DRender, view.Open);
  lit(Ctl::tb2DPlot, !view.Open);
  out[Ctl::mnuView3d].Checked = view.Open;
  for (const Ctl c : {Ctl::mnuShot3d, Ctl::mnuMesh3d}) {
    out[c].Enabled = view.Open && !view.Newest.Solid.empty();
    out[c].Hint = view.Open ? "" : "Open the 3D view first";
  }
  out[Ctl::View_3D].Visible = view.Open;
  if (!view.Open) return;
  lit(Ctl::View_Perspective, view.Eye.Perspective);
  lit(Ctl::Cut_None, view.Whole);
  lit(Ctl::Cut_Lengthwise, !view.Whole && !view.Across);
  lit(Ctl::Cut_Across, !view.Whole && view.Across);
  lit(Ctl::Show_Liner, view.Liner);
  lit(Ctl::Show_Core, view.Core);
  const bool any = view.Newest.Front != nullptr || view.UnderWay;
  for (const Ctl c : {Ctl::Burn_Play, Ctl::Burn_Slider, Ctl::Burn_At, Ctl::Export_Mesh, Ctl::Mesh_Part})
    out[c].Enabled = any;
  out[Ctl::Save_Shot].Enabled = !view.Newest.Solid.empty();
  Control &note = out[Ctl::View_Note];
  if (!view.UnderWay) note.Text = view.Newest.Trouble;
  note.Visible = !note.Text.empty();
  const double end = view.Newest.End;
  Control &slider = out[Ctl::Burn_Slider];
  slider.Least = 0, slider.Most = SliderSteps;
  const double part = end > 0 ? std::clamp(view.BurnDist / end, 0.0, 1.0) : 0;
  slider.Text = std::to_string(std::lround(part * SliderSteps));
  out[Ctl::Burn_At].Text = view.BurnText;
  out[Ctl::Burn_Of].Text = end > 0 ? "of " + FormatMask(end, "0.00") + " mm" : "mm";
  out[Ctl::Burn_Play].Text = view.Playing ? "Pause" : "Play";
  Control &parts = out[Ctl::Mesh_Part];
  if (parts.Item.empty()) {
    parts.Item = {"Grain", "Core", "Liner"};
    parts.Index = 0;
  }
  out[Ctl::Idle_Prompt].Text = "Drag to turn the grain, with Shift to move it; wheel to zoom";
  out[Ctl::sbHints].Text =
      "Space: play   , .: a step back, on   C: cut   [ ]: move it   1-7: views   F: fit   Esc: drawing";
}

// The instant of the burn on the charts of the mode in force.
void MarkInstant(Workbench &bench) {
  const BurnRun &run = bench.Sim.Run;
  if (!bench.Sim.ResultMode) return MarkLive(bench, bench.View.BurnDist);
  const int reached = std::max(1, std::min<int>(run.StepCount, run.RowsReached));
  if (run.StepCount == 0 || !(run.BurnIncrement > 0)) return;
  const double step = std::clamp(bench.View.BurnDist / run.BurnIncrement, 1.0, double(reached));
  ReplayAt(bench.Out, bench.Sim, step / reached);
}
} // namespace

double LinerOf(const Workbench &bench) {
  const GrainDoc &doc = bench.Grain.Doc;
  const double wanted = bench.View.Look.Liner > 0 ? bench.View.Look.Liner : doc.GrainRadius / 20;
  return std::clamp(wanted, 2.5 * ViewChord(doc.GrainRadius), std::max<double>(0, doc.GrainRadius));
}

void FitView3d(Workbench &bench) {
  FitTo(bench.View.Eye, BoxOf(bench));
  bench.View.FittedEye = bench.View.Eye;
}

MeshBox BoxOf(const Workbench &bench) {
  const GrainDoc &doc = bench.Grain.Doc;
  const double r = std::max(1e-3, doc.GrainRadius + (bench.View.Liner ? LinerOf(bench) : 0));
  return {{-r, -r, 0}, {r, r, std::max(1e-3, static_cast<double>(doc.GrainLength))}};
}

CutPlace CutOf(const Workbench &bench) {
  const View3d &view = bench.View;
  const MeshBox box = BoxOf(bench);
  const double r = box.High[1], length = box.High[2], over = 0.06 * r;
  CutPlace cut;
  cut.AlongReach = r + over;
  if (view.Across) {
    cut.Toward = {0, 0, 1};
    cut.Middle = {0, 0, view.AcrossPart * length};
    cut.Along = {0, 1, 0};
    cut.Other = {1, 0, 0};
    cut.OtherLow = -r - over, cut.OtherHigh = r + over;
    return cut;
  }
  const double t = view.CutTurn * std::numbers::pi / 180;
  // Exact where it matters: a cut through the axis of a grain drawn about it.
  const double c = std::abs(std::cos(t)) < 1e-12 ? 0 : std::cos(t);
  const double s = std::abs(std::sin(t)) < 1e-12 ? 0 : std::sin(t);
  const double up = c < 0 ? -1 : 1;
  cut.Toward = {c, s, 0};
  cut.Middle = {c * view.LengthPart * r, s * view.LengthPart * r, 0};
  cut.Along = {-s * up, c * up, 0};
  cut.Other = {0, 0, 1};
  cut.OtherLow = -over, cut.OtherHigh = length + over;
  return cut;
}

Place3 GripOf(const CutPlace &cut) {
  const double other = (cut.OtherLow + cut.OtherHigh) / 2;
  return {cut.Middle.X + cut.Along.X * cut.AlongReach + cut.Other.X * other,
          cut.Middle.Y + cut.Along.Y * cut.AlongReach + cut.Other.Y * other,
          cut.Middle.Z + cut.Along.Z * cut.AlongReach + cut.Other.Z * other};
}

SolidRequest WantedSolids(const Workbench &bench) {
  const View3d &view = bench.View;
  SolidRequest request;
  request.Grain = bench.Grain;
  request.BurnDist = view.BurnDist;
  request.Liner = view.Liner ? LinerOf(bench) : 0;
  request.Core = view.Core;
  request.Cut = !view.Whole;
  if (!request.Cut) return request;
  const CutPlace cut = CutOf(bench);
  request.Plane = {
      -cut.Toward.X, -cut.Toward.Y, -cut.Toward.Z,
      -(cut.Toward.X * cut.Middle.X + cut.Toward.Y * cut.Middle.Y + cut.Toward.Z * cut.Middle.Z)};
  return request;
}

void OpenView3d(Workbench &bench) {
  if (bench.View.Open) return;
  LeaveCommand(bench.Draft);
  if (const std::string trouble = bench.Out.OpenPicture(); !trouble.empty()) {
    bench.Out.Ask({trouble + "\n\nThe 2D plot is shown instead.", bench.Out[Ctl::mnuView3d].Text, Buttons::Ok,
                   Icon::Exclamation});
    return;
  }
  bench.View.Open = true;
  if (bench.View.BurnText.empty()) bench.View.BurnText = "0";
  CheckTextures(bench);
  bench.Out.Focus = Ctl::Picture1;
}

void CloseView3d(Workbench &bench) {
  View3d &view = bench.View;
  if (!view.Open) return;
  view.Open = view.Playing = view.UnderWay = view.OverGrip = false;
  view.Held = View3d::Hold::None;
  view.Asked.reset();
  view.Newest = {};
  ++view.Number;
  const unsigned number = bench.Out.View3d.Number;
  bench.Out.View3d = {};
  bench.Out.View3d.Number = number + 1;
  bench.Out[Ctl::Idle_Prompt].Text = RowOf(Ctl::Idle_Prompt).Text;
  LeaveLiveChart(bench);
  bench.Out.Focus = Ctl::DrawPanel;
}

void StandGrainAnew(Workbench &bench) {
  bench.View.Fitted.clear();
  bench.View.Aim = true;
  bench.View.LengthPart = 0;
  bench.View.BurnDist = 0;
  bench.View.BurnText = "0";
}

void ChartMovedBurn(Workbench &bench) {
  if (!bench.View.Open) return;
  const Chart &chart = bench.Sim.ResultMode ? bench.Out.MyChart1 : bench.Out.MyLiveChart;
  if (chart.CursorStep < 1 || chart.CursorStep > static_cast<int>(chart.X.size())) return;
  bench.View.Playing = false;
  bench.View.BurnDist = chart.X[static_cast<std::size_t>(chart.CursorStep - 1)];
  bench.View.BurnText = FormatMask(bench.View.BurnDist, "0.00");
}

void RefreshView3d(Workbench &bench) {
  if (bench.View.Open && bench.Draft.Cmd.CmdNo != 0) CloseView3d(bench); // a tool wants the drawing
  if (bench.View.Open) {
    bench.Out[Ctl::Tools_Frame].Visible = false;
    FitNewGrain(bench);
    AskForSolids(bench);
    FillScene(bench);
    MarkInstant(bench);
  }
  RefreshControls(bench);
}
