#include "geometry/section.h"

#include "cut_check.h"

#include <memory>

namespace {

double LengthOf(const Entity &e) {
  if (e.EntType == LineType) return GetLineLength(e);
  return e.Radius * (e.EntType == CircleType ? TwoPi : ArcSweep(e));
}
bool Covers(const Entity &e, Point p) {
  if (Off(e, p) > 1e-6) return false;
  const double part = PartOf(e, p);
  return e.EntType == CircleType || (part > -1e-9 && part < 1 + 1e-9);
}

TEST(Section, RandomDrawingsLoseJustThePieceUnderThePointer) {
  Dice dice(41);
  int divided = 0, trimmed = 0, deleted = 0, circles = 0;
  for (int i = 0; i < 6000 * Rounds() && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << i);
    const double grain = dice.Size();
    EntityTable table;
    const int count = 1 + dice.Below(6);
    for (int k = 0; k < count; ++k) {
      Entity row = RandomRow(dice, grain * 0.7);
      AppendRow(table, row);
    }
    const Point pointer = RandomPointOn(dice, RowAt(table, dice.Below(count)));
    const Section section = SectionTrim(table, pointer, grain);
    ASSERT_TRUE(section.Found);
    const Entity old = section.Cut.Row;
    if (Off(old, pointer) > 1e-9) continue; // another row lies nearer to hand

    // The crossings by brute force, as parts of the entity; doubtful ones leave the round out.
    std::vector<double> part;
    bool doubtful = false;
    for (int k = 0; k <= count; ++k) {
      if (k == section.Cut.Index) continue;
      const Entity other = k < count ? RowAt(table, k) : CircleRow({0, 0}, grain);
      if (old.EntType != LineType && other.EntType != LineType &&
          CircleCircleRoots(CentreOf(old), old.Radius, CentreOf(other), other.Radius).Case ==
              RootCase::None &&
          !TrueCrossings(old, other).empty())
        doubtful = true;
      if (old.EntType != LineType && OffTangent(other, CentreOf(old), old.Radius) < 0.01) doubtful = true;
      if (other.EntType != LineType && OffTangent(old, CentreOf(other), other.Radius) < 0.01) doubtful = true;
      for (const Point at : TrueCrossings(old, other)) {
        const double mine = PartOf(old, at), its = PartOf(other, at);
        const double edge = std::max(0.05, 0.03 / (LengthOf(other) * LengthOf(other)));
        if (other.EntType != CircleType && (std::abs(its) < edge || std::abs(its - 1) < edge))
          doubtful = true;
        if (std::min(std::abs(mine), std::abs(mine - 1)) * LengthOf(old) < 0.1) doubtful = true;
        if ((other.EntType == CircleType || (its > 0 && its < 1)) && mine > 0 && mine < 1)
          part.push_back(mine);
        if (Distance(at, pointer) < 0.01 * grain) doubtful = true;
      }
    }
    std::sort(part.begin(), part.end());
    for (std::size_t k = 1; k < part.size(); ++k)
      if ((part[k] - part[k - 1]) * LengthOf(old) < 0.1) doubtful = true;
    if (doubtful) continue;
    const double here = PartOf(old, pointer), whole = LengthOf(old);
    double from = 0, to = 1;
    bool left = false, right = false;
    for (const double p : part)
      if (p < here) {
        from = p;
        left = true;
      } else if (!right) {
        to = p;
        right = true;
      }
    double piece = (to - from) * whole;
    if (old.EntType == CircleType) {
      if (part.size() < 2) {
        piece = whole;
      } else if (!left || !right) {
        piece = (1 - part.back() + part.front()) * whole;
      }
    }
    const auto made = std::make_unique<EntityTable>(table);
    ASSERT_EQ(Commit(*made, SectionCut(section)).Text, "");
    double length = 0, before = 0;
    for (int k = 0; k <= table.EntCount; ++k) before += LengthOf(RowAt(table, k));
    for (int k = 0; k <= made->EntCount; ++k) {
      length += LengthOf(RowAt(*made, k));
      ExpectSound(RowAt(*made, k));
    }
    const double slack = old.EntType == LineType ? 1e-6 : 2e-3 * old.Radius;
    EXPECT_NEAR(before - length, piece, slack);
    EXPECT_NEAR(LengthOf(section.Piece), piece, slack);
    EXPECT_TRUE(Covers(section.Piece, pointer));
    for (int k = 0; k <= made->EntCount; ++k)
      EXPECT_FALSE(Off(RowAt(*made, k), pointer) < 1e-9 && Covers(RowAt(*made, k), pointer) &&
                   Distance(MidOf(RowAt(*made, k)), MidOf(old)) < 1e-9);
    const int rows = made->EntCount - table.EntCount;
    if (old.EntType == CircleType)
      ++circles;
    else
      ++(rows > 0 ? divided : rows < 0 ? deleted : trimmed);
  }
  EXPECT_GT(divided, 100);
  EXPECT_GT(trimmed, 100);
  EXPECT_GT(deleted, 100);
  EXPECT_GT(circles, 100);
}

TEST(Section, CornersTheGrainCircleAndAFullTable) {
  // A box whose corners are shared ends has no crossings: each side is one piece.
  EntityTable box;
  AppendRow(box, MakeLine(-10, -10, 10, -10));
  AppendRow(box, MakeLine(10, -10, 10, 10));
  AppendRow(box, MakeLine(10, 10.0005, -10, 10));
  AppendRow(box, MakeLine(-10, 10, -10, -10));
  for (const Point p : {Point{0, -10}, {10, 0}, {0, 10}, {-10, 0}}) {
    const Section s = SectionTrim(box, p, 50);
    EXPECT_TRUE(s.Found && !s.Left.Found && !s.Right.Found);
    EXPECT_EQ(SectionCut(s).Deleted.size(), 1U);
  }
  // Trimmed at the outer edge, drawn by the user or not; the table keeps its rows.
  EntityTable spoke;
  AppendRow(spoke, MakeLine(0, 0, 80, 0));
  for (const bool drawn : {false, true}) {
    if (drawn) AddGrainCircle(spoke, 50);
    const int rows = spoke.EntCount;
    const Section s = SectionTrim(spoke, {70, 0}, 50);
    EXPECT_TRUE(s.Left.Found && !s.Right.Found);
    EXPECT_NEAR(SectionCut(s).Changed[0].Row.X2, 50, 1e-9);
    EXPECT_EQ(spoke.EntCount, rows);
  }
  const auto full = std::make_unique<EntityTable>();
  AppendRow(*full, MakeLine(-80, 3, 80, 3));
  while (full->EntCount < 300) AppendRow(*full, MakeCircle(20, -30, 1 + full->EntCount * 0.01));
  const Section s = SectionTrim(*full, {0, 3}, 50);
  ASSERT_TRUE(s.Left.Found && s.Right.Found);
  EXPECT_EQ(Commit(*full, SectionCut(s)).Text, TableFullText);
  EXPECT_EQ(RowAt(*full, 0).X1, -80);
  EXPECT_EQ(full->EntCount, 300);
  // The edge can be picked as a cutter though no row is left for it.
  EXPECT_EQ(PickRow(*full, {50, 0}, 50, {}, true).Index, 301);
  EXPECT_EQ(PickRow(spoke, {0, 50}, 50, {}, true).Index, 1);
}

} // namespace
