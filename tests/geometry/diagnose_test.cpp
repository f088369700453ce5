#include "geometry/random_outline.h"

#include "burnback/burn_run.h"
#include "geometry/closed_outline.h"
#include "geometry/diagnose.h"

#include <gtest/gtest.h>

namespace {

GrainDoc Grain() {
  GrainDoc doc;
  SetDimensions(doc, 100, 50, 5, 3);
  return doc;
}

TEST(Diagnose, SaysWhatIsAmiss) {
  const Entity base = MakeLine(0, 0, 10, 0), up = MakeLine(10, 0, 10, 10), down = MakeLine(10, 10, 0, 0);
  const struct {
    std::vector<Entity> Row;
    const char *Words;
  } cases[] = {
      {{}, ""},
      {{base, up, down}, "The outline is closed"},
      {{base, up, MakeLine(10, 10, 0.02, 0)}, "1 gap of 0.02 mm"},
      {{base, MakeLine(10, 0.5, 10, 10), MakeLine(10, 10.0125, 0, 0)}, "2 gaps, largest 0.5 mm"},
      {{MakeLine(0, 0, 30, 0)}, "1 gap of 30 mm"},
      {{MakeLine(0, 0, 90, 0), MakeLine(90, 0, 90, 9)},
       "1 gap of 90.4 mm"}, // ends past the grain are open too
      {{base, up, down, MakeLine(10, 10, 10, 0)}, "1 duplicate entity"},
      {{MakeLine(3, 0, 7, 0), base, up, down, MakeLine(10, 2, 10, 3)}, "2 duplicate entities"},
      {{base, up, down, MakeLine(10, 10, 10.00005, 10)}, "The outline is closed, 1 entity of no length"},
      {{MakeCircle(0, 0, 5), MakeArc(0, 0, 5, 6, 1)}, "1 duplicate entity"},
      {{MakeArc(0, 0, 5, 5, 2), MakeArc(0, 0, 5, 6, 1)}, "1 gap of 9.97 mm, 1 duplicate entity"},
      {{MakeArc(0, 0, 5, 5, 2), MakeArc(0, 0, 5, 1, 3.1)}, "2 gaps, largest 8.13 mm"}, // they overlap in part
      {{MakeArc(0, 0, 5, 2, 2)}, "The outline is closed"},
      {{MakeCircle(0, 0, 5), MakeCircle(12, 0, 5)}, "2 separate outlines"},
      {{MakeCircle(0, 0, 5), MakeCircle(10, 0, 5)}, "2 separate outlines"}, // a touch is no crossing
      {{MakeCircle(0, 0, 5), MakeCircle(9, 0, 5)}, "2 crossings, 2 separate outlines"},
      {{MakeLine(0, 0, 10, 10), MakeLine(10, 10, 10, 0), MakeLine(10, 0, 0, 10), MakeLine(0, 10, 0, 0)},
       "The outline is closed, 1 crossing"},
      {{base, up, down, MakeLine(0, 0, 0, 5), MakeLine(0, 5, 10, 10)}, "more than two ends meet in 2 places"},
      {{base, up, down, MakeLine(0, 0, 0, 5)}, "1 end without a partner"},
  };
  for (const auto &c : cases) {
    EntityTable table;
    for (const Entity &row : c.Row) AppendRow(table, row);
    EXPECT_EQ(Diagnose(table, Grain()).Words, c.Words);
  }
}

double WidestJoint(const EntityTable &table) {
  double widest = 0;
  std::vector<std::pair<Point, int>> end;
  for (int i = 0; i <= table.EntCount; ++i) {
    Entity e = table.Row[static_cast<std::size_t>(i)];
    if (e.EntType == ArcType) SetArcEnds(e);
    end.insert(end.end(), {{{e.X1, e.Y1}, i}, {{e.X2, e.Y2}, i}});
  }
  for (const auto &[at, row] : end) {
    double nearest = 1e9;
    for (const auto &[other, from] : end)
      if (from != row) nearest = std::min(nearest, std::hypot(other.X - at.X, other.Y - at.Y));
    widest = std::max(widest, nearest);
  }
  return widest;
}

// Joints that gape by less than the tolerance, a duplicate and a row of no length: after closing all ends
// meet, and the burn is that of the shape.
TEST(CloseGaps, MakesRandomShapesBurn) {
  double gaped = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<Corner> corner;
    const int count = 3 + static_cast<int>(random() % 30);
    for (int i = 0; i < count; ++i) {
      const double r = 10 + 20 * part(random), a = i * 2 * Pi / count;
      corner.push_back({r * std::cos(a), r * std::sin(a), random() % 2 ? 0 : part(random) - 0.5});
    }
    const double gape = seed % 3 == 0 ? 0.2 : 0.02;
    Design design;
    design.Doc = Grain();
    const Outline shape = ChainOf(corner, gape, &random);
    design.Table = shape.Table;
    Entity again = design.Table.Row[random() % static_cast<unsigned>(count)];
    if (again.EntType == LineType) again = MakeLine(again.X2, again.Y2, again.X1, again.Y1);
    AppendRow(design.Table, again);
    AppendRow(design.Table, MakeLine(1, 1, 1, 1.00005));
    gaped += Diagnose(design.Table, design.Doc).Gaps.empty() ? 0 : 1;
    design.Doc.JoinTolerance = gape;
    ASSERT_EQ(Commit(design.Table, CloseGaps(design.Table, gape)).Text, "");
    EXPECT_EQ(design.Table.EntCount + 1, count);
    EXPECT_LE(WidestJoint(design.Table), 1e-8);
    design.Doc.JoinTolerance = 1e-6;
    const Diagnosis after = Diagnose(design.Table, design.Doc);
    EXPECT_TRUE(after.Closed);
    EXPECT_TRUE(after.Gaps.empty() && after.Extra.Duplicates.empty() && after.Extra.NoLength.empty());
    const Solution more = CloseGaps(design.Table, gape);
    EXPECT_TRUE(more.Changed.empty() && more.Deleted.empty());
    if (seed % 10 != 0) continue;
    BurnOptions step;
    step.Step = 0.5;
    BurnRun run;
    BurnRefusal refusal;
    if (!after.Crossings.empty()) continue; // drawn so: edges of neighbours bulge through each other
    EXPECT_TRUE(BurnDesign(design, step, run, refusal)) << refusal.Text;
    EXPECT_NEAR(run.SectionAtStart, Pi * 2500 - shape.Area, shape.Perimeter * gape);
  }
  EXPECT_GT(gaped, 200); // by the usual tolerance most of them were open
}

