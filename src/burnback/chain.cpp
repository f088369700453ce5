#include "burnback/chain.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

double RelativeSlope(const Entity &e) {
  return GuardedSlope(e.X1, e.Y1, e.X2, e.Y2, 1e-5 * std::hypot(e.X2 - e.X1, e.Y2 - e.Y1));
}

void TurnEntity(Entity &e, double angle) {
  if (e.EntType == LineType) {
    TurnPoint(e.X1, e.Y1, angle);
    TurnPoint(e.X2, e.Y2, angle);
    e.Slope = RelativeSlope(e);
    e.Intercept = e.Y1 - e.Slope * e.X1;
    return;
  }
  TurnPoint(e.CenterX, e.CenterY, angle);
  const bool whole = WholeTurn(e);
  e.StartAngle = NormalAngle(e.StartAngle + angle);
  e.EndAngle = whole ? e.StartAngle + TwoPi : NormalAngle(e.EndAngle + angle);
}

int AxisLines(const std::vector<Entity> &copy) {
  return static_cast<int>(std::count_if(copy.begin(), copy.end(), [](const Entity &e) {
    return e.EntType == LineType && (std::abs(e.Slope) >= 1000000 || std::abs(e.Slope) <= 1e-9);
  }));
}

double LowerEnd(const ChainLink &c) {
  double x, y1, y2;
  EndOf(c, false, x, y1);
  EndOf(c, true, x, y2);
  return std::min(y1, y2);
}

// Twice the signed area that a walked piece contributes, counter-clockwise positive.
double AreaTerm(const ChainLink &c) {
  double x1, y1, x2, y2;
  EndOf(c, false, x1, y1);
  EndOf(c, true, x2, y2);
  double term = x1 * y2 - x2 * y1;
  if (c.Ent.EntType != LineType) {
    const double w = SweepOf(c.Ent), r = c.Ent.Radius;
    term += (c.Forward ? 1 : -1) * r * r * (w - std::sin(w));
  }
  return term;
}

void MoveEnd(ChainLink &c, bool far, double x, double y) { // of a line
  const bool second = far == c.Forward;
  (second ? c.Ent.X2 : c.Ent.X1) = x;
  (second ? c.Ent.Y2 : c.Ent.Y1) = y;
}

// Where two lines that gape or overshoot meet: their intersection when it is at hand, else the middle of the
// gap.
void WeldLines(ChainLink &a, ChainLink &b, double gap) {
  double x1, y1, x2, y2, ax, ay, bx, by;
  EndOf(a, true, x1, y1);
  EndOf(b, false, x2, y2);
  EndOf(a, false, ax, ay);
  EndOf(b, true, bx, by);
  double x = (x1 + x2) / 2, y = (y1 + y2) / 2;
  const double ux = x1 - ax, uy = y1 - ay, vx = bx - x2, vy = by - y2, cross = ux * vy - uy * vx;
  if (std::abs(cross) > 0.1 * std::hypot(ux, uy) * std::hypot(vx, vy)) {
    const double t = ((x2 - x1) * vy - (y2 - y1) * vx) / cross;
    const double px = x1 + t * ux, py = y1 + t * uy;
    if (std::hypot(px - x, py - y) < 3 * gap) x = px, y = py;
  }
  MoveEnd(a, true, x, y);
  MoveEnd(b, false, x, y);
}

} // namespace

void TurnOffAxes(std::vector<Entity> &copy, double &rotation, double &turn) {
  const std::vector<Entity> asDrawn = copy;
  rotation = turn = 0;
  for (Entity &e : copy)
    if (e.EntType == LineType) e.Slope = RelativeSlope(e);
  double step = 12.5 * Pi / 180;
  int sinceHalving = 0, passes = 0;
  while (true) {
    const int onAxis = AxisLines(copy);
    ++sinceHalving, ++passes;
    if (onAxis == 0) return;
    rotation += step;
    turn += rotation; // the copy already stands turned: the whole sum is added each time
    for (Entity &e : copy) TurnEntity(e, rotation);
    if (AxisLines(copy) == 0) return;
    if (sinceHalving > 5) {
      sinceHalving = 0;
      step /= 2;
      copy = asDrawn;
      rotation = turn = 0;
      continue;
    }
    if (rotation > static_cast<double>(3.1415927f)) {
      rotation = 0;
      return;
    }
    if (passes > 15) return;
  }
}

