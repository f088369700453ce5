// The results file: what a spreadsheet reads of it, against a tube in closed form.
#include "base/number_text.h"
#include "burnback/designs.h"
#include "burnback/results_export.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> Lines(const std::string &text) {
  std::vector<std::string> line;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find("\r\n", at);
    EXPECT_NE(end, std::string::npos);
    line.push_back(text.substr(at, end - at));
    EXPECT_EQ(line.back().find('\n'), std::string::npos);
    at = end + 2;
  }
  return line;
}

// As a spreadsheet parts a line: commas within quotes stay, two quotes there are one.
std::vector<std::string> Cells(const std::string &line) {
  std::vector<std::string> cell{""};
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"')
      cell.back() += line[i++];
    else if (c == '"')
      quoted = !quoted;
    else if (c == ',' && !quoted)
      cell.emplace_back();
    else
      cell.back() += c;
  }
  return cell;
}

Design Tube() {
  Design tube = MakeDesign(50.8, 120, 0.5, 1);
  AppendRow(tube.Table, MakeCircle(0, 0, 10));
  return tube;
}

std::string Export(const Design &design, double step, const ResultsForm &form = {}) {
  std::string text;
  BurnRefusal refusal;
  EXPECT_TRUE(ExportResults(design, {}, step, form, text, refusal)) << refusal.Text;
  return text;
}

TEST(ResultsFile, RowsAreASpreadsheetsModel) {
  const double s = 0.7;
  const std::vector<std::string> line = Lines(Export(Tube(), s));
  const int N = 22; // 10 + 22 x 0.7 = 25.4, the wall: there the surface still lies within the grain
  ASSERT_NEAR(static_cast<double>(line.size()), 6 + N, 1);
  const std::size_t rows = line.size() - 6;
  const std::string n = std::to_string(rows);
  EXPECT_EQ(line[0], "Results for Parameters:");
  EXPECT_EQ(line[1], "Grain Diam,Grain Length,Ends Exposed,Throat Diam,,,,,a (coefficient),,n "
                     "(exponent),,Propellant Density,,Propellant c*");
  EXPECT_EQ(line[2], "mm,mm,,mm,,,,,(metric),,,,g/cm^2,,m/s*");
  EXPECT_EQ(line[3], "50.8,120,1,0.5,,,,,0.15,,0.3,,1.7,,1300");
  EXPECT_EQ(line[4], "");
  EXPECT_EQ(line[5], "Burn Dist,Core Area,Conduit Area,Ends Area,Total Area,Kn Ratio,Pressure,Burn "
                     "Rate,Time,,Time,,Kn Ratio,Pressure");
  float time = 0;
  for (std::size_t i = 0; i < rows; ++i) {
    const std::vector<std::string> cell = Cells(line[i + 6]);
    const std::string R = std::to_string(i + 7), above = std::to_string(i + 6);
    const double b = static_cast<double>(i + 1) * s, r = 10 + b;
    ASSERT_EQ(cell.size(), 14u);
    EXPECT_NEAR(Val(cell[0]), b, 1e-5);
    EXPECT_NEAR(Val(cell[1]), (120 - b) * TwoPi * r, 0.05);
    EXPECT_NEAR(Val(cell[2]) + Val(cell[3]), Pi * 25.4 * 25.4, 1e-3); // one end burns
    EXPECT_NEAR(Val(cell[4]), Val(cell[1]) + Val(cell[3]), 0.01);
    EXPECT_EQ(cell[5], "=E" + R + "/((D4/2)^2*pi())");
    EXPECT_EQ(cell[6], "=(F" + R + "*O4*M4*I4)^(1/(1-K4))");
    EXPECT_EQ(cell[7], "=G" + R + "/(F" + R + "*O4*M4)");
    EXPECT_EQ(cell[8], "=if(A" + above + "=\"Burn Dist\",0,(A7/H" + R + ")+I" + above + ")");
    EXPECT_EQ(cell[9], "");
    EXPECT_EQ(cell[10], NumberText(time));
    EXPECT_EQ(cell[11], "1");
    for (const char column : {'F', 'G'}) {
      const std::string match = "MATCH(K" + R + ",offset(I7,0,0," + n + ",1)";
      EXPECT_EQ(cell[column == 'F' ? 12 : 13], std::string("=SUMPRODUCT(LINEST(OFFSET(") + column + "7," +
                                                   match + ",1)-1,0,2,1),OFFSET(I7," + match +
                                                   ")-1,0,2,1))*(K" + R + ":L" + R + "))");
    }
    time += 0.01f;
  }
  EXPECT_NE(line[6].find("=\"\"Burn Dist\"\","), std::string::npos);
}

TEST(ResultsFile, WhatTheDialogChooses) {
  ResultsForm form;
  form.Header = "Static test,\r\nno. 4";
  form.IncludeDimensions = false;
  form.Column = {true, false, true, false, false, false};
  std::vector<std::string> line = Lines(Export(Tube(), 0, form));
  EXPECT_EQ(line[0], "Static test,  no. 4");
  EXPECT_EQ(line[1], "Burn Dist,Conduit Area,,Pressure,Burn Rate,Time,,Time,,Kn Ratio,Pressure");
  EXPECT_NEAR(static_cast<double>(line.size()), 2 + 15.4 / 0.254, 1.5); // a hundredth of the radius
  EXPECT_EQ(Cells(line[2]).size(), 14u);
  EXPECT_EQ(Cells(line[2])[5], "=E7/((D4/2)^2*pi())");

  form = {};
  form.TemplateName = "Star";
  form.TemplateValue = {{"Points", 6}, {"Tip", 0.25}};
  line = Lines(Export(Tube(), 5, form));
  EXPECT_EQ(line[5], "Results for Template Parameters for Star:");
  EXPECT_EQ(line[6], "Points,Tip,");
  EXPECT_EQ(line[7], ",6,0.25");
  EXPECT_EQ(line[8], "");
}

TEST(ResultsFile, LengthGoneFirstEndsTheRows) {
  Design disc = MakeDesign(50, 10, 5, 3);
  AppendRow(disc.Table, MakeCircle(0, 0, 10));
  EXPECT_EQ(Lines(Export(disc, 0.5)).size(), 6u + 9); // at 10 x 0.5 both ends have met
  std::string text = "kept";
  BurnRefusal refusal;
  for (const double bad : {-1.0, 25.1, 0.001, 6.0}) {
    refusal = {};
    EXPECT_FALSE(ExportResults(disc, {}, bad, {}, text, refusal)) << bad;
    EXPECT_NE(refusal.Text, "") << bad;
    EXPECT_EQ(text, "kept");
  }
}

} // namespace
