#include "burnback/profile.h"

#include "burnback/outline_check.h"
#include "burnback/reach.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double AngleNoise = 1e-9;  // radians: a turn below this is a tangent joint

// ---- turning off the axes

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
  const double sweep = e.EndAngle - e.StartAngle;
  e.StartAngle = NormalAngle(e.StartAngle + angle);
  e.EndAngle = sweep > 0 && sweep >= TwoPi - 1e-12 ? e.StartAngle + TwoPi : NormalAngle(e.EndAngle + angle);
}

int AxisLines(const std::vector<Entity> &copy) {
  return static_cast<int>(std::count_if(copy.begin(), copy.end(), [](const Entity &e) {
    return e.EntType == LineType && (std::abs(e.Slope) >= 1000000 || std::abs(e.Slope) <= 1e-9);
  }));
}

void TurnOffAxes(Profile &p, std::vector<Entity> &copy) {
  const std::vector<Entity> asDrawn = copy;
  double step = 12.5 * Pi / 180;
  int sinceHalving = 0, passes = 0;
  while (true) {
    const int onAxis = AxisLines(copy);
    ++sinceHalving, ++passes;
    if (onAxis == 0) return;
    p.ProfileRotation += step;
    p.Turn += p.ProfileRotation;  // the copy already stands turned: the whole sum is added each time
    for (Entity &e : copy) TurnEntity(e, p.ProfileRotation);
    if (AxisLines(copy) == 0) return;
    if (sinceHalving > 5) {
      sinceHalving = 0;
      step /= 2;
      copy = asDrawn;
      p.ProfileRotation = p.Turn = 0;
      continue;
    }
    if (p.ProfileRotation > static_cast<double>(3.1415927f)) {
      p.ProfileRotation = 0;
      return;
    }
    if (passes > 15) return;
  }
}

// ---- ordering

struct ChainLink {
  Entity Ent;
  bool Forward = true;  // walked from the record's first end to its second
};

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
  const double sweep = e.EndAngle - e.StartAngle;
  return sweep > 0 ? sweep : sweep + TwoPi;
}

bool WholeTurn(const Entity &e) {
  if (e.EntType == CircleType) return true;
  if (e.EntType != ArcType) return false;
  const double sweep = SweepOf(e);
  return sweep >= TwoPi - 1e-12 || sweep <= 1e-12;
}

