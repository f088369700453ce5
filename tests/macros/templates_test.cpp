#include "macros/tables.h"
#include "rounds.h"
#include "scratch_folder.h"

#include "base/whole_file.h"
#include "macros/template_design.h"
#include "macros/template_values.h"
#include "macros/templates.h"

#include <cmath>
#include <filesystem>

namespace {

const TemplateFolders Shipped{TEST_BIN "/data/templates/", TEST_BIN "/data/templates/"};

MacFile Read(const std::string &key) {
  MacFile mac;
  EXPECT_EQ(ReadMacFile(FindTemplate(Shipped, key), mac), "");
  return mac;
}

TEST(Templates, AStarStandsWhereTrigonometryPutsIt) {
  const MacFile mac = Read("star"); // case does not matter
  for (const auto &[tip, valley, points, diameter] :
       {std::tuple{12.5, 4.25, 5, 40.0}, {17.0, 3.0, 11, 40.0}, {30.0, 9.0, 7, 80.0}}) {
    const std::vector<TemplateAnswer> answers{{"tiprad", std::to_string(tip)},
                                              {"VALLEYRAD", std::to_string(valley)},
                                              {"Points", std::to_string(points)}};
    Design grain;
    ASSERT_EQ(DesignFromTemplate(mac, answers, {.Diameter = diameter}, grain).Trouble, "");
    ASSERT_EQ(grain.Table.EntCount + 1, 2 * points);
    EXPECT_EQ(grain.Doc.GrainDiam, diameter);
    for (const Entity &e : RowsOf(grain.Table)) {
      const bool outward = std::hypot(e.X2, e.Y2) > std::hypot(e.X1, e.Y1);
      const double tx = outward ? e.X2 : e.X1, ty = outward ? e.Y2 : e.Y1, vx = outward ? e.X1 : e.X2,
                   vy = outward ? e.Y1 : e.Y2;
      EXPECT_NEAR(std::hypot(tx, ty), tip, 1e-9);
      EXPECT_NEAR(std::hypot(vx, vy), valley, 1e-9);
      const double half = Pi / points;
      EXPECT_NEAR(std::remainder(std::atan2(ty, tx), 2 * half), 0, 1e-9);
      EXPECT_NEAR(std::abs(std::remainder(std::atan2(vy, vx), 2 * half)), half, 1e-9);
    }
  }
}

TEST(Templates, AnswersThatCannotBeAreToldWithTheirName) {
  const MacFile mac = Read("Star");
  const auto trouble = [&](std::vector<TemplateAnswer> answers) {
    Design grain;
    grain.Table.EntCount = 4;
    const TemplateResult result = DesignFromTemplate(mac, answers, {}, grain);
    EXPECT_EQ(grain.Table.EntCount, result.Trouble.empty() ? 11 : 4);
    return result.Variable + "|" + result.Trouble;
  };
  EXPECT_EQ(trouble({}), "|");
  EXPECT_EQ(trouble({{"ValleyRad", "TipRad/3"}}), "|"); // of an earlier row
  EXPECT_EQ(trouble({{"Tip", "3"}}), "|there is no variable Tip; there are TipRad, ValleyRad, Points");
  EXPECT_EQ(trouble({{"TipRad", "0"}}),
            "TipRad|ERROR: All dimensional parameters must contain a value higher than zero! (TipRad)");
  EXPECT_EQ(trouble({{"Points", "5.5"}}), "Points|ERROR: A whole number must be entered (Points)");
  EXPECT_TRUE(trouble({{"TipRad", "ValleyRad*2"}}).starts_with("TipRad|TipRad: ")); // of a later one
  EXPECT_EQ(trouble({{"Points", "400"}}),
            "|Instruction 0 (Rotate Draw): ERROR: A number from 1 to 301 must be entered (Enter Number of "
            "Rotations: 400)");
}

TEST(Templates, PromptsHoldUnitAndRange) {
  for (const auto &[prompt, words, unit, least, most, whole] :
       {std::tuple{"Tip radius, mm [2 .. 12]", "Tip radius", "mm", 4.0, 24.0, false},
        {"Number of points [3 .. 12]", "Number of points", "", 3.0, 12.0, true},
        {"Share [0.5 .. 2]", "Share", "", 0.5, 2.0, false},
        {"Half angle, deg", "Half angle", "deg", 1.0, 25.0, false},
        {"Edit Prompts here:", "Edit Prompts here:", "", 1.0, 25.0, false},
        {"Range [5 .. 2]", "Range [5 .. 2]", "", 1.0, 25.0, false}}) {
    MacFile mac;
    SetGrainVariables(mac.Variables, 40, 100);
    mac.Variables.Row[2] = {5, "#Width", prompt, ""};
    mac.VariableNameCntr = 2;
    const TemplateVariable v = TemplateVariables(mac, 80).at(0);
    EXPECT_EQ(v.Prompt, words);
    EXPECT_EQ(v.Unit, unit);
    EXPECT_DOUBLE_EQ(v.Least, least) << prompt;
    EXPECT_DOUBLE_EQ(v.Most, most) << prompt;
    EXPECT_EQ(v.Whole, whole) << prompt;
  }
  VariableTable table;
  SetGrainVariables(table, 1, 1);
  table.Row[2].Name = "#Width";
  for (const char *bad : {"", "2a", "a b", "s", "sin", "Co", "pi", "width", "WidthTop", "Wid", "GRAIN", "e5"})
    EXPECT_NE(NameObjection(table, bad, 3), "") << bad;
  for (const char *good : {"Height", "R1", "Tip_Rad"}) EXPECT_EQ(NameObjection(table, good, 3), "") << good;
}

TEST(Templates, IndexOfTemplates) {
  const ScratchFolder scratch;
  const TemplateFolders own{(scratch.Path + "own/"), (scratch.Path + "own/")};
  std::vector<TemplateEntry> list{{"gone", ""}};
  EXPECT_EQ(ReadTemplateIndex(own, list), "");
  EXPECT_TRUE(list.empty());
  std::vector<std::string> offered;
  ASSERT_EQ(SetUpTemplates(own, Shipped, offered), "");
  ASSERT_EQ(ReadTemplateIndex(own, list), "");
  const std::size_t all = list.size();
  EXPECT_GE(all, 12u);
  EXPECT_FALSE(FindPicture(own, "WAGON wheel").empty());

  MacFile mac;
  EXPECT_EQ(AddTemplate(own, list, FindTemplate(Shipped, "Star"), mac), "Error: Duplicate Key Name in List.");
  std::filesystem::copy_file(FindTemplate(Shipped, "Star"), (scratch.Path + "My \"star.mac"));
  EXPECT_NE(AddTemplate(own, list, (scratch.Path + "My \"star.mac"), mac), "");
  std::filesystem::copy_file(FindTemplate(Shipped, "Star"), (scratch.Path + "My star.mac"));
  ASSERT_EQ(AddTemplate(own, list, (scratch.Path + "My star.mac"), mac), "");
  EXPECT_EQ(list.back(), (TemplateEntry{"My star", "Star with sharp points"}));
  EXPECT_FALSE(FindTemplate(own, "my STAR").empty());
  ASSERT_EQ(WriteWhole((scratch.Path + "empty.Mac"), "\r\n"), "");
  EXPECT_EQ(MacWords(AddTemplate(own, list, (scratch.Path + "empty.Mac"), mac)), "Error: File Empty");

  EXPECT_TRUE(MoveTemplate(list, all, 0));
  EXPECT_FALSE(MoveTemplate(list, 0, list.size()));
  list.erase(list.begin() + 3);
  ASSERT_EQ(WriteTemplateIndex(own, list), "");
  std::vector<TemplateEntry> again;
  ASSERT_EQ(ReadTemplateIndex(own, again), "");
  EXPECT_EQ(again, list);

  // One newly shipped comes, once; what was taken from the list, with its file or without, stays away.
  const std::string gone = offered[4];
  std::erase(offered, "Star");
  for (const char *made : {"Star", "My star"}) std::filesystem::remove(FindTemplate(own, made));
  std::erase_if(list, [&](const TemplateEntry &e) { return e.Key == "Star" || e.Key == gone; });
  ASSERT_EQ(WriteTemplateIndex(own, list), "");
  std::filesystem::remove(FindTemplate(own, gone));
  for (int start = 0; start < 2; ++start) {
    ASSERT_EQ(SetUpTemplates(own, Shipped, offered), "");
    ASSERT_EQ(ReadTemplateIndex(own, again), "");
    ASSERT_EQ(again.size(), list.size() + 1 - static_cast<std::size_t>(start));
    EXPECT_EQ(again.back().Key, start == 0 ? "Star" : list.back().Key);
    EXPECT_EQ(FindTemplate(own, "Star").empty(), start == 1);
    ASSERT_EQ(WriteTemplateIndex(own, list), ""); // taken from the list again
    if (start == 0) std::filesystem::remove(FindTemplate(own, "Star"));
  }
  again = list;

  ASSERT_EQ(WriteWhole(own.Template + "Templates", "\"a\",\"b\"\n\"c\",\"d\",\"e\"\n"), "");
  EXPECT_NE(ReadTemplateIndex(own, again).find("Templates: line 2"), std::string::npos);
  EXPECT_EQ(again, list);
  EXPECT_NE(FileNameObjection("a/b"), "");
}

} // namespace
