#include "cli/program.h"

#include <cmath>
#include <map>
#include <sstream>
#include <vector>

namespace {

using Pep = Program;

std::vector<std::string> Split(const std::string &text, char at) {
  std::vector<std::string> parts;
  std::stringstream fields(text);
  for (std::string field; std::getline(fields, field, at);) parts.push_back(field);
  return parts;
}

using Case = std::map<std::string, std::string>;

// Of the program's own form: a case a line; species by "species.NAME". Keys in the order they came.
std::vector<Case> Cases(const std::string &json, std::string *keys = nullptr) {
  std::vector<Case> cases;
  for (const std::string &line : Split(json, '\n')) {
    if (line.rfind("  {", 0) != 0) continue;
    Case one;
    std::string prefix, key;
    if (keys) keys->clear();
    for (std::size_t at = 3; at < line.size(); ++at) {
      if (line[at] == '"') {
        const std::size_t end = line.find('"', at + 1);
        key = line.substr(at + 1, end - at - 1);
        if (keys && prefix.empty()) *keys += key + " ";
        at = end + 2;
        if (line.compare(at, 2, " {") == 0) {
          prefix = key + ".";
          ++at;
          continue;
        }
        const std::size_t stop = line.find_first_of(",}", at);
        one[prefix + key] = line.substr(at + 1, stop - at - 1);
        at = stop;
      }
      if (line[at] == '}') prefix.clear();
    }
    cases.push_back(one);
  }
  return cases;
}

double Number(const Case &one, const std::string &key) {
  const auto at = one.find(key);
  EXPECT_NE(at, one.end()) << key;
  return at == one.end() ? NAN : std::atof(at->second.c_str());
}

std::string Capitals(std::string name) {
  for (char &c : name) c = static_cast<char>(std::toupper(c));
  return name;
}

// Moles of a species by the reference's name, which tells phases as (L) and (CR); -1: not there.
double MolesOf(const std::map<std::string, double> &found, std::string name) {
  name = Capitals(name);
  std::vector<std::string> names{name};
  if (const auto at = name.find("(L)"); at != name.npos) names.push_back(name.substr(0, at) + "L");
  if (const auto at = name.find("(CR)"); at != name.npos) names.push_back(name.substr(0, at) + "(S)");
  for (const std::string &own : names)
    if (const auto at = found.find(own); at != found.end()) return at->second;
  return -1;
}

const std::string Composite = "pep 'AMMONIUM PERCHLORATE=68' 'HTPB R-45M=14' 'ALUMINUM=18' ";
const char *const Keys =
    "pc_mpa t_chamber_k cstar_ms gas_moles_per_100g mean_mw_gas gamma isp_1atm_shifting_s "
    "isp_1atm_frozen_s t_exit_shifting_k t_exit_frozen_k isp_vac_exit_shifting_s "
    "isp_vac_exit_frozen_s t_vac_exit_shifting_k converged ";

TEST_F(Pep, AgreesWithAnIndependentProgram) {
  std::string text;
  ASSERT_EQ(ReadWhole(TEST_DATA "/thermochem/reference.csv", text), "");
  const std::vector<std::string> lines = Split(text, '\n');
  const std::vector<std::string> head = Split(lines.at(0), ',');
  ASSERT_EQ(lines.size(), 29u);
  int species = 0;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::vector<std::string> fields = Split(lines[i], ',');
    Case row;
    for (std::size_t k = 0; k < fields.size(); ++k) row[head[k]] = fields[k];
    std::string arguments = "pep --json --species --pressure " + row["Pc_MPa"] + ":" + row["Pc_MPa"];
    std::string mix = row["ingredients_wt_pct"];
    for (std::size_t at; !mix.empty(); mix.erase(0, at == mix.npos ? at : at + 3)) {
      at = mix.find(" + ");
      std::string part = mix.substr(0, at);
      part[part.rfind(' ')] = '=';
      arguments += " '" + part + "'";
    }
    ASSERT_EQ(Run(arguments), 0) << Err;
    const std::vector<Case> cases = Cases(Out);
    ASSERT_EQ(cases.size(), 15u);
    const Case &one = cases[7];
    EXPECT_EQ(one.at("converged"), "true");
    if (row["Isp_frozen_1atm_s"].empty()) row["Isp_frozen_1atm_s"] = row["Isp_frozen_1atm_any_range_s"];
    const struct {
      const char *Key, *Column;
      double Percent;
    } table[] = {{"t_chamber_k", "T_chamber_K", 0.2},
                 {"cstar_ms", "cstar_shifting_m_s", 0.3},
                 {"gas_moles_per_100g", "gas_moles_per_100g", 0.2},
                 {"mean_mw_gas", "mean_mw_gas_g_mol", 0.2},
                 {"gamma", "gamma_frozen_chamber", 0.2},
                 {"isp_1atm_shifting_s", "Isp_shifting_1atm_s", 0.2},
                 {"isp_1atm_frozen_s", "Isp_frozen_1atm_s", 0.3},
                 {"t_exit_shifting_k", "T_exit_shifting_K", 0.5},
                 {"t_exit_frozen_k", "T_exit_frozen_K", 0.5},
                 {"isp_vac_exit_shifting_s", "Isp_shifting_Pe2_s", 0.3},
                 {"t_vac_exit_shifting_k", "T_exit_shifting_Pe2_K", 1}};
    for (const auto &t : table) {
      if (row[t.Column].empty()) continue;
      const double expected = std::stod(row[t.Column]);
      EXPECT_NEAR(Number(one, t.Key), expected, t.Percent / 100 * expected) << lines[i] << ": " << t.Key;
    }
    std::map<std::string, double> found;
    for (const auto &[key, value] : one)
      if (key.rfind("species.", 0) == 0) found[Capitals(key.substr(8))] = std::stod(value);
    for (const std::string &amount : Split(row["species_moles_per_100g"], ' ')) {
      const double expected = std::stod(amount.substr(amount.rfind(':') + 1));
      if (expected <= 0.01) continue;
      EXPECT_NEAR(MolesOf(found, amount.substr(0, amount.rfind(':'))), expected, 0.01 * expected)
          << amount << " in " << lines[i];
      ++species;
    }
  }
  EXPECT_GT(species, 100);
}

