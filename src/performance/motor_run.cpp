#include "performance/motor_run.h"

#include "performance/burn_nodes.h"
#include "performance/pressure.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <utility>

namespace {

constexpr double Gravity = 9.80665;
// Above this part of a segment's volume the straight line between its ends misses an event within it.
constexpr double EventPart = 2e-5;

double GrowthOver(double x) { return std::abs(x) < 1e-8 ? 1 + x / 2 : std::expm1(x) / x; }

// The integral of db / (c K^m) over a segment on which K goes evenly from K0 to K1; not finite when K reaches
// 0 and m is 1 or more.
double SegmentTime(double way, double c, double m, double K0, double K1) {
  if (K0 == 0) std::swap(K0, K1);
  if (K1 == 0) return way / (c * std::pow(K0, m) * (1 - m));
  const double ratio = std::log(K1 / K0);
  return way / (c * std::pow(K0, m)) * GrowthOver((1 - m) * ratio) / GrowthOver(ratio);
}

struct Law {
  double At = 0;       // mm2
  double c = 0, m = 0; // burn rate c Kn^m, mm/s
  double Power = 0, Force = 0;
};

Law LawOf(const MotorInputs &in) {
  const Propellant &p = in.Fuel;
  Law law;
  law.At = Pi * (in.ThroatDiam / 2) * (in.ThroatDiam / 2);
  law.Power = 1 / (1 - p.N);
  law.m = p.N / (1 - p.N);
  law.Force = p.A * p.CStar * p.Density;
  law.c = p.A * std::pow(law.Force, law.m);
  return law;
}

MotorSample SampleOf(const BurnNode &node, double time, const Law &law, const MotorInputs &in) {
  const Propellant &p = in.Fuel;
  MotorSample s;
  s.Time = time;
  s.BurnDist = node.Dist;
  s.Kn = node.Area / law.At;
  if (!(s.Kn > 0)) return s; // the end of a surface that has dwindled to nothing
  const double rate = law.c * std::pow(s.Kn, law.m);
  s.Pressure = std::pow(law.Force * s.Kn, law.Power);
  s.Thrust = s.Pressure / 1e6 * law.At * p.Isp * Gravity / p.CStar;
  s.MassFlow = p.Density * node.Area * rate / 1000;
  const bool oneEnd = (in.EndsExposed & 3) == 1 || (in.EndsExposed & 3) == 2;
  const double through = node.Area - (oneEnd && !in.TopEnd ? node.Section : 0);
  s.MassFlux = p.Density * through * rate / (Pi * in.GrainDiam * in.GrainDiam / 4 - node.Section);
  return s;
}

struct Segment {
  double Time = 0, Volume = 0; // s, mm3
};

// Where the line between both ends misses the volume that really burns, the surface has changed at once
// somewhere between them: the volume says where.
Segment SegmentOf(const BurnNode &from, const BurnNode &to, const Law &law) {
  const double way = to.Dist - from.Dist, burnt = from.Volume - to.Volume;
  const double even = (from.Area + to.Area) / 2 * way;
  const double K0 = from.Area / law.At, K1 = to.Area / law.At;
  if (std::abs(burnt - even) > EventPart * even && from.Area > 0 && to.Area > 0) {
    const double part = (burnt / way - to.Area) / (from.Area - to.Area);
    if (part > 0 && part < 1)
      return {SegmentTime(part * way, law.c, law.m, K0, K0) +
                  SegmentTime((1 - part) * way, law.c, law.m, K1, K1),
              (part * from.Area + (1 - part) * to.Area) * way};
  }
  return {SegmentTime(way, law.c, law.m, K0, K1), even};
}

// At n of 1/2 and more a surface that dwindles to nothing takes for ever. There the clock stops when the
// pressure has fallen for good below a hundredth of its peak: the last node that is timed.
std::size_t LastTimed(const std::vector<BurnNode> &node, const Law &law) {
  std::size_t last = node.empty() ? 0 : node.size() - 1;
  if (law.m < 1) return last;
  double peak = 0;
  for (const BurnNode &n : node) peak = std::max(peak, n.Area);
  while (last > 0 && std::pow(node[last].Area / peak, law.Power) < 0.01) --last;
  return last;
}

double ChartTime(const BurnRun &run, const MotorInputs &in) {
  BurnTrace trace;
  const KnCurve curve = CurveOfTable(TableOfRun(run), in, false);
  return IntegrateBurn(curve, in, ChartKind::Chart_Pressure, trace) ? trace.Time.back() : 0;
}

bool AllFinite(const MotorSample &s) {
  for (const double v : {s.Time, s.Kn, s.Pressure, s.Thrust, s.MassFlow, s.MassFlux})
    if (!std::isfinite(v)) return false;
  return true;
}

} // namespace

