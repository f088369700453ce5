#include "desktop/journey.h"
#include "drafting/command_table.h"

namespace {
TEST(Typing, ANumberAndTwoEntersDrawWhereOneAims) {
  Journey j;
  j.Run(FiveKeys, PastIntro({"cmd 1", "click 0 0", "hover 6 8", "key 2", "key 0", "shows X_Input 20",
                             "visible Typing_Card", "hover 8 6", "shows X_Input 20", "key Return",
                             "focus Y_Input", "key Return", "hidden Typing_Card", "focus DrawPanel",
                             // a sign opens it too, a formula is worked out, Escape gives the keys back
                             "hover -5 -5", "key -", "key 4", "key /", "key 2", "key Return", "key 3",
                             "key Return", "key 9", "shows X_Input 9", "key Escape", "hidden Typing_Card",
                             "focus DrawPanel", "key Escape",
                             // the radius of a circle that touches two lines
                             "cmd 1", "click 0 -20", "click 20 -20", "click 0 -20", "click 0 -5", "cmd 26",
                             "click 8 -20", "click 0 -10", "key 3", "focus X_Input", "key Return"}));
  ASSERT_GE(j.Table.EntCount, 3);
  const Entity &aimed = RowAt(j.Table, 0);
  EXPECT_NEAR(aimed.X2, 16, 1e-9);
  EXPECT_NEAR(aimed.Y2, 12, 1e-9);
  const Entity &circle = RowAt(j.Table, j.Table.EntCount);
  EXPECT_EQ(circle.EntType, CircleType);
  EXPECT_NEAR(circle.Radius, 3, 1e-9);
}

TEST(Typing, PointsSnapUntilTheUserSaysOtherwise) {
  Journey j;
  j.Run(FiveKeys, PastIntro({"cmd 1", "click 0 0", "click 10 0", "key Escape", "cmd 1", "click 10.2 0.1",
                             "click 10 8", "press AutoPoint", "click 0.2 0.1", "click 3 3", "key Escape"}));
  ASSERT_EQ(j.Table.EntCount, 2);
  EXPECT_EQ(RowAt(j.Table, 1).X1, RowAt(j.Table, 0).X2);
  EXPECT_NEAR(RowAt(j.Table, 2).X1, 0.2, 0.05);
  EXPECT_NE(BytesOf(j.File("settings.ini")).find("AutoPoint=0"), std::string::npos);
}

// Each meaning the two fields have: a position, a length and angle, a diameter or radius, a width and height,
// the tool's own value.
TEST(Typing, TheFieldsMeanWhatTheToolAsksFor) {
  const auto entered = [](const char *keys) {
    Lines lines;
    for (const char *c = keys; *c; ++c)
      lines.push_back(QString("key %1").arg(*c == '_' ? QString("Return") : QString(QChar(*c))));
    return lines;
  };
  const auto joined = [](Lines first, const Lines &then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
  };
  const auto turning = [](int command) {
    return Lines{"cmd 1",
                 "click 10 0",
                 "click 20 0",
                 "key Escape",
                 QString("cmd %1").arg(command),
                 "press XFormOption:Move",
                 "press SelectAll",
                 "hover 5 5"};
  };
  struct Case {
    const char *Name;
    Lines Before;
    const char *Keys; // _ is Enter
    Lines After;
    double Entity::*Field; // of the first row
    double Value;
  };
  const Case cases[] = {
      {"position", {"cmd 1", "hover 3 3"}, "4_-5_12_0_", {}, &Entity::Y1, -5},
      {"length and angle", {"cmd 1", "click 0 0", "hover 3 3"}, "8_90_", {}, &Entity::Y2, 8},
      {"diameter", {"cmd 24", "click 0 0", "hover 3 3"}, "9_", {}, &Entity::Radius, 4.5},
      {"width and height", {"cmd 52", "click 1 2", "hover 5 5"}, "6_7_", {}, &Entity::X2, 7},
      {"rotation", turning(72), "90__", {"click 0 0"}, &Entity::Y2, 20},
      {"scale", turning(73), "3__", {"click 0 0"}, &Entity::X2, 60},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(c.Name);
    Journey j;
    j.Run(FiveKeys, PastIntro(joined(joined(c.Before, entered(c.Keys)), c.After)));
    ASSERT_GE(j.Table.EntCount, 0);
    EXPECT_NEAR(RowAt(j.Table, 0).*c.Field, c.Value, 1e-9);
  }
}

// Every letter and digit is a hot key here.
TEST(Typing, NoFieldOfAnyToolLetsAHotKeyThrough) {
  Journey j;
  std::string keys;
  for (int slot = 1; slot <= 100; ++slot) {
    const int key = slot <= 26 ? 'A' + slot - 1 : slot <= 36 ? '0' + slot - 27 : 0;
    keys += std::to_string(key) + "\r\n0\r\n";
  }
  std::ofstream(j.File("HotKeys"), std::ios::binary) << keys;
  Lines lines;
  for (const CommandRow &row : CommandTable()) {
    if (row.Button == Ctl::Zoom_Window) continue;
    lines.push_back(QString("cmd %1").arg(row.CmdNo));
    lines.push_back(QString("letters %1").arg(row.CmdNo));
    lines.push_back("key Escape");
    lines.push_back("key Escape");
  }
  j.Run(FiveKeys, PastIntro(std::move(lines)));
}

TEST(Typing, MessagesStandInAStripThatStopsNobody) {
  Journey j;
  j.Run(FiveKeys,
        PastIntro({"cmd 85", "click 3 3", "expect box No ", "hidden MessageStrip", "click 3 3",
                   "visible MessageStrip", "key Escape", "hidden MessageStrip", "hidden UserPrompt"}));
}
TEST(Typing, AMoveRepaintsTheOverlayOnly) {
  Journey j;
  j.Run(KeysAnd(Cases + "star6_fillet.mvd"),
        PastIntro({"cmd 1", "click 0 0", "hover 1 1", "hover 2 1", "painted", "keep DrawPanel", "hover 3 5",
                   "hover 9 -4", "hover -8 2", "changed DrawPanel", "unpainted", "press Zoom_x2",
                   "repainted"}));
}
} // namespace
