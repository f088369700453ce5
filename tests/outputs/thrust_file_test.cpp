// Thrust files as a flight simulator reads them, and the channel table.
#include "base/number_text.h"
#include "outputs/channel_table.h"
#include "outputs/thrust_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <iterator>
#include <sstream>

namespace {

// A motor of any thrust over time, by hand.
MotorRun Motor(double end, int samples, const std::function<double(double)> &thrust) {
  MotorRun run;
  double impulse = 0;
  for (int i = 0; i < samples; ++i) {
    MotorSample s;
    const double t = static_cast<double>(i) / (samples - 1);
    s.Time = t * end;
    s.Thrust = thrust(t);
    if (i > 0) impulse += (s.Time - run.Sample.back().Time) * (s.Thrust + run.Sample.back().Thrust) / 2;
    run.Sample.push_back(s);
  }
  run.Figures.BurnTime = end;
  run.Figures.TotalImpulse = impulse;
  run.Figures.MeanThrust = impulse / end;
  run.Figures.PropellantMass = 250;
  run.Figures.MotorClass = "G";
  return run;
}

double At(const std::vector<std::pair<double, double>> &points, double t) {
  for (std::size_t i = 1; i < points.size(); ++i)
    if (t <= points[i].first)
      return points[i - 1].second + (points[i].second - points[i - 1].second) * (t - points[i - 1].first) /
                                        (points[i].first - points[i - 1].first);
  return 0;
}

TEST(ThrustFile, PointsKeepTheImpulse) {
  MotorInputs inputs;
  inputs.GrainDiam = 50;
  inputs.GrainLength = 120;
  const struct {
    const char *Name;
    MotorRun Run;
    double Off; // mean distance from the curve, of the mean thrust
  } table[] = {
      {"flat", Motor(2, 900, [](double) { return 100; }), 0.003},
      {"falling to 0", Motor(3.3, 1000, [](double t) { return 80 * (1 - t * t); }), 0.005},
      {"spike", Motor(1, 33000, [](double t) { return 5 + 500 * std::exp(-std::pow((t - 0.3) / 0.004, 2)); }),
       0.02},
      {"step", Motor(8, 5000, [](double t) { return t < 0.6 ? 744 : 200 * (1 - t); }), 0.005},
      {"long tail", Motor(20, 2000, [](double t) { return 300 * std::pow(1 - t, 12); }), 0.02},
      {"waves", Motor(5, 3000, [](double t) { return 100 + 20 * std::sin(40 * t); }), 0.03},
      {"three samples", Motor(0.5, 3, [](double t) { return 10 + t; }), 0.7} /* the ends stand at 0 */,
      {"minute", Motor(2e-3, 500, [](double t) { return 2e-3 * (1.5 - t); }), 0.005},
      {"vast", Motor(120, 800, [](double t) { return 4e6 * (1 + t); }), 0.005},
  };
  for (const auto &[name, run, off] : table) {
    SCOPED_TRACE(name);
    std::istringstream in(ThrustFileText(run, inputs, "my motor; 4"));
    std::string line;
    while (std::getline(in, line) && line[0] == ';') continue;
    std::istringstream head(line);
    std::vector<std::string> word{std::istream_iterator<std::string>(head), {}};
    ASSERT_EQ(word.size(), 7u) << line;
    EXPECT_EQ(word[0], "my_motor__4");
    EXPECT_EQ(word[1], "50");
    EXPECT_EQ(word[2], "120");
    EXPECT_NEAR(Val(word[4]), 0.25, 1e-6);
    EXPECT_GE(Val(word[5]), Val(word[4]));
    std::vector<std::pair<double, double>> points{{0, 0}};
    double impulse = 0;
    for (double t = 0, f = 0; std::getline(in, line) && line[0] != ';';) {
      ASSERT_EQ(std::sscanf(line.c_str(), "%lf %lf", &t, &f), 2) << line;
      EXPECT_GT(t, points.back().first);
      EXPECT_TRUE(points.size() == 1 || points.back().second > 0) << t;
      impulse += (t - points.back().first) * (f + points.back().second) / 2;
      points.push_back({t, f});
    }
    EXPECT_LE(points.size(), 33u);
    EXPECT_EQ(points.back().second, 0);
    EXPECT_NEAR(points.back().first, run.Figures.BurnTime, 1e-4 * run.Figures.BurnTime);
    EXPECT_NEAR(impulse, run.Figures.TotalImpulse, 1e-4 * run.Figures.TotalImpulse);
    double away = 0;
    for (const MotorSample &s : run.Sample) away += std::abs(At(points, s.Time) - s.Thrust);
    EXPECT_LT(away / static_cast<double>(run.Sample.size()), off * run.Figures.MeanThrust);
  }
}

TEST(ThrustFile, AMotorWithoutThrustHasNoPoints) {
  const std::string text = ThrustFileText({}, {}, "");
  EXPECT_EQ(text.find("nan"), std::string::npos);
}

TEST(ChannelTable, OneRowPerSample) {
  MotorRun run;
  run.Sample = {{0, 0, 200, 2.5e6, 100.5, 60, 30}, {0.5, 0.25, 210, 0, 0, 0, 0}};
  EXPECT_EQ(ChannelTableText(run),
            "time_s,burn_distance_mm,kn,pressure_mpa,thrust_n,mass_flow_g_s,mass_flux_kg_s_m2\n"
            "0,0,200,2.5,100.5,60,30\n0.5,0.25,210,0,0,0,0\n");
}

} // namespace