// What CloseGaps may not do: move an arc that has a line beside it, or join what gapes too far.
TEST(CloseGaps, KeepsArcsBesideLinesAndWideGaps) {
  EntityTable table;
  AppendRow(table, MakeArc(0, 0, 5, 0, Pi));
  AppendRow(table, MakeLine(-5, -0.004, -5, -8));
  AppendRow(table, MakeLine(-5.02, -8, 5, -8));
  AppendRow(table, MakeLine(5.003, -7.997, 5.003, 0));
  const Solution closed = CloseGaps(table, 0.01);
  ASSERT_EQ(closed.Changed.size(), 3u);
  EntityTable after = table;
  ASSERT_EQ(Commit(after, closed).Text, "");
  EXPECT_EQ(after.Row[0].EndAngle, Pi);
  EXPECT_NEAR(after.Row[1].X1, -5, 1e-12);
  EXPECT_NEAR(after.Row[1].Y1, 0, 1e-12);
  EXPECT_EQ(after.Row[2].X1, -5.02);
  EXPECT_NEAR(after.Row[2].X2, 5.003, 1e-5); // where the two lines cross
  EXPECT_EQ(after.Row[2].X2, after.Row[3].X1);
  EXPECT_NEAR(after.Row[3].Y1, -8, 1e-12);
  EXPECT_NEAR(after.Row[3].X2, 5, 1e-12);
}

} // namespace
