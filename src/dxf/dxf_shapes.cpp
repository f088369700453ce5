#include "dxf/dxf_shapes.h"

#include "dxf/shape_rows.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int MostVisits = 200000, MostDepth = 100;

struct Walker {
  const DxfFile &File;
  ShapeSink Sink;
  std::vector<const DxfBlock *> Inside; // the blocks being unfolded, outermost first
  int Visits = 0;
};

double RadiansOf(double degrees) { return (degrees / 180) * Pi; }

// The plane of an entity whose Z axis is given: 0 level, 1 seen from below, -1 tilted.
int PlaneOf(const DxfFields &f) {
  const double x = Real(f, 210, 0), y = Real(f, 220, 0), z = Real(f, 230, 1);
  if (!(std::hypot(x, y) <= 1e-6 * std::abs(z))) return -1;
  return z > 0 ? 0 : 1;
}

// Into the plane of the drawing; X runs backwards in what is seen from below.
PlaneMap FromPlane(const PlaneMap &map, int plane) { return plane == 1 ? After(map, ScaleMap(-1, 1)) : map; }

Point PointAt(const DxfFields &f, int code) { return {Real(f, code), Real(f, code + 10)}; }

void SetRange(Conic &c, double from, double to) { // radians, counter-clockwise
  if (std::abs(from) > 2 * TwoPi) from = std::fmod(from, TwoPi);
  double sweep = to - from;
  if (!(sweep > 0 && sweep < TwoPi)) sweep -= TwoPi * std::floor(sweep / TwoPi);
  c.Whole = sweep < 1e-12 || sweep > TwoPi - 1e-12;
  c.From = c.Whole ? 0 : from;
  c.To = c.Whole ? TwoPi : from + sweep;
}

void ArcOrCircle(ShapeSink &sink, const DxfFields &f, const PlaneMap &map) {
  const bool arc = SameName(f.Entity.Type, "ARC");
  const double radius = Real(f, 40);
  Conic c{PointAt(f, 10), {radius, 0}, {0, radius}, 0, TwoPi, true};
  if (arc) {
    const double start = Real(f, 50), end = Real(f, 51);
    SetRange(c, RadiansOf(start), RadiansOf(end));
    c.GivenTo = RadiansOf(end);
  }
  const int plane = PlaneOf(f);
  if (!f.Trouble.empty()) return;
  if (!(radius > 0)) return Skip(sink, "without length");
  plane < 0 ? Skip(sink, "tilted") : AddConic(sink, FromPlane(map, plane), c);
}

void Ellipse(ShapeSink &sink, const DxfFields &f, const PlaneMap &map) {
  Conic c;
  c.Centre = PointAt(f, 10);
  c.U = PointAt(f, 11);
  const double ratio = Real(f, 40);
  const int plane = PlaneOf(f);
  const double turn = plane == 1 ? -ratio : ratio; // the minor axis is square to the major one in its plane
  c.V = {-c.U.Y * turn, c.U.X * turn};
  SetRange(c, Real(f, 41, 0), Real(f, 42, 2 * std::acos(-1.0)));
  if (!f.Trouble.empty()) return;
  plane < 0 ? Skip(sink, "tilted") : AddConic(sink, map, c);
}

void Spline(ShapeSink &sink, const DxfFields &f, const PlaneMap &map) {
  SplineCurve s;
  std::vector<Point> fit;
  s.Degree = Whole(f, 71, 3);
  for (std::size_t i = f.Entity.First; i < f.Entity.Last; ++i) {
    const DxfGroup &g = f.File.Group[i];
    switch (g.Code) {
    case 40: s.Knot.push_back(RealOf(f, g)); break;
    case 41: s.Weight.push_back(RealOf(f, g)); break;
    case 10: s.Pole.push_back({RealOf(f, g), 0}); break;
    case 20:
      if (!s.Pole.empty()) s.Pole.back().Y = RealOf(f, g);
      break;
    case 11: fit.push_back({RealOf(f, g), 0}); break;
    case 21:
      if (!fit.empty()) fit.back().Y = RealOf(f, g);
      break;
    default: break;
    }
  }
  const Point start{Real(f, 12, 0), Real(f, 22, 0)}, end{Real(f, 13, 0), Real(f, 23, 0)};
  if (!f.Trouble.empty()) return;
  if (s.Weight.empty()) s.Weight.assign(s.Pole.size(), 1);
  if (s.Pole.empty()) {
    const auto same = [](Point a, Point b) { return !(std::hypot(a.X - b.X, a.Y - b.Y) > 0); };
    fit.erase(std::unique(fit.begin(), fit.end(), same), fit.end());
    if (fit.size() < 2) return Skip(sink, "without length");
    s = ThroughPoints(fit, start, end);
  }
  AddSpline(sink, map, std::move(s));
}

