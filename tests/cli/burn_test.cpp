#include "cli/program.h"

#include <regex>
#include <sstream>
#include <vector>

namespace {

using Burn = Program;

double JsonNumber(const std::string &json, const std::string &key) {
  std::smatch found;
  EXPECT_TRUE(std::regex_search(json, found, std::regex("\"" + key + "\": ([-+.0-9eE]+)")))
      << key << " in " << json;
  return found.empty() ? 0 : std::stod(found[1]);
}

std::vector<std::vector<std::string>> Table(const std::string &text) {
  std::vector<std::vector<std::string>> rows;
  std::stringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::vector<std::string> row;
    std::stringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
    if (line.back() == ',') row.emplace_back();
    rows.push_back(row);
  }
  return rows;
}

TEST_F(Burn, ReportTableJsonAndPictures) {
  ASSERT_EQ(Run("burn '" + Star + "' --table t.csv --svg s.svg --png p.png"), 0) << Err;
  EXPECT_EQ(Err, "");
  for (const char *text : {"Max burn area", "Max Kn", "Ap/At", "Volume loading", "Sliver fraction",
                           "Neutrality", "Web", "End of burn", "Steps", "Propellant volume", "Section check"})
    EXPECT_NE(Out.find(text), std::string::npos) << text;
  const auto rows = Table(Read("t.csv"));
  ASSERT_GT(rows.size(), 500u);
  EXPECT_EQ(rows[0].size(), 7u);
  EXPECT_EQ(Read("t.csv").find('\r'), std::string::npos);
  EXPECT_EQ(Read("p.png").substr(1, 3), "PNG");
  EXPECT_NE(Read("s.svg").find("<svg"), std::string::npos);

  ASSERT_EQ(Run("burn '" + Star + "' --json"), 0);
  const double area = std::stod(rows[100][3]) + std::stod(rows[100][4]);
  EXPECT_NEAR(area, std::stod(rows[100][5]), 1e-6 * area);
  double best = 0;
  for (std::size_t i = 1; i < rows.size(); ++i) best = std::max(best, std::stod(rows[i][5]));
  EXPECT_NEAR(JsonNumber(Out, "max_burn_area_mm2"), best, 1e-9 * best);
  EXPECT_EQ(JsonNumber(Out, "steps"), static_cast<double>(rows.size() - 1));
  EXPECT_NEAR(JsonNumber(Out, "burn_end_mm"), std::stod(rows.back()[0]), 1e-9);
  EXPECT_LT(JsonNumber(Out, "section_check"), 1e-3);
}

TEST_F(Burn, DimensionsOnTheCommandLineWin) {
  ASSERT_EQ(Run("burn '" + Star + "' --throat 0 --ends none --length 50 --json --table t.csv"), 0) << Err;
  EXPECT_NE(Out.find("\"max_kn\": null"), std::string::npos);
  EXPECT_NE(Out.find("\"ap_at\": null"), std::string::npos);
  const auto rows = Table(Read("t.csv"));
  EXPECT_EQ(rows[5][6], ""); // no Kn without a throat
  EXPECT_EQ(rows[5][4], "0");
  EXPECT_NEAR(std::stod(rows[5][3]), 50 * std::stod(rows[5][1]), 1e-6);
  ASSERT_EQ(Run("burn '" + Star + "' --diameter 200 --step 0.5 --table u.csv"), 0) << Err;
  EXPECT_EQ(Table(Read("u.csv"))[1][0], "0.25");
}

TEST_F(Burn, WorkFilesStandOnlyWhereAsked) {
  std::filesystem::create_directories(Folder / "work");
  ASSERT_EQ(Run("burn '" + Star + "' --workdir work"), 0) << Err;
  EXPECT_TRUE(std::filesystem::exists(Folder / "work/GraphicFile"));
  EXPECT_TRUE(std::filesystem::exists(Folder / "work/CheckFile"));
  EXPECT_TRUE(std::filesystem::is_empty(Folder / "home"));
}

