#include "burnback/run_sim.h"

#include "base/number_text.h"
#include "drafting/view.h"
#include "platform/contour_scale.h"
#include "shell/grain_file.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::uint32_t Red = 255, Blue = 255 << 16;
constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}
constexpr std::uint32_t CoreFill = Rgb(255, 200, 180), EndsFill = Rgb(180, 235, 235),
                        KnFill = Rgb(200, 255, 180);

void DrawOutline(DrawSurface &panel, const SimStepTable &steps, int step, Ink role, std::uint32_t colour) {
  for (std::size_t i = steps.Start[step - 1]; i < steps.Start[step]; ++i)
    Draw(panel, OutlineItem(steps.Row[i], role, colour));
}

void MarkCircle(DrawSurface &panel, double x, double y, double radius) {
  DrawItem mark;
  mark.What = DrawItem::Kind::Circle;
  mark.Role = Ink::Fault;
  mark.Colour = Red;
  mark.At = {x, y, radius};
  Draw(panel, mark);
}

// The places of a refusal: the open end (or crossing) large, the crossings of the failing scan line by their
// order.
void MarkRefusal(DrawSurface &panel, const BurnRefusal &refusal, double grainRadius) {
  for (std::size_t i = 0; i < refusal.MarkX.size(); ++i)
    MarkCircle(panel, refusal.MarkX[i], refusal.MarkY[i], 0.05 * static_cast<double>(i + 1));
  if (refusal.HasPlace) MarkCircle(panel, refusal.X, refusal.Y, grainRadius / 50);
}

Icon IconOf(const BurnRefusal &refusal) {
  if (refusal.Open || refusal.BadUse) return Icon::Exclamation;
  return refusal.HasPlace ? Icon::None : Icon::Stop;
}

void FillCharts(Screen &screen, const BurnRun &run) {
  Chart areas, kn;
  areas.Title = "Burn Area";
  areas.Stacked = true;
  areas.XTitle = kn.XTitle = "Burn distance, mm";
  areas.YTitle = "Area, mm²";
  kn.Title = kn.YTitle = "Kn";
  areas.Series = {{"Core", CoreFill, {}}, {"Ends", EndsFill, {}}};
  kn.Series = {{"Kn", KnFill, {}}};
  for (const ResultRow &row : run.Result) {
    areas.X.push_back(row.BurnDist);
    areas.Series[0].Value.push_back(row.CoreArea);
    areas.Series[1].Value.push_back(row.EndsArea);
    kn.Series[0].Value.push_back(row.Kn);
  }
  kn.X = areas.X;
  if (!run.HasThroat) kn.Series.clear();
  screen.MyChart1 = areas;
  screen.MyChart2 = kn;
}

void FillReport(Screen &screen, const BurnRun &run) {
  const ReportText text = FormatReport(run);
  screen[Ctl::Burn_Area].Text = text.Burn_Area;
  screen[Ctl::Kn_Ratio].Text = text.Kn_Ratio;
  screen[Ctl::Ap_At_Ratio].Text = text.Ap_At_Ratio;
  screen[Ctl::Volume_Loadings].Text = text.Volume_Loadings;
  screen[Ctl::Sliver_Fraction].Text = text.Sliver_Fraction;
  screen[Ctl::Neutrallity].Text = text.Neutrallity;
}

void Restart(Screen &screen, SimulationView &view) {
  view.ReplayStep = 0;
  screen.MyChart1.CursorStep = screen.MyChart2.CursorStep = 0;
  screen.MyChart1.CursorText.clear();
  screen.MyChart2.CursorText.clear();
  screen[Ctl::MyChart1_Frame].Text = RowOf(Ctl::MyChart1_Frame).Text;
  screen[Ctl::MyChart2_Frame].Text = RowOf(Ctl::MyChart2_Frame).Text;
}

} // namespace

DrawItem OutlineItem(const OutlineRow &row, Ink role, std::uint32_t colour) {
  DrawItem item;
  item.Role = role;
  item.Colour = colour;
  if (row.EntType == LineType) {
    item.At = {row.X1, row.Y1, row.X2, row.Y2};
  } else {
    item.What = row.EntType == CircleType ? DrawItem::Kind::Circle : DrawItem::Kind::Arc;
    item.At = {row.CenterX, row.CenterY, row.Radius, row.StartAngle, row.EndAngle};
  }
  return item;
}

std::string RefusalWords(const BurnRefusal &refusal) {
  if (!refusal.HasPlace) return refusal.Text;
  return refusal.Text + " (at x = " + FormatMask(refusal.X, "0.0000") +
         ", y = " + FormatMask(refusal.Y, "0.0000") + " mm)";
}

