#include "base/number_text.h"
#include "base/numeral.h"
#include "shell/view3d.h"
#include "shell/workbench.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double FullBurn = 8; // seconds that a play of the whole burn takes
constexpr double GripReach = 14, KeyTurn = 5, KeyPan = 40, KeyZoom = 1.2, KeyCut = 0.04; // pixels, degrees
constexpr int SliderSteps = 1000, KeySteps = 100;

void SetBurn(View3d &view, double mm) {
  view.BurnDist = std::clamp(mm, 0.0, std::max(view.Newest.End, 0.0));
  view.BurnText = FormatMask(view.BurnDist, "0.00");
}

void Pause(View3d &view) { view.Playing = false; }

void TogglePlay(View3d &view) {
  if (!view.Newest.Front) return;
  view.Playing = !view.Playing;
  if (view.Playing && view.BurnDist >= view.Newest.End * (1 - 1e-6)) SetBurn(view, 0);
}

void Zoom(Workbench &bench, double x, double y, double factor) {
  const MeshBox box = BoxOf(bench);
  const double size = std::max(box.High[0] * 2, box.High[2]);
  ZoomAt(bench.View.Eye, x, y, factor, size / 500, size * 12);
}

void See(Workbench &bench, StandardView from) {
  LookFrom(bench.View.Eye, from);
  FitView3d(bench);
}

void SetCut(View3d &view, bool whole, bool across) {
  view.Whole = whole;
  view.Across = across;
}

// A little of the grain always stays.
void MoveCut(View3d &view, double part) {
  if (view.Across)
    view.AcrossPart = std::clamp(part, 0.005, 1.0);
  else
    view.LengthPart = std::clamp(part, -0.97, 1.0);
}

double CutPart(const View3d &view) { return view.Across ? view.AcrossPart : view.LengthPart; }

// Pixels to the share of the radius or length that the cut moves by; a cut seen from before or behind moves
// with the pointer going up.
double PartOf(const Workbench &bench, const Camera &eye, double right, double down) {
  const CutPlace cut = CutOf(bench);
  const Place3 grip = GripOf(cut);
  const Pixel at = Project(eye, grip),
              on = Project(eye, {grip.X + cut.Toward.X, grip.Y + cut.Toward.Y, grip.Z + cut.Toward.Z});
  const double dx = on.X - at.X, dy = on.Y - at.Y, pixel = eye.Span / std::max(1.0, eye.Height);
  const double length = dx * dx + dy * dy;
  const double mm = std::sqrt(length) * pixel > 0.15 ? (right * dx + down * dy) / length : -down * pixel;
  const MeshBox box = BoxOf(bench);
  return mm / (bench.View.Across ? box.High[2] : box.High[1]);
}

bool OnGrip(const Workbench &bench, double x, double y) {
  const View3d &view = bench.View;
  if (view.Whole || view.Newest.Solid.empty()) return false;
  const Pixel grip = Project(view.Eye, GripOf(CutOf(bench)));
  return grip.Before && std::hypot(grip.X - x, grip.Y - y) <= GripReach;
}

void Down(Workbench &bench, const Event &event) {
  constexpr int left = 1;
  View3d &view = bench.View;
  if (view.Held != View3d::Hold::None) return;
  view.HeldX = event.X, view.HeldY = event.Y;
  view.HeldEye = view.Eye;
  view.HeldPart = CutPart(view);
  const bool plain = event.Button == left && (event.Shift & 1) == 0;
  view.Held = plain && OnGrip(bench, event.X, event.Y) ? View3d::Hold::Plane
              : plain                                  ? View3d::Hold::Turn
                                                       : View3d::Hold::Pan;
}

