#include "geometry/verify.h"

#include "base/fault.h"
#include "base/number_text.h"
#include "geometry/primitives.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>

namespace {
constexpr long HatchLines = 120;

struct End : Point {
  std::size_t Owner = 0;
};

// A stretch of the outline on which Y only rises or only falls; Bulge is 0 for a line, else the side of the
// centre.
struct Flank {
  double XA = 0, YA = 0, XB = 0, YB = 0;
  double CenterX = 0, CenterY = 0, Radius = 0;
  int Bulge = 0;
};

std::vector<Entity> CountedRows(const EntityTable &table, bool selectedOnly) {
  std::vector<Entity> row;
  for (int i = 0; i <= table.EntCount; ++i)
    if (const Entity &e = RowAt(table, i); !selectedOnly || e.Selected) row.push_back(e);
  return row;
}

struct Meeting {
  double Gap = 0;
  std::size_t A = 0, B = 0; // ends
};

// The pairs of ends within the tolerance, nearest first.
std::vector<Meeting> FindMeetings(const std::vector<Entity> &row, const std::vector<End> &end,
                                  double tolerance) {
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < end.size(); ++i)
    if (row[end[i].Owner].EntType != CircleType) order.push_back(i);
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return end[a].X < end[b].X; });
  std::vector<Meeting> meeting;
  for (std::size_t a = 0; a < order.size(); ++a)
    for (std::size_t b = a + 1; b < order.size() && end[order[b]].X - end[order[a]].X <= tolerance; ++b) {
      const End &p = end[order[a]], &q = end[order[b]];
      const bool bothOfOne =
          p.Owner == q.Owner && (row[p.Owner].EntType == LineType || ArcSweep(row[p.Owner]) < Pi);
      const double gap = std::hypot(p.X - q.X, p.Y - q.Y);
      if (!bothOfOne && gap <= tolerance) meeting.push_back({gap, order[a], order[b]});
    }
  std::stable_sort(meeting.begin(), meeting.end(),
                   [](const Meeting &a, const Meeting &b) { return a.Gap < b.Gap; });
  return meeting;
}

// Two ends for each row (a circle leaves its two unused); ends that meet get the same coordinates, so that no
// scan line can pass between them. Among edges shorter than the tolerance the nearest pairs may leave two
// ends over that only a chain of others connects: in a closed outline each such cluster has an even number,
// and they meet too.
std::vector<End> WeldedEnds(const std::vector<Entity> &row, double tolerance) {
  std::vector<End> end(2 * row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    Entity e = row[i];
    if (e.EntType == ArcType) SetArcEnds(e);
    end[2 * i] = {{e.X1, e.Y1}, i};
    end[2 * i + 1] = {{e.X2, e.Y2}, i};
  }
  constexpr std::size_t none = SIZE_MAX;
  std::vector<std::size_t> cluster(end.size()), waiting(end.size(), none);
  std::iota(cluster.begin(), cluster.end(), std::size_t{0});
  const auto clusterOf = [&](std::size_t i) {
    while (cluster[i] != i) i = cluster[i] = cluster[cluster[i]];
    return i;
  };
  std::vector<bool> taken(end.size());
  const auto join = [&](End &a, End &b) {
    a.X = b.X = (a.X + b.X) / 2;
    a.Y = b.Y = (a.Y + b.Y) / 2;
  };
  for (const Meeting &m : FindMeetings(row, end, tolerance)) {
    cluster[clusterOf(m.A)] = clusterOf(m.B);
    if (taken[m.A] || taken[m.B]) continue;
    taken[m.A] = taken[m.B] = true;
    join(end[m.A], end[m.B]);
  }
  for (std::size_t i = 0; i < end.size(); ++i) {
    if (taken[i]) continue;
    std::size_t &other = waiting[clusterOf(i)];
    if (other != none) join(end[i], end[other]);
    other = other == none ? i : none;
  }
  return end;
}

bool HasFlatLine(const std::vector<Entity> &row, const std::vector<End> &end, double turn, double flat) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i].EntType != LineType) continue;
    const Point a = Turned(end[2 * i], turn), b = Turned(end[2 * i + 1], turn);
    if (std::abs(GuardedSlope(a.X, a.Y, b.X, b.Y, flat)) <= 1e-9) return true;
  }
  return false;
}

// The first turn by steps of 10 degrees, six at a time and then halved, that leaves no line flat. Where many
// very short lines leave no such turn the last one tried stands: a flat line then simply gives no crossing.
double FindTurn(const std::vector<Entity> &row, const std::vector<End> &end, double grainRadius) {
  if (!HasFlatLine(row, end, 0, 0.0001)) return 0;
  const double flat = grainRadius / 100000;
  double turn = 0;
  for (double step = 10 * Pi / 180; step > 0.001; step /= 2)
    for (int round = 0; round <= 5; ++round) {
      turn += step;
      if (!HasFlatLine(row, end, turn, flat)) return turn;
    }
  return turn;
}