void RedrawResults(Design &design, Screen &screen, SimulationView &view) {
  DrawSurface &panel = screen.Panel;
  Redraw(panel, design);
  const BurnRun &run = view.Run;
  const int every = static_cast<int>(std::lround(std::clamp(design.Doc.SimIncrementDisplay, 1.0, 1e6)));
  panel.ContourFrom = 0;
  panel.ContourTo = run.LastLiveDist;
  for (int step = every; step <= run.StepCount; step += every)
    DrawOutline(panel, run.Steps, step, Ink::Contour, Viridis(run.StepDist[step - 1] / run.LastLiveDist));
  for (const WallMark &mark : run.WallMarks)
    if (mark.Step % every == 0) {
      DrawItem circle;
      circle.What = DrawItem::Kind::Circle;
      circle.Colour = mark.Second ? Blue : Red;
      circle.At = {mark.X, mark.Y, 0.1};
      Draw(panel, circle);
    }
  view.SteadyItems = panel.Item.size();
  if (view.ReplayStep > 0) DrawOutline(panel, run.Steps, view.ReplayStep, Ink::Picked, Blue);
}

void RunSim2(Design &design, Screen &screen, const SimulationPlace &place, SimulationView &view) {
  const auto tell = [&](const std::string &text, Icon icon) {
    screen.Ask({text, screen[Ctl::frmMain].Text, Buttons::Ok, icon});
  };
  if (design.Table.EntCount < 0) return tell("Can't Simulate End Burning Geometries", Icon::Stop);
  if (design.Table.EntCount == 0 && design.Table.Row[0].EntType == CircleType) {
    design.Table.Row[0].StartAngle = 0;
    design.Table.Row[0].EndAngle = TwoPi;
  }
  if (!place.TempFile.empty())
    if (const std::string trouble = WriteWorkFile(place.TempFile, design); !trouble.empty())
      return tell(trouble, Icon::Exclamation);

  BurnOptions options;
  options.WorkFolder = design.AppDir;
  options.KnBatch = place.KnBatch;
  options.DebugMode = design.DebugMode;
  options.Progress = [&](double part) { return screen.Progress(part); };
  screen[Ctl::SimMsg].Visible = true;
  BurnRefusal refusal;
  const bool burnt = BurnDesign(design, options, view.Run, refusal);
  screen[Ctl::SimMsg].Visible = false;
  if (!burnt) {
    Redraw(screen.Panel, design);
    if (refusal.Stopped) return;
    MarkRefusal(screen.Panel, refusal, design.Doc.GrainRadius);
    return tell(refusal.Text, IconOf(refusal));
  }
  if (!view.Run.Notice.empty()) tell(view.Run.Notice, Icon::Stop);
  view.ResultMode = true;
  Restart(screen, view);
  FillCharts(screen, view.Run);
  FillReport(screen, view.Run);
  screen[Ctl::UserPrompt].Text = "Run pointer over Area Chart to illustrate burn pattern";
  screen[Ctl::UserPrompt].Visible = true;
  RedrawResults(design, screen, view);
}

void ReplayAt(Screen &screen, SimulationView &view, double part) {
  if (!view.ResultMode || view.Run.StepCount == 0) return;
  const BurnRun &run = view.Run;
  const int reached = std::max(1, std::min<int>(run.StepCount, run.RowsReached));
  const int step = std::clamp(static_cast<int>(std::lround(reached * part)), 1, reached);
  if (step == view.ReplayStep) return;
  view.ReplayStep = step;
  screen.Panel.Item.resize(view.SteadyItems);
  DrawOutline(screen.Panel, run.Steps, step, Ink::Picked, Blue);
  screen[Ctl::MyChart1_Frame].Text = "BDist:" + FormatMask(run.LastLiveDist * step / run.StepCount, "0.0");
  screen.MyChart1.CursorStep = screen.MyChart2.CursorStep = step;
  if (run.RowsReached == 0) return;
  const ResultRow &row = run.Result[step - 1];
  const std::string at = FormatMask(row.BurnDist, "0.00") + " mm";
  screen.MyChart1.CursorText = at + "   core " + FormatMask(row.CoreArea, "##,##0") + "   ends " +
                               FormatMask(row.EndsArea, "##,##0") + " mm²";
  screen.MyChart2.CursorText = at + "   Kn " + FormatMask(row.Kn, "0.0");
}

void LeaveResults(Design &design, Screen &screen, SimulationView &view) {
  if (!view.ResultMode) return;
  view.ResultMode = false;
  view.Run.Steps = {};
  Restart(screen, view);
  screen.Panel.ContourFrom = screen.Panel.ContourTo = 0;
  screen[Ctl::UserPrompt].Visible = false;
  Redraw(screen.Panel, design);
}
