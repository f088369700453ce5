#include "geometry/find_entity.h"

#include <algorithm>
#include <cmath>

namespace {

double Distance(Point a, Point b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

constexpr int Rounds = 100;
double PickRadius(double grainRadius, int round) { return grainRadius / (10 + 10 * round); }

// The last round whose pick radius reaches the distance; below 0 when none does.
int RoundOf(double distance, double grainRadius) {
  const double divisor = std::min(grainRadius / distance, 1000.0);
  return divisor >= 1 ? static_cast<int>(divisor / 10) - 1 : -2;
}

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

double Beyond(double value, double one, double other) { // outside the range of the two
  return std::max({std::min(one, other) - value, value - std::max(one, other), 0.0});
}

// The square of the distance from the line between its ends, by its slope and intercept.
double SquareOff(const Entity &line, Point at) {
  const double m = line.Slope, run2 = 1 + m * m;
  if (std::abs(m) < 1) {
    const double up = at.Y - (m * at.X + line.Intercept);
    const double past = Beyond(at.X + up * m / run2, line.X1, line.X2);
    return up * up / run2 + past * past * run2;
  }
  const double over = at.X - (at.Y - line.Intercept) / m;
  const double past = std::abs(m) >= VerticalSlope
                          ? Beyond(at.Y + over * m / run2, line.Y1, line.Y2) / std::abs(m)
                          : Beyond(at.X - over * m * m / run2, line.X1, line.X2);
  return (over * m) * (over * m) / run2 + past * past * run2;
}

// The tightest round, not before `least`, that hits the line; -1 for none. The distance tells the round,
// rounding apart.
int LineRound(const Entity &line, Point at, double grainRadius, int least, Point &foot) {
  const double widest = PickRadius(grainRadius, least) * 1.5;
  const double off2 = SquareOff(line, at);
  if (!(off2 <= widest * widest)) return -1;
  const int near = RoundOf(std::sqrt(off2), grainRadius);
  for (int round = std::min(near + 1, Rounds - 1); round >= std::max(near - 1, least); --round)
    if (HitsLine(line, at, PickRadius(grainRadius, round), foot)) return round;
  return -1;
}

// The same for a circle or an arc.
int RoundRound(const Entity &e, Point at, double grainRadius, int least, bool snapped, double &angle) {
  const double distance = Distance(at, {e.CenterX, e.CenterY});
  const bool onCentre = snapped && distance < grainRadius / 100;
  double off = std::abs(distance - e.Radius);
  if (!onCentre && (distance == 0 || !(off <= PickRadius(grainRadius, least) * 1.5))) return -1;
  angle = distance == 0 ? 0 : AngleAbout(at, {e.CenterX, e.CenterY}, distance);
  if (onCentre) return Rounds - 1;
  double toEnd = 0;
  if (e.EntType == ArcType && !AngleInArc(angle, e, ArcEnds::Closed))
    toEnd = std::min(Distance(at, {e.X1, e.Y1}), Distance(at, {e.X2, e.Y2}));
  off = std::max(off, toEnd);
  const int near = RoundOf(off, grainRadius);
  for (int round = std::min(near + 1, Rounds - 1); round >= std::max(near - 1, least); --round) {
    const double radius = PickRadius(grainRadius, round);
    if (e.Radius - radius < distance && distance < e.Radius + radius && toEnd < radius) return round;
  }
  return -1;
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

  int tightest = 0;
  for (int i = first; i <= last; ++i) {
    const Entity &e = RowAt(table, i);
    if ((e.EntType & scope.TypeMask) == 0 || (e.Selected && !scope.AllowSelected && !scope.SnapActive))
      continue;
    Point foot;
    double angle = 0;
    const int round = e.EntType == LineType
                          ? LineRound(e, position, grainRadius, tightest, foot)
                          : RoundRound(e, position, grainRadius, tightest, scope.SnapActive, angle);
    if (round < tightest) continue;
    if (angle == NoAngle) {
      pick = {};
      pick.GeomAbort = true;
      return pick;
    }
    tightest = round;
    pick = {true, i, foot.X, foot.Y, angle};
  }
  return pick;
}

std::array<Point, 2> EndsOf(const Entity &e) {
  if (e.EntType == LineType) return {Point{e.X1, e.Y1}, Point{e.X2, e.Y2}};
  const Point zero{e.CenterX + e.Radius, e.CenterY};
  if (e.EntType == CircleType) return {zero, zero};
  const auto at = [&e](double angle) {
    return Point{e.CenterX + std::cos(angle) * e.Radius, e.CenterY + std::sin(angle) * e.Radius};
  };
  return {at(e.StartAngle), at(e.EndAngle)};
}

void Find_End_Or_Center(const EntityTable &table, double grainRadius, double snapRadius, bool edges,
                        Point &position, Snap &snap) {
  snap = {false, -1, snap.SnapKind == EdgeSnap ? EdgeSnap : NoSnap};
  double best = grainRadius;
  Point found = position;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    const Point centre{e.CenterX, e.CenterY};
    const bool endsNear =
        e.EntType == LineType || std::abs(Distance(position, centre) - e.Radius) < 2 * snapRadius;
    const auto ends = endsNear ? EndsOf(e) : std::array<Point, 2>{centre, centre};
    int kind = endsNear ? FirstEnd : CentreSnap;
    for (const Point p : {ends[0], ends[1], centre}) {
      if (kind > CentreSnap) break;
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