double LengthOf(const Entity &e) {
  return e.EntType == LineType ? std::hypot(e.X2 - e.X1, e.Y2 - e.Y1) : e.Radius * (WholeTurn(e) ? TwoPi : SweepOf(e));
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

bool WalkChain(Profile &p, const std::vector<Entity> &copy, double joinTolerance, std::vector<ChainLink> &chain) {
  std::vector<char> placed(copy.size(), 0);
  std::size_t first = 0;
  for (std::size_t i = 1; i < copy.size(); ++i)
    if (LowerEnd({copy[i], true}) > LowerEnd({copy[first], true})) first = i;
  double x1, y1, x2, y2;
  EndOf({copy[first], true}, false, x1, y1);
  EndOf({copy[first], true}, true, x2, y2);
  chain.push_back({copy[first], y1 > y2});  // from the higher end
  placed[first] = 1;
  double tipX, tipY, homeX, homeY;
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
  if (chain.size() == copy.size() && meets(homeX, homeY)) return true;
  p.ChainTipX = tipX;
  p.ChainTipY = tipY;
  return false;
}

// False: the walk goes back on itself and encloses nothing.
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

// ---- rows and their sources

std::int16_t LineSide(const Entity &e) {  // e runs in walking order
  const bool vertical = std::abs(e.Slope) >= 1000000;
  const bool up = vertical ? e.Y2 > e.Y1 : e.X2 > e.X1;
  const double slope = vertical ? std::abs(e.Slope) : e.Slope;
  return static_cast<std::int16_t>((up ? -1 : 1) * (slope < 0 ? -1 : 1));
}

BurnEntity RowOf(const ChainLink &c) {
  BurnEntity row;
  static_cast<Entity &>(row) = c.Ent;
  if (c.Ent.EntType == LineType) {
    if (!c.Forward) {
      std::swap(row.X1, row.X2);
      std::swap(row.Y1, row.Y2);
    }
    row.Side = LineSide(row);
    row.Intercept = row.Y1 - row.Slope * row.X1;
    return row;
  }
  row.EntType = c.Ent.EntType;
  row.Side = c.Forward ? std::int16_t{-1} : std::int16_t{1};
  return row;
}

Source SourceOf(const BurnEntity &row) {
  Source s;
  if (row.EntType == LineType) {
    s.X = row.X1, s.Y = row.Y1;
    s.Length = std::hypot(row.X2 - row.X1, row.Y2 - row.Y1);
    s.UX = (row.X2 - row.X1) / s.Length, s.UY = (row.Y2 - row.Y1) / s.Length;
    return s;
  }
  s.What = row.Radius > 0 ? Source::Kind::Arc : Source::Kind::Corner;
  s.X = row.CenterX, s.Y = row.CenterY, s.Radius = row.Radius, s.Side = row.Side;
  s.Start = row.StartAngle;
  s.Length = WholeTurn(row) && row.Radius > 0 ? TwoPi : SweepOf(row);
  return s;
}

BurnEntity CornerRow(double x, double y, double start, double sweep) {
  BurnEntity row;
  row.EntType = ArcType;
  row.CenterX = row.X1 = row.X2 = x;
  row.CenterY = row.Y1 = row.Y2 = y;
  row.StartAngle = NormalAngle(start);
  row.EndAngle = NormalAngle(start + sweep);
  row.Side = 1;
  return row;
}

struct Piece {
  BurnEntity Row;
  Source Src;
  bool JointBefore = false;  // runs on uncut from the piece before it
};

Piece CornerPiece(double x, double y, double start, double sweep, bool jointBefore) {
  Piece c{CornerRow(x, y, start, sweep), {}, jointBefore};
  c.Src.What = Source::Kind::Corner;
  c.Src.X = x, c.Src.Y = y, c.Src.Start = c.Row.StartAngle, c.Src.Length = sweep;
  return c;
}

void WalkEnd(const Source &s, bool far, double &x, double &y) {
  const bool to = s.What == Source::Kind::Line ? far : far == (s.Side < 0);
  FrontPoint(s, to ? s.Length : 0, 0, x, y);
}

Piece BridgePiece(double x1, double y1, double x2, double y2) {
  const Entity e = MakeLine(x1, y1, x2, y2);
  Piece piece{RowOf({e, true}), {}, true};
  piece.Src = SourceOf(piece.Row);
  piece.Src.Bridge = true;
  return piece;
}

void MoveEnd(ChainLink &c, bool far, double x, double y) {  // of a line
  const bool second = far == c.Forward;
  (second ? c.Ent.X2 : c.Ent.X1) = x;
  (second ? c.Ent.Y2 : c.Ent.Y1) = y;
}

// Where two lines that gape or overshoot meet: their intersection when it is at hand, else the middle of the gap.
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

// Joints that JoinTolerance lets pass are made true: lines are drawn to the joint; two arcs get a short line between them.
std::vector<Piece> CloseGaps(std::vector<ChainLink> chain, double noise) {
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
    if (lineA && lineB) WeldLines(a, b, gap);
    else if (lineA) MoveEnd(a, true, x2, y2);
    else if (lineB) MoveEnd(b, false, x1, y1);
    else bridge[i] = 1;
  }
  std::vector<Piece> closed;
  for (std::size_t i = 0; i < n; ++i) {
    if (LengthOf(chain[i].Ent) <= noise) continue;
    Piece piece{RowOf(chain[i]), {}, true};
    piece.Src = SourceOf(piece.Row);
    closed.push_back(piece);
    if (!bridge[i]) continue;
    double x1, y1, x2, y2;
    EndOf(chain[i], true, x1, y1);
    EndOf(chain[(i + 1) % n], false, x2, y2);
    closed.push_back(BridgePiece(x1, y1, x2, y2));
  }
  return closed;
}