// Always from where the pull began: the way in between does not matter.
void Move(Workbench &bench, const Event &event) {
  View3d &view = bench.View;
  const double right = event.X - view.HeldX, down = event.Y - view.HeldY;
  view.OverGrip = view.Held == View3d::Hold::None && OnGrip(bench, event.X, event.Y);
  switch (view.Held) {
  case View3d::Hold::None: return;
  case View3d::Hold::Turn:
  case View3d::Hold::Pan: {
    Camera eye = view.HeldEye;
    eye.Width = view.Eye.Width, eye.Height = view.Eye.Height;
    view.Held == View3d::Hold::Turn ? Orbit(eye, right, down) : PanBy(eye, right, down);
    view.Eye = eye;
    return;
  }
  case View3d::Hold::Plane: return MoveCut(view, view.HeldPart + PartOf(bench, view.HeldEye, right, down));
  }
}

void Resize(Workbench &bench, double width, double height) {
  View3d &view = bench.View;
  const bool asFitted = view.Eye == view.FittedEye;
  view.Eye.Width = width, view.Eye.Height = height;
  if (asFitted) FitView3d(bench);
}

void Picture(Workbench &bench, const Event &event) {
  View3d &view = bench.View;
  constexpr double most = 1e5; // pixels
  if (std::max(std::abs(event.X), std::abs(event.Y)) > most) return;
  switch (event.What) {
  case Event::Kind::MouseDown: return Down(bench, event);
  case Event::Kind::MouseMove: return Move(bench, event);
  case Event::Kind::MouseUp: view.Held = View3d::Hold::None; return;
  case Event::Kind::Leave: view.OverGrip = false; return;
  case Event::Kind::Wheel:
    return Zoom(bench, event.X, event.Y, std::pow(1.2, std::clamp(event.Notches, -20.0, 20.0)));
  case Event::Kind::Resize:
    if (std::min(event.X, event.Y) < 1) return;
    return Resize(bench, event.X, event.Y);
  default: return;
  }
}

void Tick(View3d &view, double seconds) {
  constexpr double most = 0.5;
  if (!view.Playing || !(seconds > 0)) return;
  SetBurn(view, view.BurnDist + view.Newest.End * std::min(seconds, most) / FullBurn);
  if (view.BurnDist >= view.Newest.End) Pause(view);
}

void TypeBurn(Workbench &bench, const std::string &text) {
  View3d &view = bench.View;
  double value = 0;
  const bool number = NumeralLength(text) == text.size() && NumeralValue(text, value) && value >= 0;
  view.BurnText = text;
  bench.Out[Ctl::Burn_At].Hint = number ? "" : "The burn distance must be a number, 0 or more (mm)";
  if (!number) return;
  Pause(view);
  view.BurnDist = value;
}

void Text(Workbench &bench, const Event &event) {
  View3d &view = bench.View;
  if (event.Target == Ctl::Burn_At) return TypeBurn(bench, event.Text);
  double step = 0;
  if (event.Target != Ctl::Burn_Slider || !NumeralValue(event.Text, step)) return;
  Pause(view);
  bench.Out[Ctl::Burn_At].Hint.clear();
  SetBurn(view, view.Newest.End * step / SliderSteps);
}

void Press(Workbench &bench, const Event &event) {
  View3d &view = bench.View;
  switch (event.Target) {
  case Ctl::View_Front: return See(bench, StandardView::Front);
  case Ctl::View_Side: return See(bench, StandardView::Side);
  case Ctl::View_Top: return See(bench, StandardView::Top);
  case Ctl::View_Iso: return See(bench, StandardView::Iso);
  case Ctl::View_Fit: return FitView3d(bench);
  case Ctl::View_Perspective: view.Eye.Perspective = !view.Eye.Perspective; return;
  case Ctl::Cut_None: return SetCut(view, true, view.Across);
  case Ctl::Cut_Lengthwise: return SetCut(view, false, false);
  case Ctl::Cut_Across: return SetCut(view, false, true);
  case Ctl::Show_Liner: view.Liner = !view.Liner; return;
  case Ctl::Show_Core: view.Core = !view.Core; return;
  case Ctl::Burn_Play: return TogglePlay(view);
  case Ctl::Save_Shot: return SaveShot3d(bench);
  case Ctl::Export_Mesh: return ExportMesh3d(bench);
  case Ctl::Mesh_Part: {
    Control &parts = bench.Out[Ctl::Mesh_Part];
    const auto found = std::find(parts.Item.begin(), parts.Item.end(), event.Text);
    if (found != parts.Item.end()) parts.Index = static_cast<int>(found - parts.Item.begin());
    return;
  }
  default: return;
  }
}
} // namespace

