#include "burnback/pieces.h"

#include "burnback/reach.h"

#include <cmath>
#include <utility>

namespace {

constexpr double AngleNoise = 1e-9; // radians: a turn below this is a tangent joint

std::int16_t LineSide(const Entity &e) { // e runs in walking order
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

// Where the outline leaves (or enters) the grain the front also spreads along the wall: a quarter turn from
// the normal at the cut, needed only where that turn reaches into the grain.
bool GetEdgeArcs(std::vector<Piece> &out, const Source &cut, bool leaving) {
  double ux, uy, x, y;
  Tangent(cut, leaving, ux, uy);
  WalkEnd(cut, leaving, x, y);
  if (-uy * x + ux * y >= 0) return false; // the normal points out of the grain
  const double normal = std::atan2(ux, -uy);
  out.push_back(CornerPiece(x, y, leaving ? normal - TwoPi / 4 : normal, TwoPi / 4, leaving));
  return true;
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

void AddPoint(std::vector<Source> &sources, int before,
              int after) { // at the end of the one, the beginning of the other; -1 for none
  Source point;
  point.What = Source::Kind::Point;
  WalkEnd(sources[before >= 0 ? before : after], before >= 0, point.X, point.Y);
  point.Prev = before;
  point.Next = after;
  FinishSource(point, 0);
  sources.push_back(point);
}

} // namespace

std::vector<Piece> PiecesOf(const std::vector<ChainLink> &chain, const std::vector<char> &bridge,
                            double noise) {
  const std::size_t n = chain.size();
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
    const double sweep = turn < 0 ? -turn : TwoPi / 2; // a reversal may be a slit of no width
    out.push_back(CornerPiece(x, y, std::atan2(vx, -vy), sweep, true)); // from the next one's normal
  }
  return out;
}

std::vector<Piece> ClipToGrain(const std::vector<Piece> &chain, double R) {
  const BurnTolerance tol = ToleranceOf(R);
  std::vector<Piece> out;
  bool uncut = false; // the last piece put out ran to its end inside
  for (const Piece &piece : chain) {
    const Source &s = piece.Src;
    if (s.What == Source::Kind::Corner) {
      if (std::hypot(s.X, s.Y) > R * (1 + 1e-9))
        uncut = false;
      else {
        out.push_back(piece);
        out.back().JointBefore = uncut;
        uncut = true;
      }
      continue;
    }
    Ranges inside = InsideCircle(s, 0, s.Length, 0, R);
    const bool backwards = s.What == Source::Kind::Arc && s.Side > 0; // walked from its To
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

void AddPoints(std::vector<Source> &sources) {
  const int n = static_cast<int>(sources.size());
  const auto corner = [&](int i) { return sources[i].What == Source::Kind::Corner; };
  for (int i = 0; i < n; ++i) {
    if (corner(i) || (sources[i].What == Source::Kind::Arc && sources[i].Length >= TwoPi)) continue;
    const int next = sources[i].Next;
    if (sources[i].Prev < 0) AddPoint(sources, -1, i);
    if (next < 0) AddPoint(sources, i, -1);
    if (next < 0 || corner(next)) continue;
    double ux, uy, vx, vy;
    Tangent(sources[i], true, ux, uy);
    Tangent(sources[next], false, vx, vy);
    if (std::atan2(ux * vy - uy * vx, ux * vx + uy * vy) > 1e-6) AddPoint(sources, i, next);
  }
}