std::string CheckInputs(const MotorInputs &in) {
  const Propellant &p = in.Fuel;
  struct Field {
    const char *Name;
    double Value;
    const char *Unit;
  };
  for (const Field &f :
       {Field{"burn rate a", p.A, "mm/s at Pa"}, Field{"density", p.Density, "g/cc"},
        Field{"c*", p.CStar, "m/s"}, Field{"Isp", p.Isp, "s"}, Field{"throat diameter", in.ThroatDiam, "mm"},
        Field{"grain diameter", in.GrainDiam, "mm"}, Field{"grain length", in.GrainLength, "mm"}})
    if (!(f.Value > 0) || !std::isfinite(f.Value))
      return fmt::format("The {} must be above 0 ({}), it is {}", f.Name, f.Unit, f.Value);
  if (!(p.N < 1) || !std::isfinite(p.N))
    return fmt::format("The burn rate exponent n must be below 1, it is {}", p.N);
  return {};
}

std::string MotorClassOf(double totalImpulse) {
  if (!(totalImpulse > 1.25 / 4)) return "1/8A";
  if (totalImpulse <= 1.25 / 2) return "1/4A";
  if (totalImpulse <= 1.25) return "1/2A";
  int letter = 0;
  for (double most = 2.5; totalImpulse > most && letter < 26 * 27 - 1; most *= 2) ++letter;
  std::string name(1, static_cast<char>('A' + letter % 26));
  if (letter >= 26) name.insert(0, 1, static_cast<char>('A' + letter / 26 - 1));
  return name;
}

bool RunMotor(const BurnRun &burn, const MotorInputs &in, MotorRun &run, std::string &trouble) {
  trouble = CheckInputs(in);
  if (!trouble.empty()) return false;
  const std::vector<BurnNode> node = BurnNodes(burn, in.GrainLength, in.EndsExposed);
  const Law law = LawOf(in);
  MotorRun fresh;
  MotorFigures &f = fresh.Figures;
  const std::size_t lastTimed = LastTimed(node, law);
  double burnt = 0, timed = 0; // mm3
  for (std::size_t i = 0; i < node.size(); ++i) {
    if (i > 0) {
      const Segment s = SegmentOf(node[i - 1], node[i], law);
      burnt += s.Volume;
      if (i > lastTimed) continue;
      f.BurnTime += s.Time;
      timed = burnt;
    }
    fresh.Sample.push_back(SampleOf(node[i], f.BurnTime, law, in));
    const MotorSample &s = fresh.Sample.back();
    if (!AllFinite(s) || s.MassFlux < 0) {
      trouble = s.MassFlux < 0 ? "The grain diameter leaves no port for the gas"
                               : "The motor cannot be worked out: a pressure or time is beyond all numbers";
      return false;
    }
    f.PeakPressure = std::max(f.PeakPressure, s.Pressure);
    f.PeakThrust = std::max(f.PeakThrust, s.Thrust);
  }
  if (!(f.BurnTime > 0) || !(timed > 0) || !(f.PeakPressure > 0)) {
    trouble = "The motor cannot be worked out: nothing burns";
    return false;
  }
  const Propellant &p = in.Fuel;
  const double mass = p.Density * burnt / 1000;
  f.PropellantMass = p.Density * burn.SectionAtStart * in.GrainLength / 1000;
  f.MassBalance = mass / f.PropellantMass;
  // Pressure over time is c* times the mass flow through the throat.
  f.MeanPressure = p.CStar * p.Density * timed / law.At / f.BurnTime;
  f.TotalImpulse = p.Isp * Gravity * mass / 1000;
  f.MeanThrust = f.MeanPressure / 1e6 * law.At * p.Isp * Gravity / p.CStar;
  f.DeliveredIsp = f.TotalImpulse / (f.PropellantMass / 1000 * Gravity);
  f.MotorClass = MotorClassOf(f.TotalImpulse);
  f.ChartBurnTime = ChartTime(burn, in);
  run = std::move(fresh);
  return true;
}