void EndOf(const ChainLink &c, bool far, double &x, double &y) {
  const bool second = far == c.Forward;
  if (c.Ent.EntType == LineType) {
    x = second ? c.Ent.X2 : c.Ent.X1;
    y = second ? c.Ent.Y2 : c.Ent.Y1;
    return;
  }
  const double a = second ? c.Ent.EndAngle : c.Ent.StartAngle;
  x = c.Ent.CenterX + c.Ent.Radius * std::cos(a);
  y = c.Ent.CenterY + c.Ent.Radius * std::sin(a);
}

double SweepOf(const Entity &e) {
  const double sweep = e.EndAngle - e.StartAngle, within = sweep - TwoPi * std::floor(sweep / TwoPi);
  return within > 0 ? within : TwoPi;
}

bool WholeTurn(const Entity &e) {
  if (e.EntType == CircleType) return true;
  if (e.EntType != ArcType) return false;
  const double sweep = SweepOf(e);
  return sweep >= TwoPi - 1e-12 || sweep <= 1e-12;
}

double LengthOf(const Entity &e) {
  return e.EntType == LineType ? std::hypot(e.X2 - e.X1, e.Y2 - e.Y1)
                               : e.Radius * (WholeTurn(e) ? TwoPi : SweepOf(e));
}

bool WalkChain(const std::vector<Entity> &copy, double joinTolerance, std::vector<ChainLink> &chain,
               double &tipX, double &tipY) {
  std::vector<char> placed(copy.size(), 0);
  std::size_t first = 0;
  for (std::size_t i = 1; i < copy.size(); ++i)
    if (LowerEnd({copy[i], true}) > LowerEnd({copy[first], true})) first = i;
  double x1, y1, x2, y2;
  EndOf({copy[first], true}, false, x1, y1);
  EndOf({copy[first], true}, true, x2, y2);
  chain.push_back({copy[first], y1 > y2}); // from the higher end
  placed[first] = 1;
  double homeX, homeY;
  EndOf(chain[0], true, tipX, tipY);
  EndOf(chain[0], false, homeX, homeY);
  const auto meets = [&](double x, double y) {
    return std::abs(y - tipY) <= joinTolerance && std::abs(x - tipX) <= joinTolerance;
  };
  while (chain.size() < copy.size()) {
    // The nearest end within the tolerance, not the first: edges may be shorter than the tolerance.
    double best = 1e300;
    ChainLink next;
    std::size_t index = 0;
    for (std::size_t i = 0; i < copy.size(); ++i) {
      if (placed[i]) continue;
      for (const bool forward : {true, false}) {
        double x, y;
        EndOf({copy[i], forward}, false, x, y);
        const double away = std::hypot(x - tipX, y - tipY);
        if (!meets(x, y) || away >= best) continue;
        best = away;
        next = {copy[i], forward};
        index = i;
      }
    }
    if (best == 1e300) break;
    placed[index] = 1;
    chain.push_back(next);
    EndOf(next, true, tipX, tipY);
  }
  return chain.size() == copy.size() && meets(homeX, homeY);
}

bool FaceClockwise(std::vector<ChainLink> &chain, double R) {
  double area = 0;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    double x1, y1, x2, y2;
    area += AreaTerm(chain[i]);
    EndOf(chain[i], true, x1, y1);
    EndOf(chain[(i + 1) % chain.size()], false, x2, y2);
    area += x1 * y2 - x2 * y1;
  }
  if (std::abs(area) < 1e-9 * R * R) return false;
  if (area < 0) return true;
  std::reverse(chain.begin() + 1, chain.end());
  for (ChainLink &c : chain) c.Forward = !c.Forward;
  return true;
}

std::vector<char> MakeJointsTrue(std::vector<ChainLink> &chain, double noise) {
  const std::size_t n = chain.size();
  std::vector<char> bridge(n, 0);
  for (std::size_t i = 0; i < n; ++i) {
    ChainLink &a = chain[i], &b = chain[(i + 1) % n];
    double x1, y1, x2, y2;
    EndOf(a, true, x1, y1);
    EndOf(b, false, x2, y2);
    const double gap = std::hypot(x2 - x1, y2 - y1);
    if (gap <= noise) continue;
    const bool lineA = a.Ent.EntType == LineType, lineB = b.Ent.EntType == LineType;
    if (lineA && lineB)
      WeldLines(a, b, gap);
    else if (lineA)
      MoveEnd(a, true, x2, y2);
    else if (lineB)
      MoveEnd(b, false, x1, y1);
    else
      bridge[i] = 1;
  }
  return bridge;
}
