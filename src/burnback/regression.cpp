#include "burnback/regression.h"

#include <algorithm>
#include <cmath>

namespace {

enum PairKind { LinePair, MixedPair, ArcPair };

bool IsLine(const Source &s) { return s.What == Source::Kind::Line; }

int KindOfPair(const Source &a, const Source &b) {
  return IsLine(a) && IsLine(b) ? LinePair : IsLine(a) || IsLine(b) ? MixedPair : ArcPair;
}

double WalkTurn(const Source &s) { // how far the walk turns clockwise along a source
  return IsLine(s) ? 0 : s.Side * s.Length;
}

// Along a stretch of the walk that only turns clockwise, and by no more than half a turn, the outline is
// convex: its offsets never meet. Such pairs, most of those at joints, need no watching.
std::vector<char> ConvexPairs(const std::vector<Source> &source) {
  const int n = static_cast<int>(source.size());
  std::vector<char> convex(static_cast<std::size_t>(n) * n, 0);
  const auto heading = [&](const Source &s, bool atEnd) {
    if (IsLine(s)) return s.Direction;
    const double a = atEnd == (s.Side < 0) ? s.Start + s.Length : s.Start;
    return a - s.Side * TwoPi / 4;
  };
  for (int i = 0; i < n; ++i) {
    if (WalkTurn(source[i]) < 0 || source[i].FirstRow < 0) continue;
    double turned = WalkTurn(source[i]);
    for (int at = i, next = source[i].Next; next >= 0 && next != i; at = next, next = source[at].Next) {
      const double joint = std::remainder(heading(source[at], true) - heading(source[next], false), TwoPi);
      turned += std::abs(joint) + WalkTurn(source[next]);
      if (joint < -1e-9 || WalkTurn(source[next]) < 0 || turned > TwoPi / 2 - 1e-6) break;
      convex[static_cast<std::size_t>(i) * n + next] = convex[static_cast<std::size_t>(next) * n + i] = 1;
    }
  }
  return convex;
}

// A vertex at the end of a source never swallows that source: its nearest foot there is the vertex itself.
bool OwnVertex(const std::vector<Source> &source, int of, int by) {
  const Source &s = source[by];
  if (s.What != Source::Kind::Corner && s.What != Source::Kind::Point) return false;
  return s.Next == of || s.Prev == of;
}

// Whether a source still swallows: one more step than it burns, since a front point may stand up to two steps
// nearer to it than the burn distance when it is first looked at.
bool Swallows(const std::vector<Source> &source, const Source &s, int step) {
  if (s.What != Source::Kind::Point) return s.LastLive >= step - 2;
  return (s.Prev >= 0 && Swallows(source, source[s.Prev], step)) ||
         (s.Next >= 0 && Swallows(source, source[s.Next], step));
}

double CheapGap(const Source &of, const Source &by, double d) {
  const double dx = of.MidX - by.MidX, dy = of.MidY - by.MidY;
  return std::sqrt(dx * dx + dy * dy) - of.Reach - by.Reach - 2 * d;
}

void RetireRow(BurnEntity &row) {
  row.BurntOut = true;
  row.CaseFrom = row.CaseTo = false;
}

bool IsLine(const BurnEntity &row) { return row.EntType == LineType; }

// The walk's second end of a row is its To, save for arcs walked clockwise.
bool WalksBackwards(const BurnEntity &row) { return !IsLine(row) && row.Side > 0; }

void LinkEnd(BurnEntity &row, bool toEnd, int by) {
  (toEnd != WalksBackwards(row) ? row.NextLink : row.PrevLink) = static_cast<std::int16_t>(by);
}

// Keeps of row r only what is left when dead (inside it) has gone; by is the source that took it, -1 the
// grain circle.
void CutRowBy(Regression &g, int r, const Ranges &dead, int by) {
  Profile &p = g.Chain;
  const BurnEntity before = p.BurnTable[r];
  const Source &s = p.Sources[before.Source];
  Ranges left = OneRange(before.From, before.To);
  for (int i = 0; i < dead.Count; ++i) Remove(left, dead.From[i], dead.To[i]);
  const double scale = IsLine(s) ? 1 : std::max(s.Radius + s.Side * p.BurnDist, 0.0);
  const bool hasRow = by >= 0 && p.Sources[by].FirstRow >= 0;
  int at = -1;
  for (int i = 0; i < left.Count; ++i) {
    if ((left.To[i] - left.From[i]) * scale < g.Tol.Sliver) continue;
    if (at < 0) {
      at = r;
    } else { // a pinch: both stretches are real and burn on
      at = static_cast<int>(p.BurnTable.size());
      p.BurnTable.push_back(before);
      p.BurnTable[at].NextOfSource = p.BurnTable[r].NextOfSource;
      p.BurnTable[r].NextOfSource = at;
    }
    BurnEntity &row = p.BurnTable[at];
    SetFeet(p, row, left.From[i], left.To[i]);
    SetEnds(p, row);
    row.CaseFrom = row.From > before.From ? by < 0 : before.CaseFrom;
    row.CaseTo = row.To < before.To ? by < 0 : before.CaseTo;
    if (hasRow && row.From > before.From) LinkEnd(row, false, by);
    if (hasRow && row.To < before.To) LinkEnd(row, true, by);
  }
  if (at < 0) RetireRow(p.BurnTable[r]);
}

// One kind of pair: what each source has swallowed of the other's front since the pair was last looked at.
void TrimPairs(Regression &g, int kind) {
  Profile &p = g.Chain;
  const int n = g.Watch.Sources;
  const double closing = 2 * g.FullStep;
  for (std::int32_t pair = TakePairs(g.Watch, kind, g.Step), next; pair >= 0; pair = next) {
    next = g.Watch.Link[pair];
    const int of = pair / n, by = pair % n;
    const Source &a = p.Sources[of], &b = p.Sources[by];
    if (a.LastLive < g.Step - 1 || !Swallows(p.Sources, b, g.Step)) continue;
    double gap = CheapGap(a, b, p.BurnDist);
    if (gap < 4 * closing) {
      // A pair that touches is seldom apart soon: its gap is measured now and then only.
      const bool measure = !g.Touching[pair] || g.Step % 8 == 0;
      gap = measure ? 1e300 : 0;
      for (int r = a.FirstRow; r >= 0; r = p.BurnTable[r].NextOfSource) {
        const BurnEntity &row = p.BurnTable[r];
        if (row.BurntOut) continue;
        if (measure) {
          const double bound = GapBound(
              a, {row.BurnX1, row.BurnY1, row.BurnX2, row.BurnY2, row.Height * row.Radius}, b, p.BurnDist);
          gap = std::min(gap, bound);
          if (bound > 0) continue;
        }
        const Ranges dead = Swallowed(a, row.From, row.To, b, p.BurnDist, g.Tol);
        if (dead.Count) CutRowBy(g, r, dead, by);
      }
      g.Touching[pair] = gap <= 0;
    }
    WatchPair(g.Watch, kind, pair,
              g.Step + 1 + static_cast<std::int64_t>(std::clamp(gap / closing, 0.0, 1e9)));
  }
}

void TrimGrain(Regression &g, bool lines) {
  Profile &p = g.Chain;
  const std::size_t rows = p.BurnTable.size();
  const double R = p.GrainRadius;
  for (std::size_t r = 0; r < rows; ++r) {
    BurnEntity &row = p.BurnTable[r];
    if (row.BurntOut || IsLine(row) != lines) continue;
    const Source &s = p.Sources[row.Source];
    if (std::sqrt(s.MidX * s.MidX + s.MidY * s.MidY) + s.Reach + p.BurnDist < R) continue;
    const Ranges inside = InsideCircle(s, row.From, row.To, p.BurnDist, R);
    if (inside.Count == 1 && inside.From[0] == row.From && inside.To[0] == row.To) continue;
    // A circle about the origin that reaches the wall retires; it does not meet the wall at any one place.
    const bool aboutOrigin = s.What != Source::Kind::Line && s.X * s.X + s.Y * s.Y < 1e-24 * R * R;
    g.AtWall = g.AtWall || !aboutOrigin;
    Ranges outside = OneRange(row.From, row.To);
    for (int i = 0; i < inside.Count; ++i) Remove(outside, inside.From[i], inside.To[i]);
    CutRowBy(g, static_cast<int>(r), outside, -1);
  }
}

// The longer side of the ends at the wall may tell one place twice: of two closer than R/50000 the second is
// cleared.
void MergeWallEnds(Regression &g) {
  Profile &p = g.Chain;
  const bool second = g.RightCount > g.LeftCount;
  const auto x = [&](BurnEntity &row) -> double & { return second ? row.CaseX2 : row.CaseX1; };
  const auto y = [&](BurnEntity &row) -> double & { return second ? row.CaseY2 : row.CaseY1; };
  const auto known = [&](BurnEntity &row) { return !row.BurntOut && (x(row) != 0 || y(row) != 0); };
  for (std::size_t i = 0; i < p.BurnTable.size(); ++i)
    for (std::size_t j = i + 1; j < p.BurnTable.size(); ++j) {
      BurnEntity &a = p.BurnTable[i], &b = p.BurnTable[j];
      if (!known(a) || !known(b) || std::hypot(x(a) - x(b), y(a) - y(b)) >= p.GrainRadius / 50000) continue;
      g.WallAngles += (second ? 1 : -1) * std::atan2(y(b), x(b));
      --(second ? g.RightCount : g.LeftCount);
      x(b) = y(b) = 0;
      if (g.LeftCount == g.RightCount) return;
    }
}

} // namespace

