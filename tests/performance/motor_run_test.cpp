// A motor's figures against closed forms of its grain.
#include "burnback/designs.h"
#include "performance/motor_run.h"
#include "shell/grain_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace {

BurnRun Burn(const Design &design, double step = 0) {
  BurnRun run;
  BurnRefusal refusal;
  BurnOptions options;
  options.Step = step;
  EXPECT_TRUE(BurnDesign(design, options, run, refusal)) << refusal.Text;
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

// A run of eight times as many steps stands for the truth.
TEST(MotorRun, FinerStepsChangeNothing) {
  for (const char *folder : {TEST_DATA "/cases", TEST_SOURCE "/examples"})
    for (const auto &file : std::filesystem::directory_iterator(folder)) {
      if (file.path().extension() != ".mvd") continue;
      SCOPED_TRACE(file.path());
      Design design;
      ASSERT_EQ(ReadGrainFile(file.path(), design), "");
      const BurnRun coarse = Burn(design), fine = Burn(design, design.Doc.GrainRadius / 8000.0);
      for (const double n : {0.0, 0.3, 0.7}) {
        const MotorInputs in = InputsOf(design.Doc, n);
        MotorRun run, truth;
        std::string trouble;
        ASSERT_TRUE(RunMotor(coarse, in, run, trouble)) << trouble;
        ASSERT_TRUE(RunMotor(fine, in, truth, trouble)) << trouble;
        const MotorFigures &f = run.Figures, &t = truth.Figures;
        EXPECT_NEAR(f.MassBalance, 1, 1e-4);
        EXPECT_NEAR(f.PropellantMass / t.PropellantMass, 1, 1e-9);
        EXPECT_NEAR(f.TotalImpulse / t.TotalImpulse, 1, 1e-4);
        const double close = n > 0.5 ? 3e-3 : 1e-3; // there the pressure goes with the surface's third power
        EXPECT_NEAR(f.PeakPressure / t.PeakPressure, 1, close) << n;
        EXPECT_NEAR(f.BurnTime / t.BurnTime, 1, close) << n;
        EXPECT_NEAR(f.MeanPressure / t.MeanPressure, 1, close) << n;
      }
    }
}

TEST(MotorRun, OneEndsGasPassesThePortOnlyFromTheTop) {
  Design design = MakeDesign(50, 100, 8, 1);
  AppendRow(design.Table, MakeCircle(0, 0, 10));
  const BurnRun burn = Burn(design);
  MotorInputs in = InputsOf(design.Doc, 0.3);
  MotorRun top, bottom;
  std::string trouble;
  ASSERT_TRUE(RunMotor(burn, in, top, trouble));
  in.TopEnd = false;
  ASSERT_TRUE(RunMotor(burn, in, bottom, trouble));
  const double core = TwoPi * 10 * 100, end = Pi * (625 - 100);
  EXPECT_NEAR(top.Sample[0].MassFlux / bottom.Sample[0].MassFlux, (core + end) / core, 1e-9);
  EXPECT_NEAR(top.Sample[0].MassFlux, top.Sample[0].MassFlow / 1000 / (Pi * 100 * 1e-6), 1e-9);
}

TEST(MotorRun, ClassesDoubleFromLetterToLetter) {
  for (const auto &[impulse, name] : {std::pair{0.2, "1/8A"},
                                      {0.5, "1/4A"},
                                      {1.25, "1/2A"},
                                      {1.26, "A"},
                                      {2.5, "A"},
                                      {2.51, "B"},
                                      {160.0, "G"},
                                      {161.0, "H"},
                                      {8e7, "Z"},
                                      {1e8, "AA"},
                                      {1e300, "ZZ"}})
    EXPECT_EQ(MotorClassOf(impulse), name) << impulse;
}

TEST(MotorRun, BadInputsAreNamedAndLeaveTheRun) {
  Design design = MakeDesign(50);
  AppendRow(design.Table, MakeCircle(0, 0, 10));
  const BurnRun burn = Burn(design);
  struct Row {
    void (*Spoil)(MotorInputs &);
    const char *Says;
  };
  for (const Row &row : {Row{[](MotorInputs &in) { in.Fuel.A = 0; }, "burn rate a"},
                         {[](MotorInputs &in) { in.Fuel.A = -1; }, "burn rate a"},
                         {[](MotorInputs &in) { in.Fuel.N = 1; }, "exponent n"},
                         {[](MotorInputs &in) { in.Fuel.N = std::nan(""); }, "exponent n"},
                         {[](MotorInputs &in) { in.Fuel.N = 0.9999; }, "beyond all numbers"},
                         {[](MotorInputs &in) { in.Fuel.Density = 0; }, "density"},
                         {[](MotorInputs &in) { in.Fuel.CStar = -5; }, "c*"},
                         {[](MotorInputs &in) { in.Fuel.Isp = 0; }, "Isp"},
                         {[](MotorInputs &in) { in.ThroatDiam = 0; }, "throat"},
                         {[](MotorInputs &in) { in.GrainLength = 0; }, "length"},
                         {[](MotorInputs &in) { in.GrainDiam = 30; }, "no port"}}) {
    MotorInputs in = InputsOf(design.Doc, 0.3);
    row.Spoil(in);
    MotorRun run;
    run.Figures.BurnTime = 7;
    std::string trouble;
    EXPECT_FALSE(RunMotor(burn, in, run, trouble)) << row.Says;
    EXPECT_NE(trouble.find(row.Says), std::string::npos) << trouble;
    EXPECT_EQ(run.Figures.BurnTime, 7);
  }
}

} // namespace