void View3dKey(Workbench &bench, int key, int shift) {
  constexpr int escape = 27, space = 32, end = 35, home = 36, left = 37, up = 38, right = 39, down = 40,
                plus = 187, comma = 188, minus = 189, point = 190, open = 219, close = 221;
  View3d &view = bench.View;
  const double middleX = view.Eye.Width / 2, middleY = view.Eye.Height / 2;
  if (shift & ~1) return;
  if (key >= '1' && key <= '7') return See(bench, static_cast<StandardView>(key - '1'));
  if (key >= left && key <= down) {
    const double across = key == left    ? -1
                          : key == right ? 1
                                         : 0,
                 along = key == up     ? -1
                         : key == down ? 1
                                       : 0;
    const double turn = KeyTurn * view.Eye.Height / 180;
    return shift ? PanBy(view.Eye, -across * KeyPan, -along * KeyPan)
                 : Orbit(view.Eye, across * turn, along * turn);
  }
  const double step = view.Newest.End / KeySteps;
  switch (key) {
  case escape: return CloseView3d(bench);
  case space: return TogglePlay(view);
  case plus: return Zoom(bench, middleX, middleY, KeyZoom);
  case minus: return Zoom(bench, middleX, middleY, 1 / KeyZoom);
  case comma: return Pause(view), SetBurn(view, view.BurnDist - step);
  case point: return Pause(view), SetBurn(view, view.BurnDist + step);
  case home: return Pause(view), SetBurn(view, 0);
  case end: return Pause(view), SetBurn(view, view.Newest.End);
  case 'P': view.Eye.Perspective = !view.Eye.Perspective; return;
  case 'F': return FitView3d(bench);
  case 'L': view.Liner = !view.Liner; return;
  case 'M': view.Core = !view.Core; return;
  case 'C': return view.Whole ? SetCut(view, false, false) : SetCut(view, view.Across, true);
  case open:
  case close: {
    const double way = key == close ? 1 : -1;
    if (shift && !view.Across) view.CutTurn = std::remainder(view.CutTurn + way * 15, 360);
    if (!shift) MoveCut(view, CutPart(view) + way * KeyCut);
    return;
  }
  default: return;
  }
}

bool PressInView3d(Workbench &bench, Ctl target) {
  View3d &view = bench.View;
  if (!view.Open) return false;
  const double x = view.Eye.Width / 2, y = view.Eye.Height / 2;
  switch (target) {
  case Ctl::Zoom_Reset: FitView3d(bench); return true;
  case Ctl::Zoom_x2: Zoom(bench, x, y, 2); return true;
  case Ctl::Zoom_1h: Zoom(bench, x, y, 0.5); return true;
  case Ctl::mnuShot3d: SaveShot3d(bench); return true;
  case Ctl::mnuMesh3d: ExportMesh3d(bench); return true;
  default: return false;
  }
}

void View3dEvent(Workbench &bench, const Event &event) {
  if (!bench.View.Open) return;
  switch (event.What) {
  case Event::Kind::Press:
    if (bench.Out[event.Target].Enabled && event.Button != 2) Press(bench, event);
    return;
  case Event::Kind::Text:
    if (bench.Out[event.Target].Enabled) Text(bench, event);
    return;
  case Event::Kind::Key:
    if (event.Target == Ctl::Burn_At && event.KeyCode == 13) bench.Out.Focus = Ctl::Picture1;
    if (event.Target != Ctl::Burn_At || event.KeyCode == 27) View3dKey(bench, event.KeyCode, event.Shift);
    return;
  case Event::Kind::Tick: return Tick(bench.View, event.Notches);
  default:
    if (event.Target == Ctl::Picture1) Picture(bench, event);
    return;
  }
}
