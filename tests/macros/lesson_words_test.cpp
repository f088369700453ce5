#include "macros/lesson_words.h"

#include <gtest/gtest.h>

namespace {

TEST(LessonWords, OfEachKind) {
  const struct {
    Instruction Want, Got;
    int Tool;
    const char *Says;
  } table[] = {
      {{151, 1, 2, 1, "", 0, 0}, {151, 1.3, 2.2, 1, "", 0, 0}, 0, ""},
      {{151, 1, 2, 1, "", 0, 0}, {151, 1.3, 2.3, 1, "", 0, 0}, 0, "Wrong Position!\nClick at X=1, Y=2"},
      {{151, 1, 2, 1, "", 0, 0}, {151, 1, 2, 2, "", 0, 0}, 0, "Wrong Mouse Button!\nClick at X=1, Y=2"},
      {{151, 1, 2, 1, "", 0, 0}, {147, 1, 2, 0, "", 0, 0}, 0, ""},
      {{147, 1, 2, 0, "", 0, 0},
       {147, 1.001, 2, 0, "", 0, 0},
       0,
       "Wrong Position!\nKey in the point X=1, Y=2"},
      {{130, 4, 1, 2, "", 2, 0}, {130, 5, 1.1, 2, "", 2, 0}, 0, ""},
      {{130, 4, 1, 2, "", 2, 0}, {130, 4, 2.9, 2, "", 2, 0}, 0, ""},
      {{130, 4, 1, 2, "", 2, 0},
       {130, 4, 3.1, 2, "", 2, 0},
       0,
       "Wrong Position!\nPick the circle at X=1, Y=2"},
      {{131, 4, 1, 2, "", 4, 0}, {131, 4, 9, 9, "", 4, 0}, 0, ""},
      {{146, 3, 4, 0, "", 0, 0}, {146, 3.00004, 4, 0, "", 0, 0}, 0, ""},
      {{146, 3, 4, 0, "", 0, 0},
       {146, 3.0001, 4, 0, "", 0, 0},
       0,
       "Wrong X axis offset value!\nEnter an X offset of 3"},
      {{146, 3, 4, 0, "", 0, 0},
       {146, 3, 5, 0, "", 0, 0},
       0,
       "Wrong Y axis offset value!\nEnter a Y offset of 4"},
      {{203, 5, 10, 90, "", 0, 0},
       {203, 5, 11, 90, "", 0, 0},
       30,
       "Wrong Start Angle!\nEnter a starting Angle of 10"},
      {{203, 5, 10, 90, "", 0, 0},
       {203, 5, 10, 91, "", 0, 0},
       30,
       "Wrong End Angle!\nEnter an Ending Angle of 90"},
      {{54, 6, 0, 360, "", 0, 0},
       {54, 7, 0, 360, "", 0, 0},
       54,
       "Wrong Number of Lines!\nSet Numnber of Lines to:6"},
      {{201, 30, 0, 0, "", 0, 0},
       {201, 31, 0, 0, "", 0, 0},
       72,
       "Wrong Rotation Angle!\nEnter a rotation angle of 30"},
      {{201, 2, 0, 0, "", 0, 0},
       {201, 3, 0, 0, "", 0, 0},
       73,
       "Wrong Scale Factor!\nEnter a scale factor of 2"},
      {{203, 3, 0, 0, "", 0, 0},
       {203, 4, 0, 0, "", 0, 0},
       70,
       "Wrong Number of Copies!\nEnter a number of copies of 3"},
      {{160, 0, 0, 0, "", 0, 0}, {161, 0, 0, 0, "", 0, 0}, 70, "Wrong Selection!\nChoose: Move"},
      {{70, 0, 0, 0, "ENTERKEY", 0, 0}, {70, 0, 0, 0, "", 0, 0}, 70, "Wrong Input!\nPress Enter"}};
  for (const auto &row : table)
    EXPECT_EQ(LessonObjection({"", "", row.Want, 0}, row.Got, row.Tool, 20), row.Says); // 0.4 mm
}

} // namespace
