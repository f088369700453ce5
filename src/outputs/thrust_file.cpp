#include "outputs/thrust_file.h"

#include "outputs/thrust_points.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr std::size_t MostPoints = 32;

// One word of the header; the form parts its fields by blanks and has no quotes.
std::string Word(std::string text) {
  for (char &c : text)
    if (!std::isgraph(static_cast<unsigned char>(c)) || c == ';') c = '_';
  return text;
}

// Decimals that keep a number of this size to five figures and more.
int Places(double size) {
  return size > 0 ? std::clamp(4 - static_cast<int>(std::floor(std::log10(size))), 3, 12) : 3;
}

std::string Fixed(double value, int places) { return fmt::format("{:.{}f}", value, places); }

} // namespace

std::string ThrustFileText(const MotorRun &run, const MotorInputs &inputs, const std::string &name) {
  const MotorFigures &f = run.Figures;
  const std::string common = f.MotorClass + fmt::format("{:.0f}", f.MeanThrust);
  const double mass = f.PropellantMass / 1000;
  const auto millimetres = [](double v) { return fmt::format("{:.6g}", v); };
  std::string text = fmt::format(
      "; {}, {}: total impulse {:.6g} N s, mean thrust {:.6g} N, burn time {:.6g} s\n"
      "; Diameter, length and both masses are the grain's: enter those of the motor with its case.\n"
      "{} {} {} P {} {} Morvandel\n",
      Word(name.empty() ? common : name), common, f.TotalImpulse, f.MeanThrust, f.BurnTime,
      Word(name.empty() ? common : name), millimetres(inputs.GrainDiam), millimetres(inputs.GrainLength),
      Fixed(mass, Places(mass)), Fixed(mass, Places(mass)));
  const std::vector<ThrustPoint> points = ThrustPoints(run, MostPoints);
  double peak = 0;
  for (const ThrustPoint &p : points) peak = std::max(peak, p.Thrust);
  const int times = Places(peak > 0 ? std::min(f.BurnTime, f.TotalImpulse / peak) : 0) + 1;
  for (const ThrustPoint &p : points)
    text += fmt::format("   {} {}\n", Fixed(p.Time, times), Fixed(p.Thrust, Places(peak)));
  return text + ";\n";
}