TEST_F(Pep, OutputsAgreeAndPressuresRise) {
  ASSERT_EQ(Run(Composite + "--json --pressure 10:2 --table t.csv"), 0) << Err;
  EXPECT_NE(Err.find("More than 30 %"), std::string::npos);
  const std::string json = Out;
  std::string keys;
  const std::vector<Case> cases = Cases(json, &keys);
  ASSERT_EQ(cases.size(), 15u);
  EXPECT_EQ(keys, Keys);
  EXPECT_EQ(json.rfind("{\"cases\": [", 0), 0u);
  for (int k = 0; k < 15; ++k) EXPECT_NEAR(Number(cases[k], "pc_mpa"), 2 + k * 8.0 / 14, 1e-6);
  const std::vector<std::string> table = Split(Read("t.csv"), '\n');
  ASSERT_EQ(table.size(), 16u);
  EXPECT_EQ(Split(table[3], ',')[1], cases[2].at("t_chamber_k"));

  ASSERT_EQ(Run(Composite + "--json"), 0);
  EXPECT_EQ(Out, json); // either way round
  ASSERT_EQ(Run("pep 'aluminum=36' 'AMMONIUM  PERCHLORATE=136' 'htpb r-45m=28' --json"), 0) << Err;
  for (int k = 0; k < 15; ++k) // of twice the weight, in another order
    for (const char *key : {"t_chamber_k", "cstar_ms", "gas_moles_per_100g", "isp_1atm_shifting_s"})
      EXPECT_NEAR(Number(Cases(Out)[k], key) / Number(cases[k], key), 1, 2e-4) << key;

  ASSERT_EQ(Run(Composite + "--expansion 10 --frozen --species"), 0);
  for (const char *words :
       {"AMMONIUM PERCHLORATE", "Frozen composition", "Ivac s", "chamber", "Al2O3l", "More than 30 %"})
    EXPECT_NE(Out.find(words), std::string::npos) << words;
  EXPECT_EQ(Err, "");
  ASSERT_EQ(Run("pep 'POTASSIUM NITRATE=75' CHARCOAL=15 SULFUR=10"), 0);
  EXPECT_NE(Out.find("The heat of formation of CHARCOAL is an estimate"), std::string::npos);
}

TEST_F(Pep, SweepTellsTheVariedWeight) {
  ASSERT_EQ(Run(Composite + "--sweep 'AMMONIUM PERCHLORATE=60:80:10,HTPB R-45M' --pressure 7:7 --json"), 0)
      << Err;
  const std::vector<Case> swept = Cases(Out);
  ASSERT_EQ(swept.size(), 45u);
  EXPECT_EQ(Number(swept[0], "sweep_weight"), 60);
  EXPECT_EQ(Number(swept[44], "sweep_weight"), 80);
  ASSERT_EQ(Run("pep 'AMMONIUM PERCHLORATE=70' 'HTPB R-45M=12' 'ALUMINUM=18' --pressure 7:7 --json"), 0);
  EXPECT_NEAR(Number(swept[20], "cstar_ms"), Number(Cases(Out)[0], "cstar_ms"), 1e-3);
}