// A zero-radius arc at each corner of the port that reaches into the propellant; it grows with the burn.
std::vector<Piece> GetAngleIO(const std::vector<Piece> &chain) {
  std::vector<Piece> out;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    out.push_back(chain[i]);
    const Source &a = chain[i].Src, &b = chain[(i + 1) % chain.size()].Src;
    double ux, uy, vx, vy, x, y;
    Tangent(a, true, ux, uy);
    Tangent(b, false, vx, vy);
    const double turn = std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
    if (turn >= -AngleNoise && turn < TwoPi / 2 - AngleNoise) continue;
    WalkEnd(a, true, x, y);
    const double sweep = turn < 0 ? -turn : TwoPi / 2;  // a reversal may be a slit of no width
    out.push_back(CornerPiece(x, y, std::atan2(vx, -vy), sweep, true));  // from the next one's normal
  }
  return out;
}

// Where the outline leaves (or enters) the grain the front also spreads along the wall: a quarter turn from the normal
// at the cut, needed only where that turn reaches into the grain.
bool GetEdgeArcs(std::vector<Piece> &out, const Source &cut, bool leaving) {
  double ux, uy, x, y;
  Tangent(cut, leaving, ux, uy);
  WalkEnd(cut, leaving, x, y);
  if (-uy * x + ux * y >= 0) return false;  // the normal points out of the grain
  const double normal = std::atan2(ux, -uy);
  out.push_back(CornerPiece(x, y, leaving ? normal - TwoPi / 4 : normal, TwoPi / 4, leaving));
  return true;
}

void AddPoint(Profile &p, int before, int after) {  // at the end of the one, the beginning of the other; -1 for none
  Source point;
  point.What = Source::Kind::Point;
  WalkEnd(p.Sources[before >= 0 ? before : after], before >= 0, point.X, point.Y);
  point.Prev = before;
  point.Next = after;
  FinishSource(point, 0);
  p.Sources.push_back(point);
}

// The vertices at which the propellant reaches into the port, and the cuts at the wall, have no front of their own. While
// the front is younger than a fin of propellant is thick it can leap over the fin's tip in one step: there the tip itself
// must swallow it.
void AddPoints(Profile &p) {
  const int n = static_cast<int>(p.Sources.size());
  const auto corner = [&](int i) { return p.Sources[i].What == Source::Kind::Corner; };
  for (int i = 0; i < n; ++i) {
    if (corner(i) || p.Sources[i].Length >= TwoPi) continue;
    const int next = p.Sources[i].Next;
    if (p.Sources[i].Prev < 0) AddPoint(p, -1, i);
    if (next < 0) AddPoint(p, i, -1);
    if (next < 0 || corner(next)) continue;
    double ux, uy, vx, vy;
    Tangent(p.Sources[i], true, ux, uy);
    Tangent(p.Sources[next], false, vx, vy);
    if (std::atan2(ux * vy - uy * vx, ux * vx + uy * vy) > 1e-6) AddPoint(p, i, next);
  }
}

Source Cut(const Source &s, double from, double to) {
  Source part = s;
  part.Length = to - from;
  if (s.What == Source::Kind::Line) {
    part.X += s.UX * from;
    part.Y += s.UY * from;
  } else {
    part.Start = s.Start + from;
  }
  return part;
}

BurnEntity CutRow(const BurnEntity &row, const Source &part) {
  BurnEntity cut = row;
  if (part.What == Source::Kind::Line) {
    cut.X1 = part.X, cut.Y1 = part.Y;
    cut.X2 = part.X + part.UX * part.Length, cut.Y2 = part.Y + part.UY * part.Length;
  } else {
    cut.EntType = ArcType;
    cut.StartAngle = NormalAngle(part.Start);
    cut.EndAngle = NormalAngle(part.Start + part.Length);
  }
  return cut;
}