void StartRegression(Regression &g, int steps, double step) {
  Profile &p = g.Chain;
  g.Tol = ToleranceOf(p.GrainRadius);
  g.FullStep = step;
  const int n = static_cast<int>(p.Sources.size());
  p.BurnTable.reserve(p.BurnTable.size() + 64);
  StartWatch(g.Watch, n, steps);
  g.Touching.assign(static_cast<std::size_t>(n) * n, 0);
  const std::vector<char> convex = ConvexPairs(p.Sources);
  for (int of = n - 1; of >= 0; --of)
    for (int by = n - 1; by >= 0; --by) {
      const std::int32_t pair = of * n + by;
      if (of == by || p.Sources[of].FirstRow < 0 || convex[pair] || OwnVertex(p.Sources, of, by)) continue;
      const Source &a = p.Sources[of], &b = p.Sources[by];
      double gap = CheapGap(a, b, 0);
      if (gap < 8 * step) gap = GapBound(a, {a.ChordX1, a.ChordY1, a.ChordX2, a.ChordY2, a.Height}, b, 0);
      WatchPair(g.Watch, KindOfPair(a, b), pair,
                1 + static_cast<std::int64_t>(std::clamp(gap / (2 * step), 0.0, 1e9)));
    }
  p.BurnDist = p.BurnIncrement = 0;
  g.Section = TwoPi / 4 * p.GrainRadius *
              p.GrainRadius; // whole turns: what is left lies between nothing and the circle
  UpdateArrays(g);
}