TEST_F(Pep, RefusalsAreOneClearMessage) {
  Write("old.csv", "old");
  const std::string eleven = "SUCROSE=1 UREA=1 WATER=1 RDX=1 HMX=1 TNT=1 PETN=1 TATB=1 NTO=1 GAP=1 PVC=1";
  const struct {
    std::string Arguments, Words;
  } table[] = {
      {"'AMONIUM PERCLORATE=68'", "did you mean \"AMMONIUM PERCHLORATE\""},
      {"XYZZYX=5", "There is no ingredient \"XYZZYX\""},
      {"'=5'", "There is no ingredient"},
      {"SUCROSE", "NAME=WEIGHT"},
      {"SUCROSE=0", "SUCROSE: expected a weight above 0"},
      {"SUCROSE=-1", "SUCROSE: expected a weight above 0"},
      {"SUCROSE=", "SUCROSE: expected a weight above 0"},
      {"SUCROSE=nan", "SUCROSE: expected a weight above 0"},
      {"SUCROSE=5g", "SUCROSE: expected a weight above 0"},
      {"SUCROSE=1e300", "SUCROSE"},
      {eleven, "at most 10 ingredients"},
      {"SUCROSE=1 --pressure 0:5", "--pressure"},
      {"SUCROSE=1 --pressure -1:5", "--pressure"},
      {"SUCROSE=1 --pressure 1:1e9", "--pressure"},
      {"SUCROSE=1 --pressure 1:2:3", "--pressure"},
      {"SUCROSE=1 --pressure x", "--pressure"},
      {"SUCROSE=1 --temperature 1e6", "--temperature"},
      {"SUCROSE=1 --temperature -300", "--temperature"},
      {"SUCROSE=1 --expansion 0.5", "--expansion"},
      {"SUCROSE=1 --sweep SUCROSE=1:2", "--sweep"},
      {"SUCROSE=1 --sweep SUCROSE=0:1:0.5,UREA", "not among the ingredients"},
      {"SUCROSE=1 UREA=1 --sweep SUCROSE=0:9:0.5,UREA", "too much"},
      {"SUCROSE=1 UREA=1 --sweep SUCROS=0:9:0.5,UREA", "did you mean \"SUCROSE\""},
      {"SUCROSE=1 --data /nowhere", "/nowhere/pepcoded.daf"},
      {"SUCROSE=1 --table /nowhere/t.csv", "/nowhere/t.csv"},
      {"", "NAME=WEIGHT"},
  };
  for (const auto &t : table) {
    const bool named = t.Arguments.find("--table") != std::string::npos;
    EXPECT_EQ(Run("pep " + t.Arguments + (named ? "" : " --table old.csv")), 2) << t.Arguments << ": " << Err;
    EXPECT_NE(Err.find(t.Words), std::string::npos) << t.Arguments << ": " << Err;
    EXPECT_EQ(Out, "") << t.Arguments;
    EXPECT_EQ(Read("old.csv"), "old") << t.Arguments;
  }
}

TEST_F(Pep, AnIngredientIsOneLineInATable) {
  std::filesystem::create_directories(Folder / "source");
  for (const char *name : {"species.csv", "ingredients.csv"})
    std::filesystem::copy(std::string(TEST_SOURCE "/data/") + name, Folder / "source" / name);
  Write("source/ingredients.csv",
        Read("source/ingredients.csv") + "MY OXIDISER,N:1 H:4 Cl:1 O:4,-602,,1.95,,,B,me\n");
  const std::string tool = "'" TEST_BIN "/morvandel-data' ";
  ASSERT_EQ(std::system((tool + "'" + At("source") + "' '" + At("") + "'").c_str()), 0);
  ASSERT_EQ(Run("data check ."), 0) << Err;
  EXPECT_NE(Out.find("197 ingredients"), std::string::npos);
  ASSERT_EQ(Run("pep 'MY OXIDISER=80' 'HTPB R-45M=20' --json --data ."), 0) << Err;
  const std::string own = Out;
  ASSERT_EQ(Run("pep 'AMMONIUM PERCHLORATE=80' 'HTPB R-45M=20' --json"), 0) << Err;
  EXPECT_EQ(own, Out);

  Write("source/ingredients.csv", Read("source/ingredients.csv") + "WORSE,C:1.5,0,,1,,,B,me\n");
  EXPECT_NE(std::system((tool + "'" + At("source") + "' '" + At("") + "' 2>/dev/null").c_str()), 0);
  EXPECT_EQ(Run("data check ."), 0); // the old files stay
  Write("jannaf.daf", Read("jannaf.daf").substr(0, 9999));
  EXPECT_EQ(Run("data check ."), 2);
  EXPECT_NE(Err.find("jannaf.daf: record 66: cut off"), std::string::npos) << Err;
}

} // namespace
