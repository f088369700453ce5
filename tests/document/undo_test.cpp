#include "shell/undo_ring.h"

#include "rounds.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <vector>

namespace {

std::vector<double> Marks(const EntityTable &table) {
  std::vector<double> marks;
  for (int i = 0; i <= table.EntCount; ++i) marks.push_back(RowAt(table, i).Radius);
  return marks;
}

void Change(EntityTable &table, std::mt19937_64 &random, double mark) {
  const int kind = static_cast<int>(random() % 4);
  if (kind == 0 && table.EntCount >= 0)
    DeleteRow(table, static_cast<int>(random() % static_cast<unsigned>(table.EntCount + 1)));
  else if (kind == 1)
    table.EntCount = -1; // all erased
  else
    AppendRow(table, MakeCircle(0, 0, mark));
}

// Ten to thirteen changes, erasing among them, then back as far as it goes and forward again.
TEST(Undo, AcrossTheLastSlot) {
  std::mt19937_64 random(Seed());
  for (int round = 0; round < 200 * Rounds(); ++round)
    for (std::size_t changes = 1; changes <= 14; ++changes) {
      SCOPED_TRACE(testing::Message() << "seed " << Seed() << " round " << round << " changes " << changes);
      UndoRing ring;
      EntityTable table;
      std::vector<std::vector<double>> states{Marks(table)};
      for (std::size_t k = 0; k < changes; ++k) {
        TakeSnapshot(ring, table);
        Change(table, random, static_cast<double>(k + 1));
        states.push_back(Marks(table));
      }
      const std::size_t depth = std::min<std::size_t>(changes, 10);
      for (std::size_t k = 1; k <= depth; ++k) {
        ASSERT_TRUE(Undo(ring, table));
        ASSERT_EQ(Marks(table), states[changes - k]);
      }
      EXPECT_FALSE(Undo(ring, table));
      EXPECT_EQ(Marks(table), states[changes - depth]);
      for (std::size_t k = depth; k-- > 0;) {
        ASSERT_TRUE(Redo(ring, table));
        ASSERT_EQ(Marks(table), states[changes - k]);
      }
      EXPECT_FALSE(Redo(ring, table));
    }
}

// Against a plain list of states: nothing an undo or redo gives is ever another state than the list's.
TEST(Undo, RandomWalkAgainstAList) {
  std::mt19937_64 random(Seed() + 1);
  UndoRing ring;
  EntityTable table;
  std::vector<std::vector<double>> list{Marks(table)};
  std::size_t at = 0;
  int undone = 0;
  for (int step = 0; step < 20000 * Rounds() && !testing::Test::HasFailure(); ++step) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed() << " step " << step);
    switch (random() % 5) {
    case 0:
    case 1:
      if (Undo(ring, table)) {
        ASSERT_GT(at, 0U);
        --at;
        ++undone;
      }
      break;
    case 2:
      if (Redo(ring, table)) {
        ++at;
        ASSERT_LT(at, list.size());
      }
      break;
    default:
      if (table.EntCount > 250) table.EntCount = 3;
      list.resize(at + 1);
      list[at] = Marks(table);
      TakeSnapshot(ring, table);
      Change(table, random, step);
      list.push_back(Marks(table));
      ++at;
    }
    ASSERT_EQ(Marks(table), list[at]);
  }
  EXPECT_GT(undone, 1000);
}

TEST(Undo, EmptyRingSelectionAndTemplates) {
  UndoRing ring;
  EntityTable table;
  AppendRow(table, MakeCircle(0, 0, 5));
  EXPECT_FALSE(Undo(ring, table));
  EXPECT_FALSE(Redo(ring, table));
  EXPECT_EQ(table.EntCount, 0);
  RowAt(table, 0).Selected = true;
  TakeSnapshot(ring, table, 2);
  EXPECT_EQ(ring.UndoPos, 0);
  TakeSnapshot(ring, table);
  AppendRow(table, MakeCircle(0, 0, 6));
  RowAt(table, 1).Selected = true;
  EXPECT_TRUE(Undo(ring, table));
  EXPECT_FALSE(RowAt(table, 0).Selected);
  EXPECT_TRUE(Redo(ring, table));
  EXPECT_FALSE(RowAt(table, 1).Selected);
  // A change after an undo drops what could be redone.
  EXPECT_TRUE(Undo(ring, table));
  TakeSnapshot(ring, table);
  AppendRow(table, MakeCircle(0, 0, 7));
  EXPECT_FALSE(Redo(ring, table));
  EXPECT_EQ(RowAt(table, 1).Radius, 7);
}

} // namespace
