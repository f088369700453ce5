#include "shell/diagnosis_view.h"

#include "base/number_text.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/point_preview.h"
#include "drafting/view.h"
#include "geometry/row_measure.h"
#include "shell/design_view.h"
#include "shell/workbench.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace {
constexpr double RingPixels = 7, CrossPixels = 5;
constexpr std::size_t MostMarks = 300;
constexpr double LeastPart = 0.01; // of the grain's diameter: a place of no size is shown as large as this
constexpr double PanelPart = 0.1;  // of the panel that a place fills

DrawItem PlaceItem(DrawItem::Kind what, Point at, double pixels) {
  DrawItem item;
  item.What = what;
  item.Role = Ink::Fault;
  item.At = {at.X, at.Y, pixels};
  return item;
}

std::vector<DrawItem> FaultItems(const Diagnosis &found, const EntityTable &table) {
  std::vector<DrawItem> items;
  for (const auto *points : {&found.OpenEnds, &found.Branches})
    for (const Point at : *points) items.push_back(PlaceItem(DrawItem::Kind::Circle, at, RingPixels));
  for (const Point at : found.Crossings) items.push_back(PlaceItem(DrawItem::Kind::Mark, at, CrossPixels));
  for (const int i : found.Extra.NoLength) {
    const Extent x = ExtentOf(RowAt(table, i));
    items.push_back(
        PlaceItem(DrawItem::Kind::Mark, {(x.Left + x.Right) / 2, (x.Low + x.High) / 2}, CrossPixels));
  }
  for (const int i : found.Extra.Duplicates) {
    items.push_back(RowItem(RowAt(table, i), Ink::Fault));
    items.back().Style = 1;
  }
  if (items.size() > MostMarks) items.resize(MostMarks);
  return items;
}

bool OfPixels(const DrawItem &item) {
  return item.What == DrawItem::Kind::Mark || (item.What == DrawItem::Kind::Circle && item.Style == 0);
}

Extent Around(Point a, Point b) {
  return {std::min(a.X, b.X), std::max(a.X, b.X), std::min(a.Y, b.Y), std::max(a.Y, b.Y)};
}

// The places in the order in which they are shown.
std::vector<Extent> Places(const Diagnosis &found, const EntityTable &table) {
  std::vector<Extent> places;
  for (const Gap &gap : found.Gaps) places.push_back(Around(gap.One, gap.Other));
  for (const Point at : found.OpenEnds) {
    const bool paired = std::any_of(found.Gaps.begin(), found.Gaps.end(), [&](const Gap &g) {
      return (g.One.X == at.X && g.One.Y == at.Y) || (g.Other.X == at.X && g.Other.Y == at.Y);
    });
    if (!paired) places.push_back(Around(at, at));
  }
  for (const auto *rows : {&found.Extra.Duplicates, &found.Extra.NoLength})
    for (const int i : *rows) places.push_back(ExtentOf(RowAt(table, i)));
  for (const auto *points : {&found.Crossings, &found.Branches})
    for (const Point at : *points) places.push_back(Around(at, at));
  return places;
}

DiagnosisView::State Now(const Workbench &bench) {
  const Design &grain = bench.Grain;
  return {bench.Draft.Changes, grain.Table.EntCount, grain.Doc.JoinTolerance, grain.Doc.GrainRadius};
}

// A redraw takes all items or none.
bool StandInPanel(const Workbench &bench) {
  const std::vector<DrawItem> &drawn = bench.Amiss.Drawn, &item = bench.Out.Panel.Item;
  return drawn.empty() ? bench.Amiss.Shown.empty()
                       : std::find(item.rbegin(), item.rend(), drawn.back()) != item.rend();
}

// Marks on the drawing: all while idle, in a running tool those that stood there and still hold.
void ChooseMarks(Workbench &bench) {
  DiagnosisView &view = bench.Amiss;
  std::vector<DrawItem> shown = view.Fault;
  if (bench.Draft.Cmd.CmdNo != 0)
    std::erase_if(shown, [&](const DrawItem &item) {
      return std::find(view.Shown.begin(), view.Shown.end(), item) == view.Shown.end();
    });
  if (shown == view.Shown && StandInPanel(bench)) return;
  view.Shown = std::move(shown);
  DrawFaults(bench);
}
} // namespace