void LightPolyline(ShapeSink &sink, const DxfFields &f, const PlaneMap &map) {
  std::vector<BulgePoint> path;
  for (std::size_t i = f.Entity.First; i < f.Entity.Last; ++i) {
    const DxfGroup &g = f.File.Group[i];
    if (g.Code == 10) path.push_back({{RealOf(f, g), 0}, 0});
    if (g.Code == 20 && !path.empty()) path.back().At.Y = RealOf(f, g);
    if (g.Code == 42 && !path.empty()) path.back().Bulge = RealOf(f, g);
  }
  const bool closed = (Whole(f, 70, 0) & 1) != 0;
  const int plane = PlaneOf(f);
  if (!f.Trouble.empty()) return;
  plane < 0 ? Skip(sink, "tilted") : AddPath(sink, FromPlane(map, plane), path, closed);
}

// The record at `at` and the vertices behind it; `at` comes to stand on the last of them.
void OldPolyline(ShapeSink &sink, const DxfFields &f, const std::vector<DxfEntity> &list, std::size_t &at,
                 const PlaneMap &map) {
  constexpr int closed = 1, spatial = 8, mesh = 16, faces = 64, frame = 16;
  const int flags = Whole(f, 70, 0);
  std::vector<BulgePoint> path;
  while (at + 1 < list.size() && SameName(list[at + 1].Type, "VERTEX")) {
    const DxfFields vertex{f.File, list[++at], f.Trouble};
    if (flags & (mesh | faces)) continue;
    if ((Whole(vertex, 70, 0) & frame) == 0) path.push_back({PointAt(vertex, 10), Real(vertex, 42, 0)});
  }
  if (at + 1 < list.size() && SameName(list[at + 1].Type, "SEQEND")) ++at;
  const int plane = (flags & spatial) ? 0 : PlaneOf(f);
  if (!f.Trouble.empty()) return;
  if (flags & (mesh | faces)) return Skip(sink, "mesh");
  plane < 0 ? Skip(sink, "tilted") : AddPath(sink, FromPlane(map, plane), path, (flags & closed) != 0);
}

void Unfold(Walker &, const std::vector<DxfEntity> &, const PlaneMap &);

std::string CycleWords(const Walker &w, const DxfFields &f, const std::string &name, const DxfBlock &block) {
  const bool inItself = !w.Inside.empty() && w.Inside.back() == &block;
  return PlaceOf(w.File, f.Entity.Line) + "block " + ShownText(name) +
         (inItself ? " is inserted into itself" : " is inserted into a block that it holds");
}