// A circle (no ends) starts at its bottom.
void AddArcFlanks(const Entity &arc, double turn, const End *ends, std::vector<Flank> &flank) {
  const auto [cx, cy] = Turned({arc.CenterX, arc.CenterY}, turn);
  const double start = ends ? std::fmod(arc.StartAngle + turn, 2 * Pi) : -Pi / 2;
  const double last = start + (ends ? ArcSweep(arc) : 2 * Pi);
  double x = ends ? ends[0].X : cx, y = ends ? ends[0].Y : cy - arc.Radius;
  // Extreme k stands at (k + 1/2) pi: a top for even k, reached on the right side, else a bottom.
  int k = static_cast<int>(std::floor(start / Pi - 0.5)) + 1;
  for (; (k + 0.5) * Pi < last - (ends ? 0 : 1); ++k) {
    const int side = k % 2 == 0 ? 1 : -1;
    flank.push_back({x, y, cx, cy + side * arc.Radius, cx, cy, arc.Radius, side});
    x = cx;
    y = cy + side * arc.Radius;
  }
  const double lastX = ends ? ends[1].X : cx, lastY = ends ? ends[1].Y : cy - arc.Radius;
  flank.push_back({x, y, lastX, lastY, cx, cy, arc.Radius, k % 2 == 0 ? 1 : -1});
}

std::vector<Flank> TurnedFlanks(const std::vector<Entity> &row, std::vector<End> end, double turn) {
  for (End &e : end) static_cast<Point &>(e) = Turned(e, turn);
  std::vector<Flank> flank;
  flank.reserve(3 * row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    const End &a = end[2 * i], &b = end[2 * i + 1];
    if (row[i].EntType == LineType)
      flank.push_back({a.X, a.Y, b.X, b.Y});
    else
      AddArcFlanks(row[i], turn, row[i].EntType == ArcType ? &end[2 * i] : nullptr, flank);
  }
  return flank;
}

// A flank counts when its ends lie on different sides, an end on the line belonging to the upper side; so a
// chain that returns to its start always gives an even count.
void FindCrossings(const std::vector<Flank> &flank, double y, std::vector<double> &crossing) {
  crossing.clear();
  for (const Flank &f : flank) {
    if ((f.YA < y) == (f.YB < y)) continue;
    if (f.Bulge == 0)
      crossing.push_back(f.XA + (f.XB - f.XA) * ((y - f.YA) / (f.YB - f.YA)));
    else {
      const double dy = y - f.CenterY;
      crossing.push_back(f.CenterX + f.Bulge * std::sqrt(std::max(0.0, (f.Radius - dy) * (f.Radius + dy))));
    }
  }
  std::sort(crossing.begin(), crossing.end());
}

double Length(const Entity &e) {
  if (e.EntType == LineType) return GetLineLength(e);
  if (e.EntType == CircleType) return 2 * Pi * e.Radius;
  const double sweep = e.EndAngle - e.StartAngle;
  return (sweep >= 0 ? sweep : sweep + 2 * Pi) * e.Radius;
}

double Distance(Point a, Point b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

// The farther of the line's ends that lie on the pick's side of the corner.
Point FarPoint(const LinePick &pick, Point corner) {
  const Point one{pick.Line.X1, pick.Line.Y1}, two{pick.Line.X2, pick.Line.Y2};
  const bool vertical = std::abs(pick.Line.Slope) >= VerticalSlope;
  const auto agrees = [&](Point end) {
    return vertical ? (end.Y - corner.Y) * (pick.Y - corner.Y) >= 0
                    : (end.X - corner.X) * (pick.X - corner.X) >= 0;
  };
  if (agrees(one) != agrees(two)) return agrees(one) ? one : two;
  return Distance(one, corner) > Distance(two, corner) ? one : two;
}

} // namespace