// What else stands there, such as the place where a run was refused, stays.
void DrawFaults(Workbench &bench) {
  DrawSurface &panel = bench.Out.Panel;
  std::vector<DrawItem> &drawn = bench.Amiss.Drawn;
  if (StandInPanel(bench))
    std::erase_if(panel.Item, [&](const DrawItem &item) {
      return item.Role == Ink::Fault && std::find(drawn.begin(), drawn.end(), item) != drawn.end();
    });
  drawn.clear();
  if (bench.Sim.ResultMode || bench.Grain.MacroMode == 2) return;
  const double pixel = -panel.Height / std::max(panel.PixelHeight, 1.0);
  for (DrawItem item : bench.Amiss.Shown) {
    if (OfPixels(item)) item.At[2] *= pixel;
    drawn.push_back(item);
    panel.Item.push_back(std::move(item));
  }
}

namespace {
struct Examined {
  DiagnosisView::State Of;
  EntityTable Table;
  GrainDoc Doc;
  Diagnosis Found;
  Solution Closing;
  std::vector<DrawItem> Fault;
};

void Examine(Examined &e) {
  e.Found = Diagnose(e.Table, e.Doc);
  e.Closing = CloseGaps(e.Table, e.Doc.JoinTolerance);
  e.Fault = FaultItems(e.Found, e.Table);
}

void ShowDiagnosis(Workbench &bench) {
  const DiagnosisView &view = bench.Amiss;
  const Design &grain = bench.Grain;
  ChooseMarks(bench);
  Screen &out = bench.Out;
  const bool drawn = !bench.Sim.ResultMode && grain.Table.EntCount >= 0;
  for (const Ctl c : {Ctl::Diagnosis_Text, Ctl::Diagnosis_Next, Ctl::Close_Gaps}) out[c].Visible = drawn;
  out[Ctl::Diagnosis_Text].Text = view.Found.Words;
  out[Ctl::Diagnosis_Next].Enabled = !view.Fault.empty();
  out[Ctl::Diagnosis_Next].Hint = view.Fault.empty() ? "Nothing is marked on the drawing"
                                                     : "Show Next: zooms to the next place that is marked";
  const bool closes = !view.Closing.Changed.empty() || !view.Closing.Deleted.empty();
  const std::string within = PlainText(grain.Doc.JoinTolerance) + " mm";
  out[Ctl::Close_Gaps].Enabled = closes;
  out[Ctl::Close_Gaps].Hint =
      closes ? "Close gaps: joins ends within " + within + " of each other and deletes what is there twice"
             : "No open ends lie within " + within + " of each other; Options has the Join Tolerance";
}

void Take(Workbench &bench, Examined &e) {
  DiagnosisView &view = bench.Amiss;
  if (!(e.Of == Now(bench))) return; // the drawing has gone on
  view.Of = e.Of;
  view.Found = std::move(e.Found);
  view.Closing = std::move(e.Closing);
  view.Fault = std::move(e.Fault);
  view.Next = 0;
  ShowDiagnosis(bench);
}
} // namespace

void RefreshDiagnosis(Workbench &bench) {
  DiagnosisView &view = bench.Amiss;
  const DiagnosisView::State now = Now(bench);
  if (view.Of == now) return ShowDiagnosis(bench);
  if (view.Asked == now) return; // under way
  view.Asked = now;
  const auto e = std::make_shared<Examined>(Examined{now, bench.Grain.Table, bench.Grain.Doc, {}, {}, {}});
  bench.Out.StartDiagnosis([e] { Examine(*e); }, [&bench, e] { Take(bench, *e); });
}

void ShowNextFault(Workbench &bench) {
  DiagnosisView &view = bench.Amiss;
  if (!(view.Of == Now(bench))) return; // the places of the drawing at hand are not known yet
  const std::vector<Extent> places = Places(view.Found, bench.Grain.Table);
  if (places.empty()) return;
  const Extent &place = places[view.Next++ % places.size()];
  const double diameter = bench.Grain.Doc.GrainDiam;
  const double size = std::max(place.Right - place.Left, place.High - place.Low);
  // A place that is large itself is shown with the grain around it.
  const double window = size > 0 ? std::max(std::min(size / PanelPart, 1.04 * diameter), 1.5 * size)
                                 : diameter * LeastPart / PanelPart;
  const Point centre{(place.Left + place.Right) / 2, (place.Low + place.High) / 2};
  DrawSurface &panel = bench.Out.Panel;
  Pan(panel, centre.X - (panel.Left + panel.Width / 2), centre.Y - (panel.Top + panel.Height / 2));
  ZoomAbout(panel, centre, std::min(std::abs(panel.Width), std::abs(panel.Height)) / window);
  RedrawDrawing(bench);
}

void ApplyCloseGaps(Workbench &bench) {
  LeaveCommand(bench.Draft);
  Apply(bench.Draft, CloseGaps(bench.Grain.Table, bench.Grain.Doc.JoinTolerance), "Close gaps");
}
