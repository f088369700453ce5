#include "geometry/find_entity.h"

#include <algorithm>
#include <cmath>

namespace {

double Distance(Point a, Point b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

// At one pick radius; the foot goes to foundAt on a hit.
bool HitsLine(const Entity &line, Point at, double radius, Point &foundAt) {
  const Roots chord = LineCircleRoots(line.Slope, line.Intercept, at, radius, 0, Discriminant::Binary);
  if (chord.Case == RootCase::None) return false;
  const auto insideX = [&](Point p) { return (line.X1 - p.X) * (p.X - line.X2) >= 0; };
  const auto insideY = [&](Point p) { return (line.Y1 - p.Y) * (p.Y - line.Y2) > 0; };
  const bool hit = std::abs(line.Slope) >= VerticalSlope ? insideY(chord.First) || insideY(chord.Second)
                                                         : insideX(chord.First) || insideX(chord.Second);
  if (hit) foundAt = {(chord.First.X + chord.Second.X) / 2, (chord.First.Y + chord.Second.Y) / 2};
  return hit;
}

enum class RoundHit { Miss, Hit, NoAngle };

RoundHit HitsRound(const Entity &e, Point at, double radius, double grainRadius, bool snapped,
                   double &angle) {
  const Point centre{e.CenterX, e.CenterY};
  const double distance = Distance(at, centre);
  const bool onCentre = snapped && distance < grainRadius / 100;
  if (!(e.Radius - radius < distance && distance < e.Radius + radius))
    return onCentre ? RoundHit::Hit : RoundHit::Miss;
  if (distance == 0) return onCentre ? RoundHit::Hit : RoundHit::Miss;
  const double found = AngleAbout(at, centre, distance);
  if (found == NoAngle) return RoundHit::NoAngle;
  if (e.EntType == ArcType && !onCentre && !AngleInArc(found, e, ArcEnds::Closed) &&
      Distance(at, {e.X1, e.Y1}) >= radius && Distance(at, {e.X2, e.Y2}) >= radius)
    return RoundHit::Miss;
  angle = found;
  return RoundHit::Hit;
}

bool IsGrainCircle(const Entity &e, double grainRadius) {
  return e.EntType == CircleType && e.CenterX == 0 && e.CenterY == 0 && e.Radius == grainRadius;
}

} // namespace

Pick FindEntity(const EntityTable &table, Point position, double grainRadius, const PickScope &scope) {
  Pick pick;
  int first = std::max(scope.FirstRow, 0), last = std::min(scope.LastRow, table.EntCount);
  if (scope.ForcedIndex > 0) first = last = scope.ForcedIndex - 1;
  if (scope.SnapActive) first = last = scope.SnapEntity;
  if (!(grainRadius > 0) || first < 0 || last > table.EntCount) return pick;

  for (int step = 0; step < 100; ++step) {
    const double radius = grainRadius / (scope.Outward ? 1000 - 10 * step : 10 + 10 * step);
    for (int i = first; i <= last; ++i) {
      const Entity &e = RowAt(table, i);
      if ((e.EntType & scope.TypeMask) == 0 || (e.Selected && !scope.AllowSelected && !scope.SnapActive))
        continue;
      RoundHit hit = RoundHit::Miss;
      if (e.EntType == LineType) {
        Point foot;
        if (HitsLine(e, position, radius, foot)) {
          hit = RoundHit::Hit;
          pick.PickX = foot.X;
          pick.PickY = foot.Y;
        }
      } else {
        hit = HitsRound(e, position, radius, grainRadius, scope.SnapActive, pick.PickAngle);
      }
      if (hit == RoundHit::NoAngle) {
        pick = {};
        pick.GeomAbort = true;
        return pick;
      }
      if (hit == RoundHit::Hit) {
        pick.Found = true;
        pick.Index = i;
      }
    }
    if (scope.Outward && pick.Found) break;
  }
  return pick;
}

void Find_End_Or_Center(const EntityTable &table, double grainRadius, double snapRadius, bool edges,
                        Point &position, Snap &snap) {
  snap = {false, -1, snap.SnapKind == EdgeSnap ? EdgeSnap : NoSnap};
  double best = grainRadius;
  Point found = position;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    int kind = FirstEnd;
    for (const Point p : {Point{e.X1, e.Y1}, Point{e.X2, e.Y2}, Point{e.CenterX, e.CenterY}}) {
      if (const double distance = Distance(position, p); distance < snapRadius && distance < best) {
        best = distance;
        found = p;
        snap = {true, i, kind};
      }
      ++kind;
    }
  }
  if (snap.SnapActive) position = found;
  if (snap.SnapActive || !edges) return;

  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    if (e.EntType == LineType) continue;
    const Point centre{e.CenterX, e.CenterY};
    const double distance = Distance(position, centre), off = std::abs(e.Radius - distance);
    if (!(off < snapRadius && off < best) || distance == 0) continue;
    if (e.EntType == ArcType) {
      const double angle = AngleAbout(position, centre, distance);
      if (angle == NoAngle) return;
      if (!AngleInArc(angle, e, ArcEnds::Closed)) continue;
    }
    best = off;
    snap = {true, i, EdgeSnap};
    position = {centre.X + (position.X - centre.X) * e.Radius / distance,
                centre.Y + (position.Y - centre.Y) * e.Radius / distance};
  }
}

void AddGrainCircle(EntityTable &table, double grainRadius) {
  if (table.EntCount >= 0 && IsGrainCircle(RowAt(table, table.EntCount), grainRadius)) return;
  Entity circle = MakeCircle(0, 0, grainRadius);
  circle.EndAngle = Pi + Pi;
  circle.X1 = circle.X2 = grainRadius;
  AppendRow(table, circle);
}

void RemoveGrainCircle(EntityTable &table, double grainRadius) {
  if (table.EntCount >= 0 && IsGrainCircle(RowAt(table, table.EntCount), grainRadius))
    DeleteRow(table, table.EntCount);
}