void GetNewLinePos(Profile &p, BurnEntity &row) {
  SetEnds(p, row); // along the left normal of the walk, into the propellant
  row.Intercept = row.BurnY1 - row.Slope * row.BurnX1;
}

void GetNewArcPos(Profile &p, BurnEntity &row) {
  const Source &s = p.Sources[row.Source];
  const double radius =
      s.Radius + s.Side * p.BurnDist; // from the start of the run: a corner's is BurnDist exactly
  if (radius < 1e-9 * p.GrainRadius) {
    RetireRow(row);
    return;
  }
  row.Radius = radius;
  SetEnds(p, row);
}

void TrimLines(Regression &g) { TrimPairs(g, LinePair); }
void TrimLinesArcs(Regression &g) { TrimPairs(g, MixedPair); }
void TrimArcsArcs(Regression &g) { TrimPairs(g, ArcPair); }
void TrimLinesGrain(Regression &g) { TrimGrain(g, true); }
void TrimArcsGrain(Regression &g) { TrimGrain(g, false); }

// A line that still runs to its corner ends where the corner's arc begins, to the last bit.
void TrimFillets(Profile &p) {
  for (BurnEntity &row : p.BurnTable) {
    if (row.BurntOut || !IsLine(row)) continue;
    const Source &s = p.Sources[row.Source];
    if (row.To == s.Length && s.Next >= 0) {
      const BurnEntity &arc = p.BurnTable[s.Next];
      if (!arc.BurntOut && p.Sources[s.Next].What == Source::Kind::Corner &&
          arc.To == p.Sources[s.Next].Length)
        row.BurnX2 = arc.BurnX2, row.BurnY2 = arc.BurnY2;
    }
    if (row.From == 0 && s.Prev >= 0) {
      const BurnEntity &arc = p.BurnTable[s.Prev];
      if (!arc.BurntOut && p.Sources[s.Prev].What == Source::Kind::Corner && arc.From == 0)
        row.BurnX1 = arc.BurnX1, row.BurnY1 = arc.BurnY1;
    }
  }
}

// A stretch of next to no length that belongs to no front: rounding at a seam of two sources can leave one.
void RemoveFreeEnts(Regression &g) {
  Profile &p = g.Chain;
  const double tiny = 1e-6 * p.GrainRadius;
  for (BurnEntity &row : p.BurnTable) {
    if (row.BurntOut) continue;
    const Source &s = p.Sources[row.Source];
    if (FrontLength(s, row.From, row.To, p.BurnDist) > tiny) continue;
    double x, y;
    FrontPoint(s, (row.From + row.To) / 2, p.BurnDist, x, y);
    const bool free = std::any_of(p.Sources.begin(), p.Sources.end(), [&](const Source &other) {
      return &other != &s && Swallows(p.Sources, other, g.Step) &&
             DistanceWithin(other, x, y, tiny) < p.BurnDist - tiny;
    });
    if (free) RetireRow(row);
  }
}