// Clips the chain to the grain circle and inserts the edge arcs at the cuts.
std::vector<Piece> ClipToGrain(const std::vector<Piece> &chain, double R, const BurnTolerance &tol) {
  std::vector<Piece> out;
  bool uncut = false;  // the last piece put out ran to its end inside
  for (const Piece &piece : chain) {
    const Source &s = piece.Src;
    if (s.What == Source::Kind::Corner) {
      if (std::hypot(s.X, s.Y) > R * (1 + 1e-9)) uncut = false;
      else {
        out.push_back(piece);
        out.back().JointBefore = uncut;
        uncut = true;
      }
      continue;
    }
    Ranges inside = InsideCircle(s, 0, s.Length, 0, R);
    const bool backwards = s.What == Source::Kind::Arc && s.Side > 0;  // walked from its To
    const double scale = s.What == Source::Kind::Line ? 1 : s.Radius;
    for (int n = 0; n < inside.Count; ++n) {
      const int k = backwards ? inside.Count - 1 - n : n;
      const double from = inside.From[k], to = inside.To[k];
      if ((to - from) * scale < tol.Sliver) continue;
      const bool entered = backwards ? (s.Length - to) * scale > tol.Sliver : from * scale > tol.Sliver;
      const bool leaves = backwards ? from * scale > tol.Sliver : (s.Length - to) * scale > tol.Sliver;
      const Source part = from == 0 && to == s.Length ? s : Cut(s, from, to);
      const bool joined = entered ? GetEdgeArcs(out, part, false) : uncut;
      out.push_back({from == 0 && to == s.Length ? piece.Row : CutRow(piece.Row, part), part, joined});
      out.back().Row.CaseFrom = backwards ? leaves : entered;
      out.back().Row.CaseTo = backwards ? entered : leaves;
      if (leaves) GetEdgeArcs(out, part, true);
      uncut = !leaves;
    }
    if (inside.Count == 0) uncut = false;
  }
  if (!out.empty() && uncut) {
    // The walk closes on its first piece unless that one was cut at its beginning.
    double x1, y1, x2, y2;
    WalkEnd(out.back().Src, true, x1, y1);
    WalkEnd(out[0].Src, false, x2, y2);
    out[0].JointBefore = std::hypot(x2 - x1, y2 - y1) < 1e-6 * R;
  }
  return out;
}

}  // namespace

void SetFeet(const Profile &p, BurnEntity &row, double from, double to) {
  const Source &s = p.Sources[row.Source];
  if (s.What != Source::Kind::Line) {
    const auto unit = [&](double foot, double &x, double &y) {
      x = std::cos(s.Start + foot);
      y = std::sin(s.Start + foot);
    };
    if (from != row.From || row.To == 0) unit(from, row.FromX, row.FromY);
    if (to != row.To) unit(to, row.ToX, row.ToY);
    // Below half a turn from the halved sine, which keeps its digits; any bound will do above.
    const double quarter = (to - from) / 4;
    row.Height = to - from < Pi ? 2 * std::sin(quarter) * std::sin(quarter) : 2;
  }
  row.From = from;
  row.To = to;
}

void SetEnds(const Profile &p, BurnEntity &row) {
  const Source &s = p.Sources[row.Source];
  if (s.What == Source::Kind::Line) {
    FrontPoint(s, row.From, p.BurnDist, row.BurnX1, row.BurnY1);
    FrontPoint(s, row.To, p.BurnDist, row.BurnX2, row.BurnY2);
    return;
  }
  row.BurnX1 = s.X + row.Radius * row.FromX, row.BurnY1 = s.Y + row.Radius * row.FromY;
  row.BurnX2 = s.X + row.Radius * row.ToX, row.BurnY2 = s.Y + row.Radius * row.ToY;
}

