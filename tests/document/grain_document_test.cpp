// The table, the guarded slope rule and what follows from the dimensions.
#include "base/fault.h"
#include "shell/grain_document.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

TEST(SlopeRule, Table) {
  const struct {
    double X1, Y1, X2, Y2, Slope;
  } rows[] = {
      {0, 0, 10, 0, 1e-9},
      {0, 0, 0, 10, 1e6},
      {0, 0, 0, -10, 1e6},
      {0, 0, 0.00005, 3, 1e6},
      {0, 0, 0, 0, 1e-9}, // the flat rule comes first
      {0, 0, 0.00005, 0.00005, 1e-9},
      {0, 0, 10, 0.000099, 1e-9},
      {0, 0, 10, 0.0001, 0.0001 / 10},
      {0, 0, 10, -0.0001, -0.0001 / 10},
      {0, 0, 1e6, 0.0005, 1e-9}, // 5e-10 is lifted
      {0, 0, 1e6, -0.0005, -1e-9},
      {0, 0, 0.0001, 1000, 1e6}, // held to the range
      {0, 0, 0.0001, -1000, -1e6},
      {0, 0, -0.0001, -1000, 1e6},
      {1, 2, 4, 8, 2},
      {4, 8, 1, 2, 2},
      {1, 2, 4, -4, -2},
  };
  for (const auto &row : rows) {
    const Entity line = MakeLine(row.X1, row.Y1, row.X2, row.Y2);
    SCOPED_TRACE(testing::Message() << row.X2 << "," << row.Y2);
    EXPECT_EQ(line.EntType, LineType);
    EXPECT_DOUBLE_EQ(line.Slope, row.Slope);
    EXPECT_EQ(line.Intercept, row.Y1 - line.Slope * row.X1);
    EXPECT_EQ(line.CenterX, (row.X1 + row.X2) / 2);
    EXPECT_EQ(line.CenterY, (row.Y1 + row.Y2) / 2);
  }
}

TEST(EntityTable, DeletingKeepsTheOrderOfTheRest) {
  std::mt19937 random(7);
  EntityTable table;
  std::vector<double> kept;
  for (int i = 0; i < 301; ++i) {
    AppendRow(table, MakeCircle(i, 0, 1));
    kept.push_back(i);
  }
  EXPECT_THROW(AppendRow(table, MakeCircle(999, 0, 1)), Fault);
  EXPECT_EQ(table.EntCount, 300);
  EXPECT_EQ(RowAt(table, 300).CenterX, 300);
  while (table.EntCount >= 0) {
    const int i = static_cast<int>(random() % kept.size());
    DeleteRow(table, i);
    kept.erase(kept.begin() + i);
    ASSERT_EQ(table.EntCount, static_cast<int>(kept.size()) - 1);
    for (int k = 0; k <= table.EntCount; ++k)
      ASSERT_EQ(RowAt(table, k).CenterX, kept[static_cast<std::size_t>(k)]);
  }
  EXPECT_THROW(DeleteRow(table, 0), Fault);
  EXPECT_THROW(RowAt(table, 301), Fault);
  EXPECT_THROW(RowAt(table, -1), Fault);
  EXPECT_EQ(table.EntCount, -1);
}

TEST(Dimensions, WriteAllThatFollowsFromThem) {
  GrainDoc doc;
  SetDimensions(doc, 40, 100, 5, 1);
  EXPECT_EQ(doc.GrainDiam, 40);
  EXPECT_EQ(doc.GrainRadius, 20);
  EXPECT_EQ(doc.GrainLength, 100);
  EXPECT_EQ(doc.ThroatDiam, 5);
  EXPECT_EQ(doc.EndsExposed, 1);
  EXPECT_DOUBLE_EQ(doc.TolA, .02);
  EXPECT_DOUBLE_EQ(doc.TolB, .002);
  EXPECT_DOUBLE_EQ(doc.TolC, .0002);
  EXPECT_DOUBLE_EQ(doc.TolD, .00002);
  EXPECT_EQ(doc.LinerThickness, 1);
  for (const double bad : {1e40, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(SetDimensions(doc, bad, 1, 1, 0), Fault);
    EXPECT_THROW(SetDimensions(doc, 1, bad, 1, 0), Fault);
    EXPECT_THROW(SetDimensions(doc, 1, 1, bad, 0), Fault);
  }
  EXPECT_EQ(doc.GrainDiam, 40);
  EXPECT_EQ(doc.GrainLength, 100);
}

TEST(Arc, EndsLieAtItsAngles) {
  const Entity arc = MakeArc(1, 2, 5, 0, Pi / 2);
  EXPECT_EQ(arc.EntType, ArcType);
  EXPECT_NEAR(arc.X1, 6, 1e-12);
  EXPECT_NEAR(arc.Y1, 2, 1e-12);
  EXPECT_NEAR(arc.X2, 1, 1e-12);
  EXPECT_NEAR(arc.Y2, 7, 1e-12);
}

} // namespace