AreaScan ScanArea(const EntityTable &table, double grainRadius, double resolution, bool selectedOnly,
                  double joinTolerance) {
  AreaScan scan;
  const std::vector<Entity> row = CountedRows(table, selectedOnly);
  const std::vector<End> end = WeldedEnds(row, joinTolerance * (1 + 1e-6));
  scan.Turn = FindTurn(row, end, grainRadius);
  const std::vector<Flank> flank = TurnedFlanks(row, end, scan.Turn);

  double low = std::numeric_limits<double>::infinity(), high = -low, left = low, right = high;
  for (const Flank &f : flank) {
    low = std::min({low, f.YA, f.YB});
    high = std::max({high, f.YA, f.YB});
    left = std::min({left, f.XA, f.XB});
    right = std::max({right, f.XA, f.XB});
  }
  const double height = high - low;
  if (!std::isfinite(height) || !std::isfinite(right - left)) {
    scan.Closed = flank.empty();
    return scan;
  }
  if (!(resolution > 0) || resolution > height / 50) resolution = height / 50;
  resolution = std::max(resolution, height / 400000);

  double width = 0, momentX = 0, momentY = 0;
  low -= resolution;
  const double first = low + resolution / 2;
  const auto lines = height > 0 ? static_cast<long>(height / resolution + 1 + 1e-9) + 1 : 0L;
  const long hatch = std::max(1L, lines / HatchLines);
  for (long k = 0; k < lines; ++k) {
    double y = first + static_cast<double>(k) * resolution;
    for (const Flank &f : flank)
      if (f.Bulge == 0 && (std::abs(f.YA - y) < 1e-5 || std::abs(f.YB - y) < 1e-5)) {
        y += resolution / 100;
        break;
      }
    y -= 1e-9 * low;
    FindCrossings(flank, y, scan.Crossing);
    const double told = y;
    for (double shift = 1e-9; scan.Crossing.size() % 2 == 1 && shift < 0.4 * resolution; shift *= 4)
      for (const double sign : {1.0, -1.0}) {
        if (scan.Crossing.size() % 2 == 0) break;
        y = told + sign * shift;
        FindCrossings(flank, y, scan.Crossing);
      }
    if (scan.Crossing.size() % 2 == 1) {
      scan.ScanY = told;
      FindCrossings(flank, told, scan.Crossing);
      return scan;
    }
    for (std::size_t i = 0; i + 1 < scan.Crossing.size(); i += 2) {
      const double a = scan.Crossing[i], b = scan.Crossing[i + 1];
      width += b - a;
      momentX += (b - a) * (a + b) / 2;
      momentY += (b - a) * y;
      if (!selectedOnly || k % hatch != 0) continue;
      const Point from = Turned({a, y}, -scan.Turn), to = Turned({b, y}, -scan.Turn);
      scan.Filled.push_back({from.X, from.Y, to.X, to.Y});
    }
  }
  scan.Closed = true;
  scan.Crossing.clear();
  scan.Area = width * resolution;
  scan.CentroidX = width > 0 ? momentX / width : (left + right) / 2;
  scan.CentroidY = width > 0 ? momentY / width : (low + resolution + high) / 2;
  const Point centroid = Turned({scan.CentroidX, scan.CentroidY}, -scan.Turn);
  scan.CentroidX = centroid.X;
  scan.CentroidY = centroid.Y;
  return scan;
}

std::string OpenOutlineText(const AreaScan &scan) {
  return "Error: Selection may not be fully closed: Y " + FormatMask(scan.ScanY, "0.000") + ", " +
         std::to_string(scan.Crossing.size()) + " crossings";
}

Box VerifyPosition(double x, double y) {
  return {" X: " + FormatMask(x, "0.000") + "   Y: " + FormatMask(y, "0.000") +
              "\nDist from center: " + FormatMask(std::hypot(x, y), "0.000"),
          "Verify Position"};
}

Box VerifyDistance(double x1, double y1, double x2, double y2) {
  return {" Distance Between Points: " + FormatMask(std::hypot(x1 - x2, y1 - y2), "0.000"),
          "Verify Distance Between Points"};
}

Box VerifyAngle(const LinePick &first, const LinePick &second) {
  const Roots meeting =
      LineLineRoots(first.Line.Slope, first.Line.Intercept, second.Line.Slope, second.Line.Intercept);
  if (meeting.Case == RootCase::None) throw Fault{11, "Division by zero"};
  const Point corner = meeting.First, a = FarPoint(first, corner), b = FarPoint(second, corner);
  const double toA = Distance(corner, a), toB = Distance(corner, b), chord = Distance(a, b);
  const double angle =
      ArcCosine(static_cast<float>(Quotient(toA * toA + toB * toB - chord * chord, 2 * toA * toB)));
  return {" Angle: " + FormatMask(angle * 180 / Pi, "0.000") + " Deg / " + FormatMask(angle, "0.000") +
              " Rad",
          "Verify Angle"};
}

Box VerifyPerimeter(const EntityTable &table) {
  double perimeter = 0;
  for (const Entity &e : CountedRows(table, true)) perimeter += Length(e);
  return {" Perimeter: " + FormatMask(perimeter, "0.000"), "Verify Perimeter"};
}

Box VerifyArea(const AreaScan &scan) {
  return {" Area: " + FormatMask(scan.Area, "0.000") + " Centroid: X=" + FormatMask(scan.CentroidX, "0.000") +
              " Y=" + FormatMask(scan.CentroidY, "0.000"),
          "Verify Area"};
}
