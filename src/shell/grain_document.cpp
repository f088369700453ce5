#include "shell/grain_document.h"

#include "base/fault.h"
#include "base/rounding.h"

#include <algorithm>
#include <cmath>

namespace {
int CheckedRow(const EntityTable &table, int i) {
  if (i < 0 || i >= static_cast<int>(table.Row.size())) throw Fault{9, "Subscript out of range"};
  return i;
}
} // namespace

Entity &RowAt(EntityTable &table, int i) { return table.Row[static_cast<std::size_t>(CheckedRow(table, i))]; }
const Entity &RowAt(const EntityTable &table, int i) {
  return table.Row[static_cast<std::size_t>(CheckedRow(table, i))];
}

void AppendRow(EntityTable &table, const Entity &entity) {
  RowAt(table, table.EntCount + 1) = entity;
  ++table.EntCount;
}

void DeleteRow(EntityTable &table, int i) {
  if (i > table.EntCount) throw Fault{9, "Subscript out of range"};
  RowAt(table, i);
  std::copy(table.Row.begin() + i + 1, table.Row.begin() + table.EntCount + 1, table.Row.begin() + i);
  --table.EntCount;
}

double GuardedSlope(double x1, double y1, double x2, double y2, double flat) {
  constexpr double least = 1e-9, most = 1e6;
  if (std::fabs(y1 - y2) < flat) return least;
  if (std::fabs(x1 - x2) < flat) return most;
  const double slope = std::clamp((y2 - y1) / (x2 - x1), -most, most);
  if (slope >= 0 && slope < least) return least;
  return slope < 0 && slope > -least ? -least : slope;
}

void SetLineSlope(Entity &line) {
  line.Slope = GuardedSlope(line.X1, line.Y1, line.X2, line.Y2);
  line.Intercept = line.Y1 - line.Slope * line.X1;
  line.CenterX = (line.X1 + line.X2) / 2;
  line.CenterY = (line.Y1 + line.Y2) / 2;
}

Entity MakeLine(double x1, double y1, double x2, double y2) {
  Entity line;
  line.EntType = LineType;
  line.X1 = x1;
  line.Y1 = y1;
  line.X2 = x2;
  line.Y2 = y2;
  SetLineSlope(line);
  return line;
}

Entity MakeCircle(double cx, double cy, double radius) {
  Entity circle;
  circle.EntType = CircleType;
  circle.CenterX = cx;
  circle.CenterY = cy;
  circle.Radius = radius;
  return circle;
}

Entity MakeArc(double cx, double cy, double radius, double start, double end) {
  Entity arc = MakeCircle(cx, cy, radius);
  arc.EntType = ArcType;
  arc.StartAngle = start;
  arc.EndAngle = end;
  arc.X1 = cx + radius * std::cos(start);
  arc.Y1 = cy + radius * std::sin(start);
  arc.X2 = cx + radius * std::cos(end);
  arc.Y2 = cy + radius * std::sin(end);
  return arc;
}

void SetDimensions(GrainDoc &doc, double diameter, double length, double throat, int ends) {
  GrainDoc made = doc; // a number too large for its type leaves all of them
  made.GrainDiam = diameter;
  made.GrainRadius = NarrowFloat(diameter / 2);
  made.GrainLength = NarrowFloat(length);
  made.ThroatDiam = NarrowFloat(throat);
  made.EndsExposed = Narrow16(ends);
  SetTolerances(made);
  doc = made;
}

void SetTolerances(GrainDoc &doc) {
  const double radius = static_cast<double>(doc.GrainRadius);
  doc.TolA = radius / 1e3;
  doc.TolB = radius / 1e4;
  doc.TolC = radius / 1e5;
  doc.TolD = radius / 1e6;
  doc.LinerThickness = doc.GrainRadius / 20;
}
