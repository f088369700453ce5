// A motor's figures against closed forms of its grain.
#include "burnback/designs.h"
#include "performance/motor_run.h"
#include "shell/grain_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace {

BurnRun Burn(const Design &design) {
  BurnRun run;
  BurnRefusal refusal;
  EXPECT_TRUE(BurnDesign(design, {}, run, refusal)) << refusal.Text;
  return run;
}

MotorInputs InputsOf(const GrainDoc &doc, double n) {
  MotorInputs in;
  in.Fuel.N = n;
  in.Fuel.A = 5 / std::pow(4e6, n);
  in.ThroatDiam = doc.ThroatDiam;
  in.GrainDiam = doc.GrainDiam;
  in.GrainLength = doc.GrainLength;
  in.EndsExposed = doc.EndsExposed;
  return in;
}

// The burn from its exact surface, mm2 by burn distance, in a million steps.
struct Exact {
  double Time = 0, Mass = 0, Peak = 0, MeanPressure = 0;
};
Exact Integrate(const std::function<double(double)> &area, double end, const MotorInputs &in) {
  Exact e;
  const Propellant &p = in.Fuel;
  const double At = Pi * in.ThroatDiam * in.ThroatDiam / 4;
  const int steps = 1000000;
  const double h = end / steps;
  for (int i = 0; i < steps; ++i) {
    const double A = area((i + 0.5) * h),
                 pressure = std::pow(p.A * p.CStar * p.Density * A / At, 1 / (1 - p.N));
    e.Time += h / (p.A * std::pow(pressure, p.N));
    e.Mass += h * A * p.Density / 1000;
    e.MeanPressure += pressure * h / (p.A * std::pow(pressure, p.N));
    e.Peak = std::max(e.Peak, pressure);
  }
  e.MeanPressure /= e.Time;
  return e;
}

TEST(MotorRun, TubesAgreeWithTheirClosedForm) {
  struct Row {
    double Diameter, Core, Length, Throat, N;
    int Ends;
  };
  for (const Row &row : {Row{50, 20, 100, 8, 0.3, 0},
                         {50, 20, 100, 8, 0.3, 3},
                         {50, 20, 100, 8, 0.5, 1},
                         {50, 20, 100, 8, 0.6, 2},
                         {50, 20, 100, 8, 0, 0},
                         {50, 20, 100, 8, -0.4, 3},
                         {50, 20, 20, 8, 0.3, 3}, // the ends meet first
                         {50, 20, 9, 4, 0.55, 1}, // so does one end and the far wall
                         {6, 2, 9, 0.8, 0.3, 3},
                         {3000, 1100, 9000, 700, 0.35, 3},
                         {50, 49.9, 100, 8, 0.3, 3}}) { // two steps
    Design design = MakeDesign(row.Diameter, row.Length, row.Throat, row.Ends);
    AppendRow(design.Table, MakeCircle(0, 0, row.Core / 2));
    const MotorInputs in = InputsOf(design.Doc, row.N);
    MotorRun run;
    std::string trouble;
    ASSERT_TRUE(RunMotor(Burn(design), in, run, trouble)) << trouble;
    const int E = (row.Ends & 1) + (row.Ends >> 1);
    const double R = row.Diameter / 2, r0 = row.Core / 2, end = std::min(R - r0, E ? row.Length / E : R);
    const Exact exact = Integrate(
        [&](double b) {
          const double r = r0 + b;
          return TwoPi * r * (row.Length - E * b) + E * Pi * (R * R - r * r);
        },
        end, in);
    SCOPED_TRACE(testing::Message() << row.Core << " " << row.Length << " " << row.N);
    const MotorFigures &f = run.Figures;
    const double impulse = exact.Mass / 1000 * in.Fuel.Isp * 9.80665;
    EXPECT_NEAR(f.BurnTime / exact.Time, 1, 1e-4);
    EXPECT_NEAR(f.PeakPressure / exact.Peak, 1, 1e-4);
    EXPECT_NEAR(f.MeanPressure / exact.MeanPressure, 1, 1e-4);
    EXPECT_NEAR(f.TotalImpulse / impulse, 1, 1e-4);
    EXPECT_NEAR(f.MeanThrust / (impulse / exact.Time), 1, 1e-4);
    EXPECT_NEAR(f.PropellantMass / exact.Mass, 1, 1e-4);
    EXPECT_NEAR(f.MassBalance, 1, 1e-4);
    EXPECT_NEAR(f.DeliveredIsp / in.Fuel.Isp, 1, 1e-4);
    EXPECT_NEAR(run.Sample.back().BurnDist / end, 1, 1e-6);
    EXPECT_NEAR(run.Sample.back().Time, f.BurnTime, 1e-12);
  }
}

TEST(MotorRun, MassBalancesOnAnyDesign) {
  for (const char *folder : {TEST_DATA "/cases", TEST_SOURCE "/examples"})
    for (const auto &file : std::filesystem::directory_iterator(folder)) {
      if (file.path().extension() != ".mvd") continue;
      Design design;
      ASSERT_EQ(ReadGrainFile(file.path(), design), "");
      for (const double n : {0.3, 0.7}) {
        MotorRun run;
        std::string trouble;
        ASSERT_TRUE(RunMotor(Burn(design), InputsOf(design.Doc, n), run, trouble)) << trouble;
        EXPECT_NEAR(run.Figures.MassBalance, 1, 1e-4) << file.path();
      }
    }
}

} // namespace