void UpdateArrays(Regression &g) {
  Profile &p = g.Chain;
  RemoveFreeEnts(g);
  g.Perimeter = g.WallAngles = 0;
  g.LeftCount = g.RightCount = g.LiveRows = 0;
  double twice = 0;
  for (BurnEntity &row : p.BurnTable) {
    row.CaseX1 = row.CaseY1 = row.CaseX2 = row.CaseY2 = 0;
    if (row.BurntOut) continue;
    Source &s = p.Sources[row.Source];
    s.LastLive = g.Step;
    ++g.LiveRows;
    const double length = FrontLength(s, row.From, row.To, p.BurnDist);
    g.Perimeter += length;
    double term = row.BurnX1 * row.BurnY2 - row.BurnX2 * row.BurnY1;
    const bool backwards = WalksBackwards(row);
    if (!IsLine(row)) {
      const double w = row.To - row.From, rho = row.Radius;
      if (w < s.Length) {
        if (row.EntType == CircleType) row.EntType = ArcType; // the wall or a pinch has opened the circle
        row.StartAngle = NormalAngle(s.Start + row.From);
        row.EndAngle = NormalAngle(s.Start + row.To);
      }
      const double segment = w < 1e-3 ? w * w * w / 6 * (1 - w * w / 20) : w - std::sin(w);
      term += rho * rho * segment;
      if (backwards) term = -term;
    }
    twice += term;
    for (const bool toEnd : {false, true}) {
      if (!(toEnd ? row.CaseTo : row.CaseFrom)) continue;
      const double x = toEnd ? row.BurnX2 : row.BurnX1, y = toEnd ? row.BurnY2 : row.BurnY1;
      const bool second = toEnd != backwards;
      (second ? row.CaseX2 : row.CaseX1) = x;
      (second ? row.CaseY2 : row.CaseY1) = y;
      g.WallAngles += (second ? -1 : 1) * std::atan2(y, x);
      ++(second ? g.RightCount : g.LeftCount);
    }
  }
  if (g.LeftCount != g.RightCount) MergeWallEnds(g);
  // Green: the front with the propellant on its left, closed by the wall counter-clockwise from each second
  // end to the next first end. Whole turns of the wall are settled by what the last step left to burn.
  const double R2 = p.GrainRadius * p.GrainRadius, turn = TwoPi / 2 * R2;
  const double expected = g.Section - g.Perimeter * p.BurnIncrement;
  if (g.LeftCount == g.RightCount) {
    const double open = (twice + R2 * g.WallAngles) / 2;
    g.Section = g.LiveRows == 0 ? 0 : open + turn * std::round((expected - open) / turn);
  } else {
    g.Section = std::max(0.0, expected);
  }
}

void StepFront(Regression &g) {
  Profile &p = g.Chain;
  ++g.Step;
  g.AtWall = false;
  p.BurnDist += p.BurnIncrement;
  for (BurnEntity &row : p.BurnTable) {
    if (row.BurntOut) continue;
    row.CaseFrom = row.CaseTo = false;
    if (IsLine(row))
      GetNewLinePos(p, row);
    else
      GetNewArcPos(p, row);
  }
  TrimLines(g);
  TrimLinesArcs(g);
  TrimArcsArcs(g);
  TrimLinesGrain(g);
  TrimArcsGrain(g);
  TrimFillets(p);
  UpdateArrays(g);
}

std::vector<BurnEntity> CaseArcs(const Profile &p) {
  std::vector<double> left, right;
  for (const BurnEntity &row : p.BurnTable) {
    if (row.BurntOut) continue;
    if (row.CaseX1 != 0 || row.CaseY1 != 0) left.push_back(NormalAngle(std::atan2(row.CaseY1, row.CaseX1)));
    if (row.CaseX2 != 0 || row.CaseY2 != 0) right.push_back(NormalAngle(std::atan2(row.CaseY2, row.CaseX2)));
  }
  std::sort(left.begin(), left.end());
  std::sort(right.begin(), right.end());
  BurnEntity wall;
  wall.EntType = ArcType;
  wall.Radius = p.GrainRadius;
  std::vector<BurnEntity> arcs;
  if (left.empty() || right.empty()) {
    wall.EntType = CircleType;
    wall.EndAngle = TwoPi;
    wall.Side = -1;
    return {wall};
  }
  wall.Side = 1;
  for (const double start : right) {
    const auto next = std::lower_bound(left.begin(), left.end(), start);
    wall.StartAngle = start;
    wall.EndAngle = next == left.end() ? left.front() : *next;
    arcs.push_back(wall);
  }
  return arcs;
}
