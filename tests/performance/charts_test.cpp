// The charts against a loop of their own over the same CheckFile.
#include "base/number_text.h"
#include "burnback/burn_files.h"
#include "burnback/designs.h"
#include "performance/charts.h"
#include "shell/grain_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

namespace {

constexpr ChartKind AllKinds[] = {ChartKind::KN_Chart,       ChartKind::Chart_Pressure,
                                  ChartKind::Chart_Thrust,   ChartKind::Chart_Mass_Flow,
                                  ChartKind::Mass_Flow_Rate, ChartKind::Chart_Mass_Flux,
                                  ChartKind::Area_Chart,     ChartKind::Core_Gas_Velocity};

MotorInputs InputsOf(const GrainDoc &doc) {
  MotorInputs in;
  in.ThroatDiam = doc.ThroatDiam;
  in.GrainDiam = doc.GrainDiam;
  in.GrainLength = doc.GrainLength;
  in.EndsExposed = doc.EndsExposed;
  return in;
}

// Kn, its tables and the loop again, from the bytes of the work files: rows by an ordered map, one power.
struct Literal {
  std::map<double, double> Kn, Port; // by distance; the first of equal ones
  std::vector<double> Time, Pressure, Rate, Through;
};

double At(const std::map<double, double> &table, double x) {
  const auto above = table.lower_bound(x);
  if (above == table.begin()) return above->second;
  const auto below = std::prev(above);
  return below->second + (above->second - below->second) * (x - below->first) / (above->first - below->first);
}

Literal Repeat(const std::string &checkFile, const MotorInputs &in, double step) {
  Literal l;
  const double throat = 3.141592654 * in.ThroatDiam * in.ThroatDiam / 4;
  const double grain = 3.141592654 * in.GrainDiam * in.GrainDiam / 4;
  std::istringstream lines(checkFile);
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    double core, ends, dist;
    std::sscanf(line.c_str(), "\"%lf\",\"%lf\",\"%lf\"", &core, &ends, &dist);
    const int count = in.EndsExposed == 3 ? 2 : in.EndsExposed != 0;
    l.Kn.emplace(dist, (core + count * ends) / throat);
    l.Port.emplace(dist, grain - ends);
  }
  const double last = l.Kn.rbegin()->first, n = in.Fuel.N;
  for (double x = l.Kn.begin()->first; x <= last && l.Time.size() < 30000;) {
    const double kn = At(l.Kn, x), port = At(l.Port, x);
    const double force = in.Fuel.A * in.Fuel.CStar * in.Fuel.Density * kn;
    l.Time.push_back(static_cast<double>(l.Time.size()) * step);
    l.Pressure.push_back(std::exp(std::log(force) / (1 - n)));
    l.Rate.push_back(l.Pressure.back() / (in.Fuel.CStar * in.Fuel.Density * kn));
    const double end = in.TopEnd || in.EndsExposed % 3 == 0 ? 0 : grain - port;
    l.Through.push_back((kn * throat - end) / port);
    x += step * l.Rate.back();
  }
  return l.Time.size() < 1000 ? Repeat(checkFile, in, static_cast<float>(static_cast<float>(step) / 10)) : l;
}

