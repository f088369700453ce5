#include "performance/pressure.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double ChartPi = 3.141592654, Gravity = 9.80665;
constexpr double SmallestStep = 1e-6; // s

double EndsFactor(int endsExposed) { return endsExposed == 3 ? 2 : endsExposed == 0 ? 0 : 1; }

// One pass at a time step. False: a value makes no sense.
bool Pass(const KnCurve &curve, const MotorInputs &in, ChartKind kind, double dt, BurnTrace &trace) {
  const Propellant &p = in.Fuel;
  const double At = CircleArea(in.ThroatDiam), whole = CircleArea(in.GrainDiam);
  const double power = 1 / (1 - p.N), Cf = p.Isp / (p.CStar / Gravity);
  const bool oneEnd = in.EndsExposed == 1 || in.EndsExposed == 2;
  const double last = curve.Dist.back();
  double dist = curve.Dist.front();
  std::size_t knRow = 0, portRow = 0;
  for (int i = 0; i < MostPoints && dist <= last; ++i) {
    const double Kn = InterpolateKn(curve.Dist, curve.Kn, dist, knRow);
    const double Pc = std::pow(p.A * p.CStar * p.Density * Kn, power); // Pa
    const double r = p.A * std::pow(Pc, p.N);                          // mm/s
    const double rate = p.Density * At * Kn * (r / 1000);              // g/s
    double value = Pc;
    switch (kind) {
    case ChartKind::Chart_Thrust: value = (Pc / 1000000) * At * Cf; break;
    case ChartKind::Mass_Flow_Rate: value = rate; break;
    case ChartKind::Chart_Mass_Flow: value = p.Density * At * Kn * (r * dt); break;
    case ChartKind::Chart_Mass_Flux:
    case ChartKind::Core_Gas_Velocity: {
      const double port = InterpolateKn(curve.Dist, curve.Port, dist, portRow);
      if (!(port > 0)) return false;
      const double end = oneEnd && !in.TopEnd ? whole - port : 0; // that end's gas does not pass the port
      value = p.Density * (Kn * At - end) * r / port;
      break;
    }
    default: break;
    }
    const auto stored = static_cast<float>(value);
    if (!(stored > 0) || !std::isfinite(stored) || !(r > 0) || !std::isfinite(r) || !(rate > 0)) return false;
    trace.Time.push_back(static_cast<float>(i * dt));
    trace.Value.push_back(stored);
    trace.Dist.push_back(static_cast<float>(dist));
    trace.MassFlowRate.push_back(static_cast<float>(rate));
    trace.Largest = std::max(trace.Largest, stored);
    trace.Sum += kind == ChartKind::Mass_Flow_Rate ? value / 1000 : value;
    dist += dt * r;
  }
  return true;
}

} // namespace

double CircleArea(double diameter) { return ChartPi * (diameter / 2) * (diameter / 2); }

KnCurve CurveOfTable(const MotorTable &table, const MotorInputs &in, bool withPort) {
  const double At = CircleArea(in.ThroatDiam), ends = EndsFactor(in.EndsExposed),
               whole = CircleArea(in.GrainDiam);
  KnCurve curve;
  for (const MotorRow &row : table.Row) {
    curve.Dist.push_back(row.Dist);
    curve.Kn.push_back(row.Core / At + ends * row.Ends / At);
    if (withPort) curve.Port.push_back(whole - row.Ends);
  }
  return curve;
}

KnCurve CurveOfProfile(const std::vector<KnRow> &rows) {
  KnCurve curve;
  for (const KnRow &row : rows) {
    curve.Dist.push_back(row.Dist);
    curve.Kn.push_back(row.Kn);
  }
  return curve;
}

double InterpolateKn(const std::vector<double> &dist, const std::vector<double> &value, double at,
                     std::size_t &row) {
  while (row + 1 < dist.size() && !(at <= dist[row])) ++row;
  if (row == 0) return value[0];
  return value[row - 1] + (at - dist[row - 1]) / (dist[row] - dist[row - 1]) * (value[row] - value[row - 1]);
}

bool IntegrateBurn(const KnCurve &curve, const MotorInputs &in, ChartKind kind, BurnTrace &trace) {
  if (curve.Dist.empty() || !(curve.Dist.front() < curve.Dist.back())) return false;
  float dt = 0.01f;
  double perSecond = 100; // the mass flow's own way to count
  for (;;) {
    // Each tenth is rounded to 32 bits: a step of 1e-6 may lie a little below it.
    if (dt < SmallestStep * 0.999) return false;
    BurnTrace fresh;
    fresh.TimeStep = dt;
    const double step = kind == ChartKind::Chart_Mass_Flow ? 1 / perSecond : static_cast<double>(dt);
    if (!Pass(curve, in, kind, step, fresh)) return false;
    if (fresh.Value.size() >= FewestPoints) {
      trace = std::move(fresh);
      return true;
    }
    dt /= 10;
    perSecond *= 10;
  }
}
