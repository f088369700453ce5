#include "outputs/thrust_points.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t MostCandidates = 800;
// Of the time the impulse would take at the peak, which a long tail does not stretch:
constexpr double Rise = 1.0 / 2000; // to the first point, and of the fall to the closing zero
constexpr double Nearest = 1e-4;    // between two points
constexpr double Least = 1e-4;      // of the peak, of a point before the last

// The curve over 0..1 of the burn time and of the peak, with the integrals of F, tF and F2 up to each point.
struct Curve {
  std::vector<double> T, F, Sum, Moment, Square;
};

void Add(Curve &c, double t, double f) {
  double sum = 0, moment = 0, square = 0;
  if (!c.T.empty()) {
    const double t0 = c.T.back(), f0 = c.F.back(), w = t - t0, tm = (t + t0) / 2, fm = (f + f0) / 2;
    sum = c.Sum.back() + w * fm;
    moment = c.Moment.back() + w / 6 * (t0 * f0 + 4 * tm * fm + t * f); // exact: a cubic at most
    square = c.Square.back() + w / 6 * (f0 * f0 + 4 * fm * fm + f * f);
  }
  c.T.push_back(t);
  c.F.push_back(f);
  c.Sum.push_back(sum);
  c.Moment.push_back(moment);
  c.Square.push_back(square);
}

// The squared distance from the curve to the chord between two of its points, over time.
double Misfit(const Curve &c, std::size_t i, std::size_t j) {
  const double t1 = c.T[i], t2 = c.T[j], b = (c.F[j] - c.F[i]) / (t2 - t1), a = c.F[i] - b * t1;
  const double line =
      a * a * (t2 - t1) + a * b * (t2 * t2 - t1 * t1) + b * b * (t2 * t2 * t2 - t1 * t1 * t1) / 3;
  const double cross = a * (c.Sum[j] - c.Sum[i]) + b * (c.Moment[j] - c.Moment[i]);
  return std::max(0.0, c.Square[j] - c.Square[i] - 2 * cross + line);
}

// The samples between the first point and the fall, with these two added. `chief`: the part of the burn time
// that the impulse would take at the peak.
Curve CurveOf(const std::vector<MotorSample> &sample, double end, double peak, double chief) {
  const double rise = Rise * chief, nearest = Nearest * chief;
  Curve c;
  const auto at = [&](double t) { // thrust at a time of 0..1
    const auto next = std::lower_bound(sample.begin(), sample.end(), t * end,
                                       [](const MotorSample &s, double time) { return s.Time < time; });
    if (next == sample.begin()) return next->Thrust / peak;
    if (next == sample.end()) return sample.back().Thrust / peak;
    const MotorSample &a = *(next - 1), &b = *next;
    const double part = b.Time > a.Time ? (t * end - a.Time) / (b.Time - a.Time) : 0;
    return (a.Thrust + part * (b.Thrust - a.Thrust)) / peak;
  };
  Add(c, rise, at(rise));
  for (const MotorSample &s : sample) {
    const double t = s.Time / end;
    if (t >= c.T.back() + nearest && t <= 1 - rise - nearest) Add(c, t, s.Thrust / peak);
  }
  Add(c, 1 - rise, at(1 - rise));
  return c;
}

// Of each stretch of neighbours the one that stands out most from the chord across them.
std::vector<std::size_t> Candidates(const Curve &c) {
  const std::size_t n = c.T.size(), stretch = (n + MostCandidates - 1) / MostCandidates;
  std::vector<std::size_t> index{0};
  for (std::size_t from = 1; from + 1 < n; from += stretch) {
    const std::size_t to = std::min(from + stretch, n - 1);
    const double slope = (c.F[to] - c.F[from - 1]) / (c.T[to] - c.T[from - 1]);
    const auto out = [&](std::size_t i) {
      return std::abs(c.F[i] - c.F[from - 1] - slope * (c.T[i] - c.T[from - 1]));
    };
    std::size_t best = from;
    for (std::size_t i = from; i < to; ++i)
      if (out(i) > out(best)) best = i;
    index.push_back(best);
  }
  index.push_back(n - 1);
  return index;
}

// The `count` candidates, first and last among them, whose chords lie nearest to the curve.
std::vector<std::size_t> Choose(const Curve &c, const std::vector<std::size_t> &candidate,
                                std::size_t count) {
  const std::size_t n = candidate.size();
  if (n <= count) return candidate;
  std::vector<double> least(n, std::numeric_limits<double>::infinity());
  least[0] = 0;
  std::vector<std::vector<std::size_t>> before(count, std::vector<std::size_t>(n, 0));
  for (std::size_t k = 1; k < count; ++k) {
    std::vector<double> next(n, std::numeric_limits<double>::infinity());
    for (std::size_t j = k; j < n; ++j)
      for (std::size_t i = k - 1; i < j; ++i)
        if (const double sum = least[i] + Misfit(c, candidate[i], candidate[j]); sum < next[j]) {
          next[j] = sum;
          before[k][j] = i;
        }
    least.swap(next);
  }
  std::vector<std::size_t> chosen;
  for (std::size_t j = n - 1, k = count; k-- > 0; j = before[k][j]) chosen.push_back(candidate[j]);
  std::reverse(chosen.begin(), chosen.end());
  return chosen;
}

} // namespace

std::vector<ThrustPoint> ThrustPoints(const MotorRun &run, std::size_t most) {
  double peak = 0;
  for (const MotorSample &s : run.Sample) peak = std::max(peak, s.Thrust);
  const double end = run.Sample.empty() ? 0 : run.Sample.back().Time;
  if (!(peak > 0 && end > 0)) return {};
  const double chief = std::clamp(run.Figures.TotalImpulse / (peak * end), 1e-6, 1.0);
  const Curve c = CurveOf(run.Sample, end, peak, chief);
  std::vector<ThrustPoint> points;
  double area = 0;
  ThrustPoint last;
  const auto add = [&](double t, double f) {
    if (f < Least && t < 1) return; // readers take the first zero for the end
    const ThrustPoint p{t * end, f * peak};
    area += (p.Time - last.Time) * (p.Thrust + last.Thrust) / 2;
    points.push_back(p);
    last = p;
  };
  for (const std::size_t i : Choose(c, Candidates(c), most - 1)) add(c.T[i], c.F[i]);
  add(1, 0);
  for (ThrustPoint &p : points) p.Thrust *= run.Figures.TotalImpulse / area;
  return points;
}
