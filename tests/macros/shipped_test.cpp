// Every shipped template draws a closed, burnable grain at any values within the ranges of its prompts, at
// any diameter, and its figures move the way its variables say.
#include "macros/tables.h"
#include "rounds.h"

#include "burnback/run_sim.h"
#include "macros/template_design.h"
#include "macros/template_values.h"
#include "macros/templates.h"

#include <cmath>
#include <map>
#include <random>

namespace {

const TemplateFolders Shipped{TEST_BIN "/data/templates/", TEST_BIN "/data/templates/"};

// Of more of the variable: -1 less propellant, 1 more, 0 either.
const std::map<std::string, std::map<std::string, int>> Ways{
    {"Tube", {{"PortRad", -1}}},
    {"Star", {{"TipRad", -1}, {"ValleyRad", -1}}},
    {"Star filleted", {{"TipRad", -1}, {"ValleyRad", -1}, {"TipFillet", 1}, {"ValleyFillet", -1}}},
    {"Finocyl", {{"Bore", -1}, {"FinTip", -1}, {"FinWidth", -1}, {"Fins", -1}}},
    {"Slotted tube", {{"Bore", -1}, {"SlotTip", -1}, {"SlotWidth", -1}, {"Slots", -1}}},
    {"Wagon wheel", {{"LobeRad", -1}, {"SpokeEnd", -1}, {"Thickness", 1}, {"Spokes", 1}}},
    {"Moon burner", {{"PortRad", -1}}},
    {"C-slot", {{"Depth", -1}, {"SlotWidth", -1}}},
    {"D", {{"PortRad", -1}, {"FlatAt", -1}}},
    {"Dogbone", {{"EndRad", -1}, {"Spread", -1}, {"Neck", -1}}},
    {"Cross", {{"Span", -1}, {"ArmWidth", -1}}},
    {"Polygon", {{"CornerRad", -1}, {"Sides", -1}}},
    {"Double anchor", {{"Bore", -1}, {"Stem", -1}, {"FlukeIn", 1}, {"FlukeOut", -1}, {"FlukeAngle", -1}}}};

std::vector<TemplateAnswer> Answers(const std::vector<TemplateVariable> &variables,
                                    const std::vector<double> &values) {
  std::vector<TemplateAnswer> to;
  for (std::size_t i = 0; i < variables.size(); ++i) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", values[i]);
    to.push_back({variables[i].Name, text});
  }
  return to;
}

TEST(ShippedTemplates, BurnAtAnyValuesInTheirRanges) {
  std::vector<TemplateEntry> list;
  ASSERT_EQ(ReadTemplateIndex(Shipped, list), "");
  EXPECT_GE(list.size(), 12u);
  std::mt19937 luck(static_cast<unsigned>(Seed()));
  std::uniform_real_distribution<double> part;
  for (const TemplateEntry &entry : list) {
    SCOPED_TRACE(entry.Key);
    MacFile mac;
    ASSERT_EQ(ReadMacFile(FindTemplate(Shipped, entry.Key), mac), "");
    EXPECT_FALSE(FindPicture(Shipped, entry.Key).empty());
    ASSERT_TRUE(Ways.contains(entry.Key));
    for (int round = 0; round < 50 * Rounds(); ++round) {
      TemplateGrain size;
      if (round % 3 == 0) size.Diameter = 10 + 190 * part(luck);
      const double diameter = size.Diameter > 0 ? size.Diameter : RecordedDiameter(mac);
      const auto variables = TemplateVariables(mac, diameter);
      std::vector<double> values;
      for (const TemplateVariable &v : variables) {
        // The ends of a range are as good as what lies between.
        const double at =
            round < 4 ? (luck() % 2 ? v.Most : v.Least) : v.Least + (v.Most - v.Least) * part(luck);
        values.push_back(v.Whole ? std::round(at) : at);
      }
      SCOPED_TRACE(testing::PrintToString(values) + " at " + std::to_string(diameter));
      const auto burn = [&](double &volume) {
        Design grain;
        const TemplateResult drawn = DesignFromTemplate(mac, Answers(variables, values), size, grain);
        ASSERT_EQ(drawn.Trouble, "");
        BurnRun run;
        BurnRefusal refusal;
        ASSERT_TRUE(BurnDesign(grain, {}, run, refusal)) << RefusalWords(refusal);
        volume = run.InitialVolume;
      };
      double before = 0, after = 0;
      burn(before);
      if (HasFatalFailure()) return;
      if (round % 5) continue;
      for (std::size_t i = 0; i < variables.size(); ++i) {
        const TemplateVariable &v = variables[i];
        const double kept = values[i], step = v.Whole ? 1 : (v.Most - v.Least) / 8;
        if (!Ways.at(entry.Key).contains(v.Name) || kept + step > v.Most) continue;
        values[i] = kept + step;
        burn(after);
        if (HasFatalFailure()) return;
        EXPECT_GT((after - before) * Ways.at(entry.Key).at(v.Name), 0) << v.Name;
        values[i] = kept;
      }
    }
  }
}

} // namespace