void TurnPoint(double &x, double &y, double angle) {
  const double c = std::cos(angle), s = std::sin(angle), px = x;
  x = px * c - y * s;
  y = px * s + y * c;
}

double NormalAngle(double a) {
  a = std::fmod(a, TwoPi);
  return a < 0 ? a + TwoPi : a;
}

void Init(Profile &p, const EntityTable &table, double grainRadius, double joinTolerance) {
  p = Profile{};
  p.GrainRadius = grainRadius;
  p.DesignEntCount = table.EntCount + 1;
  const BurnTolerance tol = ToleranceOf(grainRadius);
  std::vector<Entity> copy;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    if (LengthOf(e) > tol.Sliver) copy.push_back(e);  // a row of no length burns nothing
  }
  for (Entity &e : copy) {
    e.Selected = false;
    if (e.EntType == LineType) e.Slope = RelativeSlope(e);
  }
  const auto refuse = [&] { TurnPoint(p.ChainTipX, p.ChainTipY, -p.Turn); };
  TurnOffAxes(p, copy);
  std::vector<ChainLink> chain;
  bool encloses = true;
  if (copy.size() == 1 && WholeTurn(copy[0])) {
    copy[0].EntType = CircleType;
    copy[0].StartAngle = 0;
    copy[0].EndAngle = TwoPi;
    chain.push_back({copy[0], false});
  } else {
    const auto circle = std::find_if(copy.begin(), copy.end(), WholeTurn);
    if (copy.empty() || circle != copy.end()) {
      if (!copy.empty()) p.ChainTipX = circle->CenterX + circle->Radius, p.ChainTipY = circle->CenterY;
      return refuse();
    }
    if (!WalkChain(p, copy, joinTolerance, chain)) return refuse();
    encloses = FaceClockwise(chain, grainRadius);
  }
  std::vector<Piece> pieces = chain.size() == 1 ? std::vector<Piece>{{RowOf(chain[0]), {}, false}}
                                                : CloseGaps(chain, 1e-7 * grainRadius);
  if (chain.size() == 1) pieces[0].Src = SourceOf(pieces[0].Row);
  for (Piece &piece : pieces) FinishSource(piece.Src, tol.Slack);
  std::vector<Source> outline;
  for (const Piece &piece : pieces) outline.push_back(piece.Src);
  if (CrossesItself(outline, grainRadius, p.ChainTipX, p.ChainTipY)) return refuse();
  if (!encloses) {
    EndOf(chain[0], false, p.ChainTipX, p.ChainTipY);
    return refuse();
  }
  if (chain.size() > 1) pieces = GetAngleIO(pieces);
  pieces = ClipToGrain(pieces, grainRadius, tol);

  const int n = static_cast<int>(pieces.size());
  for (int i = 0; i < n; ++i) {
    BurnEntity &row = pieces[i].Row;
    Source &s = pieces[i].Src;
    FinishSource(s, tol.Slack);
    s.FirstRow = i;
    row.Source = i;
    if (row.EntType != LineType) {
      FrontPoint(s, 0, 0, row.X1, row.Y1);
      FrontPoint(s, s.Length, 0, row.X2, row.Y2);
    }
    row.BurnX1 = row.X1, row.BurnY1 = row.Y1, row.BurnX2 = row.X2, row.BurnY2 = row.Y2;
    if (pieces[i].JointBefore && n > 1) {
      s.Prev = (i + n - 1) % n;
      pieces[s.Prev].Src.Next = i;
    }
  }
  for (Piece &piece : pieces) {
    p.BurnTable.push_back(piece.Row);
    p.Sources.push_back(piece.Src);
  }
  for (BurnEntity &row : p.BurnTable) SetFeet(p, row, 0, p.Sources[row.Source].Length);
  AddPoints(p);
  p.ProfileOK = true;
}
