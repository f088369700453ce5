// Whole runs against an independent program's figures, and what must not change them.
#include "base/number_text.h"
#include "thermochem/nozzle.h"
#include "thermochem/pep_mixes.h"

#include <cctype>
#include <cmath>
#include <map>
#include <sstream>

namespace {

std::vector<std::string> Split(const std::string &line, const std::string &by) {
  std::vector<std::string> part;
  std::size_t from = 0;
  for (std::size_t at; (at = line.find(by, from)) != std::string::npos; from = at + by.size())
    part.push_back(line.substr(from, at - from));
  part.push_back(line.substr(from));
  return part;
}

Weights WeightsOf(const std::string &told) {
  Weights mix;
  for (const std::string &one : Split(told, " + ")) {
    const std::size_t blank = one.rfind(' ');
    mix.emplace_back(one.substr(0, blank), Val(one.substr(blank)));
  }
  return mix;
}

std::string Capitals(std::string text) {
  for (char &c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

double MolesOf(const PepOutcome &out, const std::string &name) {
  static const std::map<std::string, std::string> other = {
      {"AL2O3(L)", "AL2O3L"}, {"K2CO3(L)", "K2CO3L"}, {"K2SO4(L)", "K2SO4L"}, {"MGO(CR)", "MGO(S)"}};
  const auto found = other.find(name);
  const std::string &own = found == other.end() ? name : found->second;
  for (int i = 1; i <= out.Species.SpeciesCount; ++i)
    if (Capitals(out.Species.Name[i]) == own) return out.Case[0].Point[Shifting][Chamber].Moles[i];
  ADD_FAILURE() << name;
  return 0;
}

void Near(double got, const std::string &told, double percent, const std::string &what) {
  if (told.empty()) return;
  EXPECT_NEAR(got / Val(told), 1, percent / 100) << what << ": " << got << " for " << told;
}

// Intensive figures of a case, for holding two runs against each other.
std::vector<double> Figures(const PepOutcome &out, std::size_t k = 0) {
  std::vector<double> f;
  const PepCase &c = out.Case[k];
  for (const PepMode mode : {Shifting, Frozen}) {
    f.push_back(c.Point[mode][Throat].CStar); // where the throat lies is soft: its flux is a flat maximum
    for (const PepStation at : {Chamber, Exit1, Exit2}) {
      const PepPoint &p = c.Point[mode][at];
      for (const double x :
           {p.Temperature, p.Gamma, p.MeanGasWeight, p.Impulse, p.VacuumImpulse, p.AreaRatio})
        f.push_back(x);
    }
  }
  return f;
}

void Same(const std::vector<double> &a, const std::vector<double> &b, double part) {
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(a[i], b[i], part * (std::abs(b[i]) + 1e-3)) << i;
}

} // namespace

TEST(PepRun, ReachesTheFiguresOfAnIndependentProgram) {
  std::string text;
  ASSERT_EQ(ReadWhole(TEST_DATA "/thermochem/reference.csv", text), "");
  std::istringstream lines(text);
  std::string line;
  std::getline(lines, line);
  int rows = 0;
  while (std::getline(lines, line)) {
    std::vector<std::string> f = Split(line, ",");
    ASSERT_GE(f.size(), 21U);
    const PepOutcome out = RunPep(MixInputs(WeightsOf(f[2]), Val(f[3]), Val(f[3])), ShippedFiles());
    ASSERT_TRUE(out.Done && out.Converged) << line;
    const PepCase &c = out.Case[0];
    const PepPoint &chamber = c.Point[Shifting][Chamber];
    const std::string at = f[0] + " " + f[3] + " ";
    Near(chamber.Temperature, f[4], 0.2, at + "chamber");
    Near(c.Point[Shifting][Throat].CStar, f[5], 0.3, at + "c*");
    Near(chamber.GasMoles, f[7], 0.2, at + "gas moles");
    Near(chamber.MeanGasWeight, f[8], 0.2, at + "gas weight");
    Near(chamber.Gamma, f[11], 0.2, at + "gamma");
    Near(c.Point[Shifting][Exit1].Impulse, f[13], 0.2, at + "impulse shifting");
    Near(c.Point[Frozen][Exit1].Impulse, f[14].empty() ? f[17] : f[14], 0.3, at + "impulse frozen");
    Near(c.Point[Shifting][Exit1].Temperature, f[15], 0.5, at + "exit shifting");
    Near(c.Point[Frozen][Exit1].Temperature, f[16], 0.5, at + "exit frozen");
    Near(c.Point[Shifting][Exit2].Impulse, f[18], 0.3, at + "impulse to vacuum");
    Near(c.Point[Shifting][Exit2].Temperature, f[19], 1, at + "vacuum exit");
    for (const std::string &told : Split(f[20], " ")) {
      const std::vector<std::string> pair = Split(told, ":");
      if (Val(pair[1]) >= 0.01) Near(MolesOf(out, Capitals(pair[0])), pair[1], 1, at + pair[0]);
    }
    ++rows;
  }
  EXPECT_EQ(rows, 28);
}

TEST(PepRun, WeightAndOrderChangeNothing) {
  const std::vector<double> plain = Figures(RunPep(MixInputs(Metallised), ShippedFiles()));
  Weights mix = Metallised;
  for (auto &[name, weight] : mix) weight *= 3.7;
  Same(Figures(RunPep(MixInputs(mix), ShippedFiles())), plain, 2e-5);
  std::swap(mix[0], mix[2]);
  Same(Figures(RunPep(MixInputs(mix), ShippedFiles())), plain, 2e-5);
  DataFiles turned = ShippedFiles();
  const auto condensed = std::find_if(turned.Species.begin(), turned.Species.end(),
                                      [](const SpeciesRecord &r) { return r.Mark != 1; });
  std::reverse(turned.Species.begin(), condensed);
  std::reverse(condensed, turned.Species.end());
  Same(Figures(RunPep(MixInputs(Metallised), turned)), plain, 1e-4);
}

TEST(PepRun, WarmAndColdStartsAgreeInEitherOrder) {
  for (const Weights &mix : {Metallised, Sugar}) {
    const PepOutcome warm = RunPep(MixInputs(mix, 2, 10, MaxCases), ShippedFiles());
    const PepOutcome back = RunPep(MixInputs(mix, 10, 2, MaxCases), ShippedFiles());
    ASSERT_TRUE(warm.Converged && back.Converged);
    for (const std::size_t k : {0U, 6U, 14U}) {
      const double p = warm.Case[k].ChamberPressure;
      Same(Figures(RunPep(MixInputs(mix, p, p), ShippedFiles())), Figures(warm, k), 1e-4);
      Same(Figures(back, k), Figures(warm, k), 1e-9);
    }
  }
}

TEST(PepRun, TheTableFollowsTheIsentrope) {
  const PepOutcome out = RunPep(MixInputs(Metallised), ShippedFiles());
  const PepCase &c = out.Case[0];
  for (const PepMode mode : {Shifting, Frozen}) {
    ASSERT_EQ(c.Expansion[mode].size(), 100U);
    for (std::size_t k = 1; k < 100; ++k) {
      const ExpansionRow &row = c.Expansion[mode][k], &before = c.Expansion[mode][k - 1];
      ASSERT_TRUE(row.Stands && row.Pressure < before.Pressure && row.Vacuum > before.Vacuum) << k;
    }
    // The exit was balanced by itself; the table meets it at its area ratio, and at its pressure.
    const PepPoint &exit = c.Point[mode][Exit1];
    const ExpansionRow row = ExpansionAt(out, c, mode, exit.AreaRatio);
    EXPECT_NEAR(row.Pressure, exit.Pressure, 1e-3);
    EXPECT_NEAR(row.Vacuum, exit.VacuumImpulse, 0.01);
    EXPECT_NEAR(ExpansionTo(out, c, mode, exit.Pressure).Temperature, exit.Temperature, 0.1);
    EXPECT_NEAR(ImpulseAgainst(row, row.Pressure), row.Optimum, 1e-9);
    EXPECT_FALSE(ExpansionAt(out, c, mode, 0.5).Stands);
    // No pressure around the throat has more flux.
    for (const double part : {0.8, 0.97, 1.03, 1.2}) {
      const ExpansionRow beside = ExpansionTo(out, c, mode, part * c.Point[mode][Throat].Pressure);
      EXPECT_GE(beside.Ratio, 1 - 2e-4) << part;
    }
  }
}

TEST(PepRun, BadInputsAreToldAndNothingIsNoNumber) {
  const std::vector<std::pair<PepInputs, std::string>> refused = [] {
    PepInputs cold = MixInputs(Sugar), huge = MixInputs(Sugar, 1, 1e9), none = MixInputs(Sugar, 0, 5),
              nan = MixInputs(Sugar);
    cold.Temperature = -400;
    nan.UpperPressure = std::nan("");
    return std::vector<std::pair<PepInputs, std::string>>{{cold, "temperature"},
                                                          {huge, "pressure"},
                                                          {none, "pressure"},
                                                          {nan, "pressure"},
                                                          {MixInputs({{"SUCROSE", 0}}), "weight"},
                                                          {MixInputs({{"SUCROSE", -1}}), "weight"}};
  }();
  for (const auto &[in, word] : refused) {
    const PepOutcome out = RunPep(in, ShippedFiles());
    EXPECT_FALSE(out.Done);
    EXPECT_NE(out.Trouble.find(word), std::string::npos) << out.Trouble;
  }
  DataFiles bare = ShippedFiles();
  std::erase_if(bare.Species, [](const SpeciesRecord &r) {
    return r.AtomicNumber[0] == 13 || r.AtomicNumber[1] == 13 || r.AtomicNumber[2] == 13 ||
           r.AtomicNumber[3] == 13;
  });
  const PepOutcome out = RunPep(MixInputs(Metallised), bare);
  EXPECT_FALSE(out.Done);
  EXPECT_NE(out.Trouble.find("NO COMBUSTION SPECIES FOR Al REVISE JANNAF..DAT"), std::string::npos)
      << out.Trouble;
}

TEST(PepRun, WhatCannotExpandSaysSo) {
  const PepOutcome metal = RunPep(MixInputs({{"IRON", 100}}), ShippedFiles());
  ASSERT_TRUE(metal.Done);
  EXPECT_NEAR(metal.Case[0].Point[Shifting][Chamber].Temperature, 298, 1);
  EXPECT_FALSE(metal.Case[0].Point[Shifting][Exit1].Stands);
  ASSERT_FALSE(metal.Case[0].Notes.empty());
  EXPECT_NE(metal.Case[0].Notes[0].find("no gas"), std::string::npos);
  const PepOutcome salt = RunPep(MixInputs({{"SODIUM BICARBONATE", 100}}), ShippedFiles());
  ASSERT_TRUE(salt.Done);
  EXPECT_TRUE(salt.Converged); // its own solid is a product
  EXPECT_NEAR(salt.Case[0].Point[Shifting][Chamber].Temperature, 298, 3);
  const PepOutcome oxygen = // as a gas it would have to be colder than any product
      RunPep(MixInputs({{"OXYGEN LIQUID 90K", 100}}), ShippedFiles());
  EXPECT_FALSE(oxygen.Converged);
  EXPECT_FALSE(oxygen.Case[0].Notes.empty());
  const PepOutcome low = RunPep(MixInputs(Sugar, 0.05, 0.05), ShippedFiles());
  ASSERT_EQ(low.Case[0].Notes.size(), 1U);
  EXPECT_EQ(low.Case[0].Notes[0], "Why is the Exit Pressure greater than the Chamber Pressure?");
}
