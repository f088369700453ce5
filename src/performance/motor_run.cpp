#include "performance/motor_run.h"

#include "performance/burn_nodes.h"
#include "performance/pressure.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <utility>

namespace {

constexpr double Gravity = 9.80665;
// The straight line between a segment's ends misses an event within it when it is wrong by both of these
// parts of the segment's and of the whole volume.
constexpr double EventPart = 1e-3, EventOfAll = 1e-6;

double GrowthOver(double x) { return std::abs(x) < 1e-8 ? 1 + x / 2 : std::expm1(x) / x; }

// The integral of db / (c K^m) over a segment on which K goes evenly from K0 to K1, or to 0 as a power of the
// way left; not finite when that takes for ever.
double SegmentTime(double way, double c, double m, double K0, double K1, double fall = 1) {
  if (K1 == 0) return fall * m < 1 ? way / (c * std::pow(K0, m) * (1 - fall * m)) : HUGE_VAL;
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
// somewhere between them: the volume says after which part of the way. Below 0: it has not.
double EventIn(const BurnNode &from, const BurnNode &to, double all) {
  const double way = to.Dist - from.Dist, burnt = from.Volume - to.Volume;
  const double even = (from.Area + to.Area) / 2 * way;
  if (std::abs(burnt - even) <= std::max(EventPart * even, EventOfAll * all)) return -1;
  const double part = (burnt / way - to.Area) / (from.Area - to.Area);
  return to.Area > 0 && part > 0 && part < 1 ? part : -1;
}

Segment SegmentOf(const BurnNode &from, const BurnNode &to, double all, const Law &law) {
  const double way = to.Dist - from.Dist, K0 = from.Area / law.At, K1 = to.Area / law.At;
  if (const double part = EventIn(from, to, all); part > 0)
    return {SegmentTime(part * way, law.c, law.m, K0, K0) +
                SegmentTime((1 - part) * way, law.c, law.m, K1, K1),
            (part * from.Area + (1 - part) * to.Area) * way};
  const double volume = to.Area == 0 ? from.Area / (1 + to.Fall) : (from.Area + to.Area) / 2;
  return {SegmentTime(way, law.c, law.m, K0, K1, to.Fall), volume * way};
}

// At n of 1/2 and more (a cusp: less) a surface that dwindles to nothing takes for ever. There the clock
// stops when the pressure has fallen for good below a hundredth of its peak, which is at this surface; else
// 0.
double LeastTimed(const std::vector<BurnNode> &node, const Law &law) {
  if (node.empty() || (law.m < 1 && law.m * node.back().Fall < 1)) return 0;
  double most = 0;
  for (const BurnNode &n : node) most = std::max(most, n.Area);
  const double least = most * std::pow(0.01, 1 / law.Power);
  return node.back().Area < least ? least : 0;
}

// The part of a segment before its surface falls to `least`, and the node there.
Segment UntilLeast(const BurnNode &from, const BurnNode &to, double least, double all, const Law &law,
                   BurnNode &at) {
  const double event = EventIn(from, to, all);
  const double even = (from.Area - least) / (from.Area - to.Area);
  const double part = event > 0 ? event : to.Area == 0 ? 1 - std::pow(least / from.Area, 1 / to.Fall) : even;
  const double way = part * (to.Dist - from.Dist), before = event > 0 ? from.Area : least;
  at = {from.Dist + way, from.Section + part * (to.Section - from.Section), least, 0};
  return {SegmentTime(way, law.c, law.m, from.Area / law.At, before / law.At),
          way * (from.Area + before) / 2};
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
  const double least = LeastTimed(node, law);
  std::size_t last = node.size(); // the node after which the clock stands
  while (least > 0 && node[last - 1].Area < least) --last;
  MotorRun fresh;
  MotorFigures &f = fresh.Figures;
  double burnt = 0, timed = 0; // mm3
  for (std::size_t i = 0; i < node.size(); ++i) {
    BurnNode at = node[i];
    if (i > 0) {
      const Segment whole = SegmentOf(node[i - 1], node[i], node[0].Volume, law);
      const Segment clocked =
          i == last ? UntilLeast(node[i - 1], node[i], least, node[0].Volume, law, at) : whole;
      burnt += whole.Volume;
      if (i > last) continue;
      f.BurnTime += clocked.Time;
      timed += clocked.Volume;
    }
    fresh.Sample.push_back(SampleOf(at, f.BurnTime, law, in));
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
