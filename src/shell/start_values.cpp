#include "shell/start_values.h"

#include "platform/scripted_screen.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {
struct ValueRow {
  const char *Name;
  double Least, Most;
  double (*Get)(const Workbench &);
  void (*Set)(Workbench &, double);
};

#define VALUE(name, least, most, field)                                                                      \
  {                                                                                                          \
    name, least, most, [](const Workbench &b) { return static_cast<double>(b.field); },                      \
        [](Workbench &b, double v) { b.field = static_cast<decltype(b.field)>(v); }                          \
  }
constexpr double Length = 1e6, Turn = 7;
constexpr ValueRow Rows[] = {
    VALUE("snap", 0, 1, Grain.Doc.SnapToGrid),
    VALUE("spacing", 1e-6, Length, Grain.Doc.GridSpacing),
    VALUE("auto", 0, 1, Draft.Track.AutoPoint),
    VALUE("mode", 1, 7, Draft.Cmd.RefType),
    VALUE("rotations", 1, 301, Draft.Rotation.RotationCount),
    VALUE("rotating", 0, 1, Draft.Rotation.Active),
    VALUE("box-width", 0, Length, Draft.Tool.BoxWidth),
    VALUE("box-height", 0, Length, Draft.Tool.BoxHeight),
    VALUE("box-reference", 1, 9, Draft.Tool.BoxReference),
    VALUE("polygon-sides", 3, 301, Draft.Tool.PolySides),
    VALUE("polygon-radius", 0, Length, Draft.Tool.PolyRadius),
    VALUE("polygon-turn", -Length, Length, Draft.Tool.PolyRotate),
    VALUE("polygon-flat", 0, 1, Draft.Tool.PolyFlat),
    VALUE("radius", 0, Length, Draft.Tool.ToolRadius),
    VALUE("window-rule", 1, 4, Draft.Select.WindowRule),
    VALUE("arc-start", -Turn, Turn, Grain.Defaults.ArcStartDefault),
    VALUE("arc-end", -Turn, Turn, Grain.Defaults.ArcEndDefault),
    VALUE("line-angle", -Turn, Turn, Grain.Defaults.LineAngleDefault),
    VALUE("arc-angle", -Length, Length, Grain.Defaults.ArcAngleDefault),
    VALUE("turn", -Length, Length, Grain.Defaults.RotationAngleDefault),
    VALUE("scale", -Length, Length, Grain.Defaults.ScaleFactorDefault),
};
#undef VALUE
} // namespace

bool SetStartValue(Workbench &bench, std::string_view name, double value) {
  const auto *row =
      std::find_if(std::begin(Rows), std::end(Rows), [&](const ValueRow &r) { return r.Name == name; });
  if (row == std::end(Rows) || !(value >= row->Least && value <= row->Most)) return false;
  row->Set(bench, value);
  bench.Draft.Rotation.RotationPitch = TwoPi / bench.Draft.Rotation.RotationCount;
  return true;
}

std::vector<std::string> StartValues(const Workbench &bench) {
  ScriptedScreen none;
  const Workbench fresh(none);
  std::vector<std::string> lines;
  for (const ValueRow &row : Rows)
    if (const double value = row.Get(bench); &row == Rows || value != row.Get(fresh))
      lines.push_back(fmt::format("{} {}", row.Name, value));
  return lines;
}
