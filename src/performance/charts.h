#pragma once
#include "performance/pressure.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

constexpr int YLabels = 18, TimeLabels = 10;
constexpr const char *ChartErrorTitle = "Error Encounted";

// What stands on a chart's button, and its message when it cannot be made.
struct ChartText {
  const char *Name, *Caption, *Title, *LargeTitle, *Message; // LargeTitle: of a mass flow above 1000
  std::uint32_t Fill;                                        // red in the low byte
  int Number;                                                // of the chart in the window, 1 to 7
};
const ChartText &TextOf(ChartKind);

// A chart as data: columns over time (s) or burn distance (mm), a scale and labels.
struct PerformanceChart {
  ChartKind Kind = ChartKind::KN_Chart;
  std::string Title;
  std::uint32_t Fill = 0, TopColour = 150 + 150 * 256 + 150 * 65536; // red in the low byte
  std::vector<float> X, Value;                                       // in the units of the calculation
  std::vector<float> Dist;   // mm, the burn distance of each point: the outline of that instant
  std::vector<float> Cursor; // what the cursor reads, in CursorUnit: the true value
  std::string CursorUnit;    // "", "MPa", "N", "g/s", "kg/s/m2"
  bool OverDistance = false; // X is the burn distance
  float Largest = 0;
  double FullHeight = 0;                             // the value at the surface's upper edge: Largest 16/15
  double UnitDivisor = 1;                            // from Value to what the labels show
  float TimeStep = 0;                                // s; 0 over the burn distance
  std::array<std::string, YLabels> Y_Axis;           // label k of 1 to 18 stands at k - 1
  std::array<std::string, TimeLabels + 1> Time_Axis; // label k of 1 to 10 at k - 1; the origin's last
};

enum class ChartOutcome : std::uint8_t {
  Drawn,
  Nothing, // no throat: nothing is drawn, nothing is said; the chart stays as it was
  Failed   // the chart's own message; the chart stays as it was
};

// The Kn rows serve Chart_Mass_Flow alone. The chart is replaced only when it is drawn.
ChartOutcome BuildChart(ChartKind, const MotorTable &, const std::vector<KnRow> &, const MotorInputs &,
                        PerformanceChart &);

// The value of each of `width` pixel columns, from the left.
std::vector<double> ChartColumns(const PerformanceChart &, int width);

// Where labels stand beside a plotting surface, in its units with Y downward.
double YLabelTop(int k, double surfaceTop, double surfaceHeight, double labelHeight);
double TimeLabelLeft(int k, double surfaceLeft, double surfaceWidth, double labelWidth);

// An input that is typed recomputes the chart that is showing.
enum class MotorField : std::uint8_t { burn_rate_a, burn_rate_n, Density, c_star, Isp, Throat_Diameter };
bool Recomputes(MotorField, double value, int chartNumber, bool loading);

// A burn rate coefficient of inches per second at psi as mm/s at Pa, for this exponent; the text of the box:
// three places where they are within 0.1 % of the value, else 7 digits. Empty: v is not above 0, or the
// result is not finite.
std::string Convert_Imperial_a(double v, double n);
