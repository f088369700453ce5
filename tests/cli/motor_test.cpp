// Motors and sweeps through the program itself.
#include "base/number_text.h"
#include "cli/program.h"

#include <map>
#include <sstream>

namespace {

struct Motor : Program {
  const std::string Tube = TEST_SOURCE "/examples/tube.mvd";

  // Of what was printed as JSON.
  double Figure(const std::string &key) const {
    const auto at = Out.find('"' + key + "\": ");
    EXPECT_NE(at, Out.npos) << key;
    return at == Out.npos ? 0 : Val(Out.substr(at + key.size() + 4, 30));
  }
  std::vector<std::map<std::string, std::string>> Rows(const std::string &name) const {
    std::istringstream lines(Read(name));
    std::string line, cell;
    std::vector<std::string> head;
    std::vector<std::map<std::string, std::string>> rows;
    while (std::getline(lines, line)) {
      std::istringstream cells(line);
      std::size_t column = 0;
      if (!head.empty()) rows.emplace_back();
      while (std::getline(cells, cell, ','))
        if (rows.empty())
          head.push_back(cell);
        else
          rows.back()[head.at(column++)] = cell;
    }
    return rows;
  }
};

TEST_F(Motor, FiguresTableChartThrustFileAndReport) {
  ASSERT_EQ(Run("motor '" + Tube +
                "' --json --a 0.05 --n 0.35 --throat 9 --table t.csv --chart pressure "
                "--svg c.svg --eng m.eng --report r.pdf"),
            0)
      << Err;
  const auto rows = Rows("t.csv");
  ASSERT_GT(rows.size(), 100u);
  double impulse = 0;
  for (std::size_t i = 1; i < rows.size(); ++i)
    impulse += (Val(rows[i].at("time_s")) - Val(rows[i - 1].at("time_s"))) *
               (Val(rows[i].at("thrust_n")) + Val(rows[i - 1].at("thrust_n"))) / 2;
  EXPECT_NEAR(impulse / Figure("total_impulse_ns"), 1, 1e-5);
  EXPECT_NEAR(Val(rows.back().at("time_s")), Figure("burn_time_s"), 1e-9);
  EXPECT_NEAR(Figure("mass_balance"), 1, 1e-5);
  EXPECT_NEAR(Figure("chart_burn_time_s") / Figure("burn_time_s"), 1, 0.01);
  EXPECT_NEAR(Figure("mean_thrust_n") * Figure("burn_time_s") / Figure("total_impulse_ns"), 1, 1e-9);
  EXPECT_EQ(Read("c.svg").substr(0, 5), "<?xml");
  EXPECT_EQ(Read("r.pdf").substr(0, 5), "%PDF-");
  EXPECT_NE(Read("m.eng").find("tube"), std::string::npos);
}

TEST_F(Motor, BadUseIsOneMessageAndWritesNothing) {
  for (const auto &[arguments, says] :
       {std::pair<const char *, const char *>{"--a 0", "burn rate a"},
        {"--a 0 --chart thrust --svg c.svg", "Error generating Thrust Chart"},
        {"--n 1", "exponent n"},
        {"--n 0.9999", "beyond all numbers"},
        {"--density -1", "density"},
        {"--cstar 0", "c*"},
        {"--throat 0", "throat"},
        {"--propellant none", "there is no none in the library; it holds: KNSU"},
        {"--propellant KNSU --a 3", "excludes"},
        {"--chart kn", "--svg"},
        {"--report none/r.pdf", "none/r.pdf"}}) {
    EXPECT_EQ(Run("motor '" + Tube + "' --table t.csv --eng m.eng " + arguments), 2) << arguments;
    EXPECT_NE(Err.find(says), std::string::npos) << Err;
    EXPECT_FALSE(std::filesystem::exists(At("t.csv"))) << arguments;
    EXPECT_FALSE(std::filesystem::exists(At("m.eng"))) << arguments;
  }
  EXPECT_EQ(Run("motor '" TEST_SOURCE "/tests/corpus/refused_all_rows_twice.mvd'"), 1);
  Write("home/propellants.txt", "[A]\na = x\n");
  EXPECT_EQ(Run("motor '" + Tube + "' --propellant A"), 2);
  EXPECT_NE(Err.find("propellants.txt: line 2 (a): expected a number"), std::string::npos) << Err;
}

TEST_F(Motor, ASweepsRowsAreThoseOfSingleMotors) {
  ASSERT_EQ(Run("sweep '" + Tube + "' '" + Star +
                "' --length 60:80:10 --throat 8,9.5 --propellant KNSB KNDX "
                "--table s.csv"),
            0)
      << Err;
  const auto rows = Rows("s.csv");
  ASSERT_EQ(rows.size(), 24u);
  for (const std::size_t i : {0u, 7u, 13u, 23u}) {
    const auto &row = rows[i];
    const std::string same = "'" + row.at("file") + "' --json --length " + row.at("length_mm") +
                             " --throat " + row.at("throat_mm");
    ASSERT_EQ(Run("motor " + same + " --propellant " + row.at("propellant")), 0) << Err;
    for (const char *key : {"burn_time_s", "peak_pressure_mpa", "total_impulse_ns", "chart_burn_time_s"})
      EXPECT_EQ(Val(row.at(key)), Figure(key)) << key;
    ASSERT_EQ(Run("burn " + same), 0);
    for (const char *key : {"max_kn", "ap_at", "neutrality", "propellant_volume_mm3", "steps"})
      EXPECT_EQ(Val(row.at(key)), Figure(key)) << key;
  }
  EXPECT_EQ(rows[0].at("file"), Tube);
  EXPECT_EQ(rows[1].at("propellant"), "KNDX");
  EXPECT_EQ(rows[23].at("length_mm"), "80");

  EXPECT_EQ(Run("sweep '" TEST_SOURCE "/tests/corpus/refused_all_rows_twice.mvd' '" + Tube + "'"), 1);
  EXPECT_NE(Out.find("tube.mvd,"), std::string::npos); // the good file's row stands
  for (const char *bad : {"--length 60:160", "--length 60:160:-10", "--throat 0:2:1", "--n 1", "--a x",
                          "--length 1:1000000:0.001", "--propellant nothing"})
    EXPECT_EQ(Run("sweep '" + Tube + "' " + bad + " --table no.csv"), 2) << bad;
  EXPECT_FALSE(std::filesystem::exists(At("no.csv")));
}

TEST_F(Motor, AnInterruptedSweepLeavesTheRowsDone) {
  const std::string command = "cd '" + Folder.string() +
                              "' && timeout --preserve-status -s INT 1 '" TEST_BIN "/morvandel-cli' sweep '" +
                              Tube + "' --length 60:160:0.01 --throat 8,9,10 --table s.csv 2>err.txt";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 130);
  const std::string text = Read("s.csv");
  EXPECT_EQ(text.back(), '\n');
  const auto rows = Rows("s.csv");
  ASSERT_GT(rows.size(), 0u);
  EXPECT_LT(rows.size(), 30003u);
  for (const auto &row : rows) ASSERT_EQ(row.size(), rows[0].size());
}

} // namespace