TEST(Charts, EqualALiteralLoop) {
  for (const auto &file : std::filesystem::directory_iterator(TEST_DATA "/cases")) {
    if (file.path().extension() != ".mvd") continue;
    Design design;
    ASSERT_EQ(ReadGrainFile(file.path(), design), "");
    for (const int ends : {0, 1, 2, 3}) {
      design.Doc.EndsExposed = static_cast<std::int16_t>(ends);
      BurnRun run;
      BurnRefusal refusal;
      ASSERT_TRUE(BurnDesign(design, {}, run, refusal)) << refusal.Text;
      MotorInputs in = InputsOf(design.Doc);
      in.TopEnd = ends == 2;
      const std::string bytes = CheckFileText(run);
      MotorTable table;
      ASSERT_EQ(ReadMotorTable(bytes, "CheckFile", table), "");
      const Literal l = Repeat(bytes, in, 0.01f);
      const double At = 3.141592654 * in.ThroatDiam * in.ThroatDiam / 4;
      for (const ChartKind kind : AllKinds) {
        SCOPED_TRACE(testing::Message() << file.path().stem() << " " << TextOf(kind).Name << " " << ends);
        PerformanceChart chart;
        ASSERT_EQ(BuildChart(kind, table, KnRowsOfRun(run, in.ThroatDiam), in, chart), ChartOutcome::Drawn);
        if (chart.OverDistance) {
          ASSERT_EQ(chart.Value.size(), run.Figures.size());
          for (std::size_t i = 0; i < chart.Value.size(); ++i)
            ASSERT_NEAR(chart.Value[i], run.Figures[i].Kn, 1e-6 * run.Figures[i].Kn + 3e-4 / At);
          continue;
        }
        if (kind == ChartKind::Chart_Mass_Flow) { // of KnProfile, finer than CheckFile
          EXPECT_NEAR(chart.X.back() / l.Time.back(), 1, 1e-2);
          EXPECT_NEAR(chart.Cursor[0] * chart.X[1] * 1000 / chart.Value[0], 1, 1e-6);
          continue;
        }
        ASSERT_EQ(chart.Value.size(), l.Time.size());
        for (std::size_t i = 0; i < l.Time.size(); ++i) {
          const double flow = in.Fuel.Density * l.Rate[i];
          const double expected = kind == ChartKind::Chart_Pressure ? l.Pressure[i]
                                  : kind == ChartKind::Chart_Thrust
                                      ? l.Pressure[i] / 1e6 * At * 180 * 9.80665 / 1500
                                  : kind == ChartKind::Mass_Flow_Rate ? l.Pressure[i] * At / 1500 / 1000
                                                                      : flow * l.Through[i];
          ASSERT_NEAR(chart.Value[i] / expected, 1, 1e-6) << i;
          ASSERT_NEAR(chart.X[i], l.Time[i], 1e-6 * l.Time[i]);
        }
      }
    }
  }
}

MotorTable Table(std::initializer_list<MotorRow> rows) { return {rows}; }
const MotorInputs Plain = [] {
  MotorInputs in;
  in.ThroatDiam = 10;
  in.GrainDiam = 50;
  in.EndsExposed = 3;
  return in;
}();

TEST(Charts, TitlesScaleLabelsAndColumns) {
  // Kn of 180 and 90: 18 labels of 10, full height 192.
  MotorInputs in = Plain;
  in.EndsExposed = 0;
  const double At = CircleArea(10);
  const MotorTable table = Table({{180 * At, 0, 1}, {90 * At, 0, 2}, {0, 0, 3}});
  PerformanceChart chart;
  ASSERT_EQ(BuildChart(ChartKind::Area_Chart, table, {}, in, chart), ChartOutcome::Drawn);
  EXPECT_EQ(chart.Title, "Burn Area / Dist (mm) Chart   Dt=10.0");
  EXPECT_NEAR(chart.FullHeight, 192, 1e-9);
  EXPECT_EQ(chart.Y_Axis[0], "10");
  EXPECT_EQ(chart.Y_Axis[17], "180");
  EXPECT_EQ(chart.Time_Axis[0], "0.3");
  EXPECT_EQ(chart.Time_Axis[9], "3.0");
  EXPECT_EQ(chart.Time_Axis[10], "0.0");
  const std::vector<double> column = ChartColumns(chart, 8),
                            expected{157.5, 135, 112.5, 90, 67.5, 45, 22.5, 0};
  ASSERT_EQ(column.size(), expected.size());
  for (int x = 0; x < 8; ++x) EXPECT_NEAR(column[x], expected[x], 1e-3);
  EXPECT_EQ(YLabelTop(18, 100, 320, 20), 100 + 320 - 300 - 8);
  EXPECT_EQ(TimeLabelLeft(5, 40, 600, 30), 40 + 300 - 15);

  in.ThroatDiam = 12.3456;
  ASSERT_EQ(BuildChart(ChartKind::Core_Gas_Velocity, Table({{9000, 100, 1}, {9000, 50, 40}}), {}, in, chart),
            ChartOutcome::Drawn);
  EXPECT_EQ(chart.Title, "Max Mass Flux (Kg/s/m^2) / Time (sec) Chart   Dt=12.346");
  for (const auto &[core, title] : {std::pair{20000.0, "Mass Flow (g/s) / Time (sec) Chart   Dt=12.346"},
                                    {200000.0, "Mass Flow (Kg/s) / Time (sec) Chart   Dt=12.346"}}) {
    ASSERT_EQ(BuildChart(ChartKind::Mass_Flow_Rate, Table({{core, 0, 1}, {core, 0, 40}}), {}, in, chart),
              ChartOutcome::Drawn);
    EXPECT_EQ(chart.Title, title) << chart.Largest;
    EXPECT_EQ(chart.UnitDivisor, chart.Largest > 1000 ? 1000 : 1);
  }
}