void Insert(Walker &w, const DxfFields &f, const PlaneMap &map) {
  ShapeSink &sink = w.Sink;
  const DxfGroup *named = FindGroup(f, 2);
  const std::string name = named ? std::string(BareText(named->Value)) : "";
  const Point at = PointAt(f, 10);
  const double x = Real(f, 41, 1), y = Real(f, 42, 1), turn = Real(f, 50, 0);
  const double columnStep = Real(f, 44, 0), rowStep = Real(f, 45, 0);
  const int columns = std::max(1, Whole(f, 70, 1)), rows = std::max(1, Whole(f, 71, 1));
  const int plane = PlaneOf(f);
  if (!f.Trouble.empty()) return;
  const auto found = w.File.Block.find(SmallLetters(name));
  if (found == w.File.Block.end()) return Skip(sink, "its block is missing");
  const DxfBlock &block = found->second;
  if (std::find(w.Inside.begin(), w.Inside.end(), &block) != w.Inside.end()) {
    f.Trouble = CycleWords(w, f, name, block);
    return;
  }
  if (w.Inside.size() >= MostDepth) {
    f.Trouble = PlaceOf(w.File, f.Entity.Line) + "blocks are nested deeper than " + std::to_string(MostDepth);
    return;
  }
  if (plane < 0) return Skip(sink, "tilted");
  if (x == 0 || y == 0) return Skip(sink, "scale 0");
  const PlaneMap placed = After(FromPlane(map, plane), After(ShiftMap(at.X, at.Y), TurnMap(turn)));
  const PlaneMap shape = After(ScaleMap(x, y), ShiftMap(-block.BaseX, -block.BaseY));
  w.Inside.push_back(&block);
  for (int row = 0; row < rows && f.Trouble.empty(); ++row)
    for (int column = 0; column < columns && f.Trouble.empty(); ++column) {
      if (++w.Visits > MostVisits) {
        f.Trouble = PlaceOf(w.File, f.Entity.Line) + "the inserted blocks unfold to more than " +
                    std::to_string(MostVisits) + " entities";
        break;
      }
      Unfold(w, block.Entity, After(placed, After(ShiftMap(column * columnStep, row * rowStep), shape)));
    }
  w.Inside.pop_back();
}

// What belongs to another entity or shows the sheet.
bool IsSilent(const DxfEntity &e) {
  for (const char *name : {"SEQEND", "VIEWPORT", "VERTEX"})
    if (SameName(e.Type, name)) return true;
  return false;
}

void Unfold(Walker &w, const std::vector<DxfEntity> &list, const PlaneMap &map) {
  ShapeSink &sink = w.Sink;
  for (std::size_t i = 0; i < list.size() && sink.Out.Trouble.empty(); ++i) {
    const DxfEntity &entity = list[i];
    const DxfFields f{w.File, entity, sink.Out.Trouble};
    const auto is = [&](const char *name) { return SameName(entity.Type, name); };
    if (IsSilent(entity)) continue;
    if (!w.Inside.empty() && ++w.Visits > MostVisits) {
      f.Trouble = PlaceOf(w.File, entity.Line) + "the inserted blocks unfold to more than " +
                  std::to_string(MostVisits) + " entities";
      return;
    }
    if (w.Inside.empty()) sink.Line = entity.Line;
    sink.Type = ShownText(SmallLetters(entity.Type));
    for (char &c : sink.Type)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (Whole(f, 67, 0) == 1 && w.Inside.empty()) {
      Skip(sink, "on paper, not in the model");
      if (is("POLYLINE"))
        while (i + 1 < list.size() && SameName(list[i + 1].Type, "VERTEX")) ++i;
      continue;
    }
    if (is("LINE")) {
      const Point from = PointAt(f, 10), to = PointAt(f, 11);
      if (f.Trouble.empty()) AddLine(sink, map, from, to);
    } else if (is("ARC") || is("CIRCLE")) {
      ArcOrCircle(sink, f, map);
    } else if (is("LWPOLYLINE")) {
      LightPolyline(sink, f, map);
    } else if (is("POLYLINE")) {
      OldPolyline(sink, f, list, i, map);
    } else if (is("ELLIPSE")) {
      Ellipse(sink, f, map);
    } else if (is("SPLINE")) {
      Spline(sink, f, map);
    } else if (is("INSERT")) {
      Insert(w, f, map);
    } else {
      Skip(sink, "");
    }
  }
}
} // namespace

DxfShapes ShapesOf(const DxfFile &file, const PlaneMap &map, double tolerance) {
  DxfShapes shapes;
  Walker walker{file, {shapes, tolerance, 0, {}}, {}, 0};
  Unfold(walker, file.Entity, map);
  return shapes;
}
