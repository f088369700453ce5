#include "base/whole_file.h"
#include "dxf/drawings.h"
#include "dxf/dxf_writer.h"
#include "dxf/tangent_arcs.h"
#include "geometry/primitives.h"
#include "shell/grain_file.h"

#include <cmath>
#include <filesystem>
#include <sstream>

namespace {
std::string Bytes(const std::string &path) {
  std::string bytes;
  EXPECT_EQ(ReadWhole(path, bytes), "");
  return bytes;
}

double Away(const Entity &row, double x, double y) { // from the row
  const double ends = std::min(std::hypot(x - row.X1, y - row.Y1), std::hypot(x - row.X2, y - row.Y2));
  if (row.EntType == LineType) {
    const double ux = row.X2 - row.X1, uy = row.Y2 - row.Y1, l = std::hypot(ux, uy);
    const double along = ((x - row.X1) * ux + (y - row.Y1) * uy) / l;
    return along < 0 || along > l ? ends : std::abs((x - row.X1) * uy - (y - row.Y1) * ux) / l;
  }
  double angle = std::atan2(y - row.CenterY, x - row.CenterX);
  if (angle < 0) angle += TwoPi;
  const double radial = std::abs(std::hypot(x - row.CenterX, y - row.CenterY) - row.Radius);
  return row.EntType == CircleType || AngleInArc(angle, row, ArcEnds::Closed) ? radial : ends;
}

double Degrees(double angle) { return std::fmod(angle / Pi * 180, 360); }
void ExpectAngle(double got, double expected) { EXPECT_NEAR(std::remainder(got - expected, 360), 0, 1e-9); }

// Blocks, mirrors, arrays, uneven scales, bulges and curves as an independent library unfolds them.
class DxfSamples : public testing::TestWithParam<const char *> {};
TEST_P(DxfSamples, ComeOutAsAnotherReaderUnfoldsThem) {
  const std::string name = std::string(TEST_DATA) + "/dxf/" + GetParam();
  Design made;
  made.Doc.JoinTolerance = 0; // nothing is drawn together
  DxfImportReport report;
  bool tooMany = false;
  ASSERT_EQ(ImportDxfFile(name + ".dxf", {5000, 0, 0.001, false}, made, report, tooMany), "");
  std::istringstream expected(Bytes(name + ".expected.csv"));
  int next = 0;
  for (std::string line; std::getline(expected, line);) {
    std::istringstream fields(line);
    std::string kind, field;
    std::getline(fields, kind, ',');
    std::vector<double> v;
    while (std::getline(fields, field, ',')) v.push_back(std::stod(field));
    SCOPED_TRACE(line.substr(0, 80));
    if (kind == "curve") {
      const int first = next;
      double worst = 0;
      for (std::size_t i = 0; i + 1 < v.size(); i += 2) {
        double least = 1e9;
        for (int row = first; row <= made.Table.EntCount; ++row)
          least = std::min(least, Away(RowAt(made.Table, row), v[i], v[i + 1]));
        worst = std::max(worst, least);
      }
      EXPECT_LT(worst, 0.001);
      const auto onCurve = [&](const Entity &row) { // its rows: those with an end at one of the points
        double least = 1e9;
        for (std::size_t i = 0; i + 3 < v.size(); i += 2)
          least = std::min(least, Away(MakeLine(v[i], v[i + 1], v[i + 2], v[i + 3]), row.X1, row.Y1));
        return least < 0.03;
      };
      while (next <= made.Table.EntCount && onCurve(RowAt(made.Table, next))) ++next;
      EXPECT_GT(next, first);
      continue;
    }
    ASSERT_LE(next, made.Table.EntCount);
    const Entity &row = RowAt(made.Table, next++);
    if (kind == "line") {
      EXPECT_EQ(row.EntType, LineType);
      EXPECT_LT(std::hypot(row.X1 - v[0], row.Y1 - v[1]) + std::hypot(row.X2 - v[2], row.Y2 - v[3]), 1e-9);
      continue;
    }
    EXPECT_EQ(row.EntType, kind == "arc" ? ArcType : CircleType);
    EXPECT_LT(std::hypot(row.CenterX - v[0], row.CenterY - v[1]) + std::abs(row.Radius - v[2]), 1e-9);
    if (kind == "arc") ExpectAngle(Degrees(row.StartAngle), v[3]), ExpectAngle(Degrees(row.EndAngle), v[4]);
  }
  EXPECT_EQ(next, made.Table.EntCount + 1);
}
INSTANTIATE_TEST_SUITE_P(All, DxfSamples,
                         testing::Values("r12_blocks", "r2000_mirrored_inches", "r2010_curves",
                                         "r2018_metres"));

TEST(DxfImport, OwnDrawingsComeBackEntityByEntity) {
  int files = 0;
  for (const char *folder : {TEST_SOURCE "/examples", TEST_DATA "/cases"})
    for (const auto &file : std::filesystem::directory_iterator(folder)) {
      if (file.path().extension() != ".mvd") continue;
      ++files;
      Design design;
      ASSERT_EQ(ReadGrainFile(file.path().string(), design), "");
      for (const DxfChoice choice :
           {DxfChoice{DxfForm::Own, false}, DxfChoice{DxfForm::Own, true},
            DxfChoice{DxfForm::PlainR12, false}, DxfChoice{DxfForm::PlainR12, true}}) {
        SCOPED_TRACE(file.path().string());
        const Imported in = ImportText(DxfText(design, choice));
        ASSERT_EQ(in.Trouble, "");
        EXPECT_EQ(in.Made.Doc.GrainRadius, design.Doc.GrainRadius);
        ASSERT_EQ(in.Made.Table.EntCount, design.Table.EntCount);
        for (int i = 0; i <= design.Table.EntCount; ++i) {
          const Entity &a = RowAt(design.Table, i), &b = in.Row(i);
          ASSERT_EQ(a.EntType, b.EntType);
          if (a.EntType == LineType) {
            for (double Entity::*m : {&Entity::X1, &Entity::Y1, &Entity::X2, &Entity::Y2})
              EXPECT_NEAR(a.*m, b.*m, 1e-10);
            continue;
          }
          for (double Entity::*m : {&Entity::CenterX, &Entity::CenterY, &Entity::Radius})
            EXPECT_NEAR(a.*m, b.*m, 1e-10);
          if (a.EntType != ArcType) continue;
          EXPECT_NEAR(a.StartAngle, b.StartAngle, 1e-11);
          EXPECT_NEAR(a.EndAngle, b.EndAngle, 1e-11);
        }
      }
    }
  EXPECT_GT(files, 15);
}

TEST(DxfImport, TangentArcsKeepTheCurve) {
  const double a = 30, b = 4, tolerance = 1e-4;
  const Curve ellipse = [&](double t) {
    return CurvePoint{{a * std::cos(t), b * std::sin(t)}, {-a * std::sin(t), b * std::cos(t)}};
  };
  std::vector<Entity> rows;
  AppendTangentArcs(ellipse, 0.1, 4, tolerance, 1000, rows);
  EXPECT_LT(rows.size(), 100u);
  for (int i = 0; i <= 5000; ++i) {
    const Point p = ellipse(0.1 + 3.9 * i / 5000).At;
    double least = 1;
    for (const Entity &row : rows) least = std::min(least, Away(row, p.X, p.Y));
    ASSERT_LE(least, tolerance);
  }
  for (std::size_t i = 1; i < rows.size(); ++i) { // two circles touch where the arcs meet
    const Entity &p = rows[i - 1], &q = rows[i];
    ASSERT_EQ(p.EntType, ArcType);
    EXPECT_LT(std::hypot(p.X2 - q.X1, p.Y2 - q.Y1), 1e-9);
    EXPECT_NEAR(std::hypot(p.CenterX - q.CenterX, p.CenterY - q.CenterY), std::abs(p.Radius - q.Radius),
                1e-9);
  }
}

TEST(DxfImport, WhatAUserMeets) {
  const std::string tube = "0 CIRCLE 10 0 20 0 40 5", rim = " 0 CIRCLE 10 0 20 0 40 20";
  EXPECT_EQ(ImportText(Drawing(tube + rim)).Made.Doc.GrainDiam, 40); // the grain's edge
  EXPECT_EQ(ImportText(Drawing(tube + rim)).Made.Table.EntCount, 0);
  EXPECT_EQ(ImportText(Drawing(tube + rim), {50, 0, 0, false}).Made.Table.EntCount, 1);
  const std::string off = "0 CIRCLE 10 100 20 50 40 5 0 CIRCLE 10 100 20 50 40 20";
  EXPECT_EQ(ImportText(Drawing(off)).Made.Table.EntCount, 1); // stays where it is
  const Imported centred = ImportText(Drawing(off), {0, 0, 0, true});
  EXPECT_EQ(centred.Made.Table.EntCount, 0);
  EXPECT_EQ(centred.Row(0).CenterX, 0);
  EXPECT_EQ(centred.Made.Doc.GrainDiam, 40);

  // A triangle with gaps of 0.004 mm (joined) and one of 0.2 (told), drawn in inches.
  const Imported open = ImportText(
      Drawing("0 LINE 10 0 20 0 11 1 21 0 0 LINE 10 1.0001 20 0 11 1 21 1 "
              "0 LINE 10 1 20 1 11 0.005 21 0.005 0 TEXT 1 a 0 TEXT 1 b 0 LINE 10 3 20 3 11 3 21 3",
              "0 SECTION 2 HEADER 9 $INSUNITS 70 1 0 ENDSEC"));
  EXPECT_EQ(open.Trouble, "");
  EXPECT_EQ(open.Row(0).X2, open.Row(1).X1);
  EXPECT_NEAR(open.Row(0).X2, 25.4, 0.01);
  EXPECT_NE(open.Words().find("inches"), std::string::npos);
  EXPECT_NE(open.Words().find("Left out: 1 LINE (without length), 2 TEXT."), std::string::npos)
      << open.Words();
  EXPECT_NE(open.Report.Problem.find("gap"), std::string::npos) << open.Report.Problem;

  std::string spirals; // too many rows at the fine tolerance
  for (int i = 0; i < 5; ++i)
    spirals += (i ? " 0 ELLIPSE 10 " : "0 ELLIPSE 10 ") + std::to_string(200 * i) + " 20 0 11 90 21 0 40 0.3";
  const Imported wide = ImportText(Drawing(spirals));
  EXPECT_EQ(wide.Trouble, "");
  EXPECT_NE(wide.Words().find("within 0.01 mm"), std::string::npos) << wide.Words();
  EXPECT_TRUE(ImportText(Drawing(spirals), {0, 0, 0.001, false}).TooMany);

  for (const char *end :
       {"\n", "\r\n", "\r", "\r\r\n"}) { // line ends, padding, comments, no EOF, doubled points
    std::string text = Pairs("999 note 0 SECTION 2 ENTITIES 0 LWPOLYLINE 70 1 10 0 20 0 42 1 10 4 20 0 10 "
                             "4 20 0 42 +1. 0 ENDSEC");
    text.replace(text.find("0\nSECTION"), 1, "  0\t");
    std::string other;
    for (const char c : text)
      if (c == '\n')
        other += end;
      else
        other += c;
    const Imported in = ImportText(other);
    EXPECT_EQ(in.Trouble, "");
    EXPECT_EQ(in.Made.Table.EntCount, 1);
    EXPECT_EQ(in.Row(0).EntType, ArcType);
    EXPECT_NEAR(in.Row(0).Radius, 2, 1e-12);
    EXPECT_NE(in.Words().find("EOF"), std::string::npos);
  }
}

TEST(DxfImport, BadFilesAreNamedByLineAndChangeNothing) {
  const std::string blocks = "0 SECTION 2 BLOCKS 0 BLOCK 2 A 10 0 20 0 0 INSERT 2 B 10 0 20 0 0 ENDBLK "
                             "0 BLOCK 2 B 10 0 20 0 0 INSERT 2 a 10 0 20 0 0 ENDBLK 0 ENDSEC";
  std::string bombs = "0 SECTION 2 BLOCKS"; // each block holds ten of the next
  for (int i = 0; i < 12; ++i) {
    bombs += " 0 BLOCK 2 K" + std::to_string(i);
    for (int k = 0; k < 10; ++k) bombs += " 0 INSERT 10 0 20 0 2 K" + std::to_string(i + 1);
    bombs += " 0 ENDBLK";
  }
  bombs += " 0 BLOCK 2 K12 0 ENDBLK 0 ENDSEC";
  const std::string line = "0 LINE 10 0 20 0 11 1 21 1";
  const struct {
    std::string Text, Trouble;
  } bad[] = {
      {"", "x.dxf: line 1: the file is empty"},
      {"hello\nworld\n",
       "x.dxf: line 1: expected a group code (a whole number), found \"hello\"; this is no DXF"},
      {std::string("AutoCAD Binary DXF\r\n\x1A\0abc", 25), "x.dxf: line 1: this is a binary DXF"},
      {std::string("0\nSECTION\n2\nENT\0", 16), "x.dxf: line 4: this is no text file"},
      {"AC1032\nxx", "x.dxf: line 1: this is a DWG file"},
      {Drawing("0 LINE 10 0 20 nan 11 1 21 1"),
       "x.dxf: line 10: LINE, group 20: expected a number, found \"nan\""},
      {Drawing("0 CIRCLE 10 0 20 0 40 1e999"), "x.dxf: line 12: CIRCLE, group 40: expected a number"},
      {Drawing("0 ARC 10 0 20 0 40 1 50 0"), "x.dxf: line 6: ARC has no group 51"},
      {Pairs("0 SECTION 2 ENTITIES " + line), "x.dxf: line 14: the file ends inside its section ENTITIES"},
      {Pairs("0 SECTION 2 ENTITIES " + line + " 11").substr(0),
       "x.dxf: line 15: the file ends behind a group code"},
      {Pairs("0 SECTION 2 HEADER 0 ENDSEC 0 EOF"), "x.dxf: line 8: the file ends without a section ENTITIES"},
      {Pairs("0 SECTION 2 ENTITIES 0 LINE x 5 0 ENDSEC 0 EOF"), "x.dxf: line 7: expected a group code"},
      {Drawing("0 TEXT 1 a"), "there is nothing in it that can be drawn. Left out: 1 TEXT."},
      {Drawing("0 INSERT 2 A 10 0 20 0", blocks), "block a is inserted into a block that it holds"},
      {Drawing("0 INSERT 2 K0 10 0 20 0", bombs), "the inserted blocks unfold to more than 200000 entities"},
      {Drawing("0 LINE 10 0 20 0 11 1e9 21 0"), "a design 1000000 mm at most"},
      {Drawing(line, "0 SECTION 2 HEADER 9 $INSUNITS 70 99 0 ENDSEC"),
       "$INSUNITS 99 names no unit of length"},
  };
  for (const auto &[text, trouble] : bad) {
    const Imported in = ImportText(text);
    EXPECT_NE(in.Trouble.find(trouble), std::string::npos) << in.Trouble << "\nexpected " << trouble;
    EXPECT_EQ(in.Trouble.rfind("x.dxf: line ", 0), 0u) << in.Trouble;
    EXPECT_EQ(in.Made.Table.EntCount, -1);
    EXPECT_EQ(in.Made.Doc.GrainRadius, 0);
  }
  std::string huge;
  for (int i = 0; i < 100000; ++i)
    huge += (i ? " 0 LINE 10 " : "0 LINE 10 ") + std::to_string(i) + " 20 0 11 1 21 1";
  const Imported in = ImportText(Drawing(huge));
  EXPECT_TRUE(in.TooMany);
  EXPECT_EQ(in.Trouble,
            "x.dxf: line 3016: too many entities: the drawing comes to 100000, a design holds 301 at most");
}
} // namespace