TEST_F(Burn, FailuresSayWhyAndLeaveTheOutputsAlone) {
  std::string grain;
  ASSERT_EQ(ReadWhole(Star, grain), "");
  Write("open.mvd", grain.substr(0, grain.rfind("\r\n", grain.size() - 3) + 2));
  Write("broken.mvd", "\"Version1_1\"\r\n20\r\nabc\r\n");
  Write("old.csv", "old");
  const struct {
    const char *Arguments;
    int Code;
    const char *Words;
  } table[] = {
      {"burn open.mvd --table old.csv", 1, "Error:"},
      {"burn broken.mvd --table old.csv", 2, "broken.mvd: line 3"},
      {"burn absent.mvd --table old.csv", 2, "absent.mvd"},
      {"burn . --table old.csv", 2, "."},
      {"burn STAR --table old.csv --png /nowhere/p.png", 2, "/nowhere/p.png"},
      {"burn STAR --table old.csv --svg old.csv", 2, "old.csv"},
      {"burn STAR --table old.csv --svg ./old.csv", 2, "two outputs"},
      {"burn STAR --table old.csv --svg /dev/full", 2, "/dev/full"},
      {"burn STAR --table STAR", 2, "the grain file itself"},
      {"burn STAR --table old.csv --workdir /nowhere", 2, "/nowhere"},
      {"burn STAR --table old.csv --step 0", 2, "--step"},
      {"burn STAR --table old.csv --step nan", 2, "--step"},
      {"burn STAR --table old.csv --step 1000", 2, "step"},
      {"burn STAR --table old.csv --diameter -5", 2, "--diameter"},
      {"burn STAR --table old.csv --length inf", 2, "--length"},
      {"burn STAR --table old.csv --ends C", 2, "--ends"},
      {"burn STAR --table old.csv --colour red", 2, "--colour"},
      {"burn STAR --table old.csv --diameter 1", 1, "Can't"}, // the core is all outside
      {"burn", 2, "FILE.mvd"},
      {"", 2, "subcommand"},
      {"fly", 2, "subcommand"},
      {"/Kn Gd=40", 2, "Gd="},
      {"/Kn Gd=1e-45 Gl=9 Ea=1 Eb=1 Td=1", 2, "Gd="},
      {"open.mvd /Kn Gd=100 Gl=9 Ea=1 Eb=1 Td=1", 1, "at x = "},
      {"broken.mvd /Kn Gd=100 Gl=9 Ea=1 Eb=1 Td=1", 2, "broken.mvd: line 3"},
      {"absent.mvd /Kn Gd=100 Gl=9 Ea=1 Eb=1 Td=1", 2, "absent.mvd"},
  };
  for (const auto &t : table) {
    std::string arguments = t.Arguments;
    for (auto at = arguments.find("STAR"); at != arguments.npos;
         at = arguments.find("STAR", at + Star.size()))
      arguments.replace(at, 4, "'" + Star + "'");
    EXPECT_EQ(Run(arguments), t.Code) << t.Arguments << ": " << Err;
    EXPECT_NE(Err.find(t.Words), std::string::npos) << t.Arguments << ": " << Err;
    EXPECT_EQ(Out, "") << t.Arguments;
    EXPECT_EQ(Read("old.csv"), "old") << t.Arguments;
  }
  int files = 0; // no drafts stay behind
  for ([[maybe_unused]] const auto &entry : std::filesystem::directory_iterator(Folder)) ++files;
  EXPECT_EQ(files, 6); // home, out.txt, err.txt and the three written here
}

TEST_F(Burn, BatchKnRun) {
  ASSERT_EQ(Run("'" + Star + "' /Kn Gd=100 Gl=160 Ea=1 Eb=0 Td=12"), 0) << Err;
  const auto rows = Table(Read("home/KnProfile"));
  ASSERT_GT(rows.size(), 500u);
  ASSERT_EQ(Run("burn '" + Star + "' --diameter 100 --length 160 --ends A --throat 12 --table t.csv"), 0);
  const auto table = Table(Read("t.csv"));
  ASSERT_EQ(rows.size() + 1, table.size());
  for (std::size_t i = 0; i < rows.size(); ++i)
    EXPECT_NEAR(std::stod(rows[i][1]), std::stod(table[i + 1][6]), 1e-9);
  EXPECT_EQ(Run("/Kn Gd=100 Gl=160 Ea=1 Eb=0 Td=12"), 1); // no design at hand
  EXPECT_NE(Err.find("Can't Simulate End Burning Geometries"), std::string::npos);
}

} // namespace
