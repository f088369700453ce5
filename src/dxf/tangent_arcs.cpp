#include "dxf/tangent_arcs.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
double Cross(Point a, Point b) { return a.X * b.Y - a.Y * b.X; }
double Dot(Point a, Point b) { return a.X * b.X + a.Y * b.Y; }
Point Less(Point a, Point b) { return {a.X - b.X, a.Y - b.Y}; }
Point Plus(Point a, Point b, double times) { return {a.X + b.X * times, a.Y + b.Y * times}; }
Point Unit(Point a) {
  const double length = std::hypot(a.X, a.Y);
  return length > 0 ? Point{a.X / length, a.Y / length} : Point{1, 0};
}

struct ArcPair {
  Entity One, Other;
};

// Two arcs from p along u to q along v that meet in one tangent, both at the same length of their tangents.
bool PairBetween(Point p, Point u, Point q, Point v, ArcPair &pair) {
  const Point chord = Less(q, p);
  const double along = Dot(chord, {u.X + v.X, u.Y + v.Y}), bend = 2 * (1 - Dot(u, v)),
               square = Dot(chord, chord);
  const double divisor = along + std::sqrt(along * along + bend * square);
  if (!(square > 0) || !(divisor > 0)) return false;
  const double reach = square / divisor;
  const Point a = Plus(p, u, reach), b = Plus(q, v, -reach), joint{(a.X + b.X) / 2, (a.Y + b.Y) / 2};
  pair.One = ArcAlong(p, u, joint);
  pair.Other = ArcAlong(joint, Unit(Less(b, a)), q);
  return true;
}

double AwayFrom(const Entity &row, Point p) {
  const Point ends[] = {{row.X1, row.Y1}, {row.X2, row.Y2}};
  if (row.EntType == LineType) {
    const Point along = Less(ends[1], ends[0]), to = Less(p, ends[0]);
    const double square = Dot(along, along),
                 part = square > 0 ? std::clamp(Dot(to, along) / square, 0.0, 1.0) : 0;
    return std::hypot(to.X - part * along.X, to.Y - part * along.Y);
  }
  const Point to = Less(p, {row.CenterX, row.CenterY});
  double angle = std::atan2(to.Y, to.X) - row.StartAngle;
  angle -= TwoPi * std::floor(angle / TwoPi);
  if (angle <= ArcSweep(row)) return std::abs(std::hypot(to.X, to.Y) - row.Radius);
  return std::min(std::hypot(p.X - ends[0].X, p.Y - ends[0].Y), std::hypot(p.X - ends[1].X, p.Y - ends[1].Y));
}

constexpr int Samples = 16;

bool Fits(const Curve &curve, double from, double to, double tolerance, ArcPair &pair) {
  constexpr double mostTurn = 1.8; // radians in one pair; more could hide a loop between two samples
  std::array<CurvePoint, Samples + 1> seen;
  double turn = 0;
  for (int i = 0; i <= Samples; ++i) {
    CurvePoint &here = seen[static_cast<std::size_t>(i)];
    here = curve(from + (to - from) * i / Samples);
    here.Along = Unit(here.Along);
    if (i == 0) continue;
    const Point before = seen[static_cast<std::size_t>(i - 1)].Along;
    turn += std::abs(std::atan2(Cross(before, here.Along), Dot(before, here.Along)));
  }
  const CurvePoint &p = seen.front(), &q = seen.back();
  if (!(turn <= mostTurn) || !PairBetween(p.At, p.Along, q.At, q.Along, pair)) return false;
  return std::all_of(seen.begin(), seen.end(), [&](const CurvePoint &c) {
    return std::min(AwayFrom(pair.One, c.At), AwayFrom(pair.Other, c.At)) <=
           0.9 * tolerance; // room between samples
  });
}

bool SameCircle(const Entity &a, const Entity &b) {
  const double near = 1e-9 * a.Radius;
  return a.EntType == ArcType && b.EntType == ArcType && std::abs(a.Radius - b.Radius) <= near &&
         std::hypot(a.CenterX - b.CenterX, a.CenterY - b.CenterY) <= near;
}

void Append(std::vector<Entity> &rows, const ArcPair &pair) {
  if (pair.One.EntType == LineType && pair.Other.EntType == LineType) {
    rows.push_back(MakeLine(pair.One.X1, pair.One.Y1, pair.Other.X2, pair.Other.Y2));
    return;
  }
  rows.push_back(pair.One);
  if (!SameCircle(pair.One, pair.Other)) return rows.push_back(pair.Other);
  Entity &both = rows.back();
  const Entity &more = pair.Other;
  const bool forward =
      std::hypot(both.X2 - more.X1, both.Y2 - more.Y1) < std::hypot(both.X1 - more.X2, both.Y1 - more.Y2);
  both = forward ? MakeArc(both.CenterX, both.CenterY, both.Radius, both.StartAngle, more.EndAngle)
                 : MakeArc(both.CenterX, both.CenterY, both.Radius, more.StartAngle, both.EndAngle);
}
} // namespace

Entity ArcAlong(Point from, Point direction, Point to) {
  constexpr double straight = 1e-6; // sine of the angle between direction and chord
  const Point chord = Less(to, from);
  const double cross = Cross(direction, chord), length = std::hypot(chord.X, chord.Y);
  if (!(std::abs(cross) > straight * length)) return MakeLine(from.X, from.Y, to.X, to.Y);
  const double radius = length * length / (2 * cross); // negative: clockwise
  const Point centre{from.X - radius * direction.Y, from.Y + radius * direction.X};
  const auto bearing = [&](Point p) {
    const double angle = std::atan2(p.Y - centre.Y, p.X - centre.X);
    return angle < 0 ? angle + TwoPi : angle;
  };
  const double start = bearing(cross > 0 ? from : to), end = bearing(cross > 0 ? to : from);
  return MakeArc(centre.X, centre.Y, std::abs(radius), start, end);
}

void AppendTangentArcs(const Curve &curve, double from, double to, double tolerance, std::size_t most,
                       std::vector<Entity> &rows) {
  constexpr double least = 1e-7; // of the whole length: what still does not fit is a corner
  const double shortest = least * (to - from);
  double at = from, tried = to - from;
  while (at < to && rows.size() < most) {
    ArcPair pair, longer;
    double step = std::min(tried, to - at), refused = to - at + shortest;
    while (step > shortest && !Fits(curve, at, at + step, tolerance, pair)) {
      refused = step;
      step /= 2;
    }
    if (!(step > shortest)) {
      const double next = std::min(at + shortest, to);
      const Point a = curve(at).At, b = curve(next).At;
      rows.push_back(MakeLine(a.X, a.Y, b.X, b.Y));
      at = next;
      tried = 64 * shortest;
      continue;
    }
    for (int i = 0; i < 30 && step < to - at && refused > 1.02 * step; ++i) {
      const double grown = std::min({2 * step, (step + refused) / 2, to - at});
      if (Fits(curve, at, at + grown, tolerance, longer)) {
        step = grown;
        pair = longer;
      } else {
        refused = grown;
      }
    }
    Append(rows, pair);
    at = to - at - step <= shortest ? to : at + step;
    tried = 2 * step;
  }
}