TEST(Charts, WithoutSenseTheyFailAndStay) {
  const MotorTable good = Table({{9000, 500, 1}, {8000, 0, 5}});
  const auto with = [](auto field, double value) {
    MotorInputs in = Plain;
    in.Fuel.*field = value;
    return in;
  };
  struct Row {
    MotorTable Rows;
    MotorInputs In;
  };
  const std::vector<Row> rows{{{}, Plain},
                              {Table({{9000, 500, 1}}), Plain},
                              {Table({{9000, 500, 1}, {9000, 500, 1}}), Plain},
                              {Table({{0, 0, 1}, {0, 0, 2}}), Plain},
                              {good, with(&Propellant::A, 0)},
                              {good, with(&Propellant::A, -1)},
                              {good, with(&Propellant::A, 1e300)},
                              {good, with(&Propellant::A, 30)}, // burns out in less than a millisecond
                              {good, with(&Propellant::N, 1)},
                              {good, with(&Propellant::N, 0.9999)},
                              {good, with(&Propellant::Density, 0)},
                              {good, with(&Propellant::Density, -1)},
                              {good, with(&Propellant::CStar, 0)},
                              {good, with(&Propellant::CStar, -1500)}};
  for (const Row &row : rows)
    for (const ChartKind kind : AllKinds) {
      const bool table = kind == ChartKind::KN_Chart || kind == ChartKind::Area_Chart;
      if (table && row.Rows.Row.size() == 2 && row.Rows.Row[1].Dist == 5) continue; // no propellant in it
      std::vector<KnRow> kn;
      for (const MotorRow &r : row.Rows.Row)
        kn.push_back({static_cast<float>(r.Dist), static_cast<float>(r.Core / CircleArea(10))});
      PerformanceChart chart;
      chart.Title = "as it was";
      EXPECT_EQ(BuildChart(kind, row.Rows, kn, row.In, chart), ChartOutcome::Failed)
          << TextOf(kind).Name << " of row " << &row - rows.data();
      EXPECT_EQ(chart.Title, "as it was");
    }
  PerformanceChart chart;
  for (const double throat : {0.0, -1.0, std::nan("")}) {
    MotorInputs in = Plain;
    in.ThroatDiam = throat;
    EXPECT_EQ(BuildChart(ChartKind::KN_Chart, good, {}, in, chart), ChartOutcome::Nothing);
  }
  EXPECT_EQ(BuildChart(ChartKind::Chart_Thrust, good, {}, with(&Propellant::Isp, 0), chart),
            ChartOutcome::Failed);
}

TEST(Charts, BadWorkFilesAreNamedByLineAndField) {
  const std::string head = "\"Core Area\",\"Ends Area\",\"Regression Dist\"\r\n";
  for (const auto &[bytes, says] :
       {std::pair<std::string, const char *>{"", "line 1 (Core Area)"},
        {"\"Core\",1,2\r\n", "line 1 (Core Area)"},
        {head + "\"1.0\",\"2.0\"\r\n", "(burn distance): expected"},
        {head + "\"1.0\",\"x\",\"0.1\"\r\n", "line 2 (ends area): expected a number, found \"x\""},
        {head + "\"1.0\",\"2.0\",\"0.2\"\r\n\"1\",\"2\",\"0.1\"\r\n",
         "line 3 (burn distance): expected no less"}}) {
    MotorTable table = Table({{1, 2, 3}});
    EXPECT_NE(ReadMotorTable(bytes, "CheckFile", table).find(says), std::string::npos) << bytes;
    EXPECT_EQ(table.Row.size(), 1u);
  }
}

TEST(Charts, ImperialRatesConvert) {
  // 0.0665 in/s at psi, n 0.319: 8.26 mm/s at 1 MPa.
  const double a = Val(Convert_Imperial_a(0.0665, 0.319));
  EXPECT_NEAR(a * std::pow(1e6, 0.319), 8.26, 0.05);
  EXPECT_EQ(Convert_Imperial_a(0.0665, 0.319).size(), std::string("0.098765").size());
  EXPECT_EQ(Convert_Imperial_a(10, 0).substr(0, 4), "254.");
  EXPECT_EQ(Convert_Imperial_a(10, 0).size(), 7u); // three places serve
  EXPECT_EQ(Convert_Imperial_a(0, 0.3), "");
  EXPECT_EQ(Convert_Imperial_a(-1, 0.3), "");
  EXPECT_EQ(Convert_Imperial_a(1, -1e9), "");
}

} // namespace
