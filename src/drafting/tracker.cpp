#include "drafting/tracker.h"

#include "base/rounding.h"
#include "drafting/command_table.h"
#include "drafting/point_fields.h"
#include "drafting/point_preview.h"
#include "drafting/pointer_notes.h"
#include "geometry/carrier.h"

#include <cmath>

namespace {
constexpr int ZoomCommand = 80;
constexpr std::uint8_t Dotted = 2;

double CaptureDistance(const Drafting &d) { return std::abs(d.Out.Panel.Height) / 100; }

bool InForce(const Drafting &d) {
  return d.Track.AutoPoint && !d.NoSnap && d.Cmd.RefType == CursorRef && d.Cmd.CmdNo != 0 &&
         d.Cmd.CmdNo != ZoomCommand && !d.Cmd.WindowSelect && !d.Log.On;
}

// Guides 0 and 1 hold X and Y of the last point, 2 and 3 of the end passed over. None beside the very point.
void FindGuides(Drafting &d, Point at) {
  Tracker &t = d.Track;
  const double capture = CaptureDistance(d);
  const auto from = [&](Point p, std::size_t flag) {
    const double dx = std::abs(at.X - p.X), dy = std::abs(at.Y - p.Y);
    if (dx < capture && dy < capture) return;
    if (dx < capture && !t.Guide[0]) {
      t.Guide[flag] = true;
      t.GuideX = p.X;
    }
    if (dy < capture && !t.Guide[1]) {
      t.Guide[flag + 1] = true;
      t.GuideY = p.Y;
    }
  };
  if (d.Cmd.PointCount < 0) return;
  from(LastPoint(d.Cmd), 0);
  if (t.Passed) from(*t.Passed, 2);
}

bool HoldsX(const Tracker &t) { return t.Guide[0] || t.Guide[2]; }
bool HoldsY(const Tracker &t) { return t.Guide[1] || t.Guide[3]; }

// Where the pointer is held; the snap and the guides are left in Track.
Point Hold(Drafting &d, Point pointer) {
  Tracker &t = d.Track;
  const GrainDoc &doc = d.Grain.Doc;
  t.Guide = {};
  const bool typed = (d.Cmd.KeyInX || d.Cmd.KeyInY) && FieldsOf(d) != FieldUse::Value;
  Point at = pointer;
  if (doc.SnapToGrid == 1 && !d.NoSnap && d.Cmd.CmdNo != ZoomCommand && !d.Cmd.WindowSelect) {
    const double spacing = static_cast<double>(doc.GridSpacing);
    at = {GridSnap(at.X, spacing), GridSnap(at.Y, spacing)};
  }
  if (!InForce(d)) {
    t.Target = {};
  } else {
    if (d.Cmd.PointCount < 0) t.Passed.reset();
    const double capture = CaptureDistance(d), reach = static_cast<double>(doc.GrainRadius);
    Point snapped = pointer;
    if (!typed) Find_End_Or_Center(d.Grain.Table, reach, capture, false, snapped, t.Target);
    if (typed) t.Target = {};
    if (t.Target.SnapActive) {
      t.Passed = snapped;
    } else {
      FindGuides(d, pointer);
      if (HoldsX(t)) at.X = t.GuideX;
      if (HoldsY(t)) at.Y = t.GuideY;
      if (!typed && !HoldsX(t) && !HoldsY(t))
        Find_End_Or_Center(d.Grain.Table, reach, capture, true, snapped, t.Target);
    }
    if (t.Target.SnapActive) at = snapped;
  }
  if (typed || d.Cmd.RefType == KeyInRef) at = FieldPoint(d, at);
  if (d.Log.On) at = NarrowPoint(at);
  d.Cmd.TrackX = at.X;
  d.Cmd.TrackY = at.Y;
  return at;
}

void ShowGuide(Drafting &d, Point from, Point to) {
  DrawItem line;
  line.Role = Ink::Guide;
  line.Style = Dotted;
  line.At = {from.X, from.Y, to.X, to.Y};
  d.Out.Panel.Overlay.push_back(line);
}
} // namespace

Point NarrowPoint(Point p) {
  return {static_cast<double>(NarrowFloat(p.X)), static_cast<double>(NarrowFloat(p.Y))};
}

Point TrackPointer(Drafting &d, Point pointer) {
  const Point at = Hold(d, pointer);
  const Tracker &t = d.Track;
  if (d.Cmd.CrossingFirst.Found) d.Out.Panel.Overlay.push_back(RowItem(d.Cmd.CrossingFirst.Row, Ink::Picked));
  for (std::size_t i = 0; i < t.Guide.size(); ++i)
    if (t.Guide[i]) ShowGuide(d, i < 2 ? LastPoint(d.Cmd) : *t.Passed, at);
  ShowSnap(d, at);
  return at;
}

Point HeldPosition(Drafting &d, Point clicked) { return Hold(d, clicked); }
