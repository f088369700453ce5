// Lessons on the real window, by mouse and keys.
#include "base/settings_store.h"
#include "desktop/journey.h"

namespace {
const Lines OwnCircle = {"cmd 20",     "answer 7",    "click 1 2",
                         "key Escape", "press Tutor", "visible TutorFrame"};

Lines WithOwn(const Lines &more) {
  Lines all = PastIntro(OwnCircle);
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

// As if the lessons before it were done.
void OfferLesson(const Journey &j, int index) {
  SettingsStore settings = LoadSettings(j.File("settings.ini"));
  for (int i = 1; i < index; ++i) SaveSetting(settings, "Tutor", "Done " + std::to_string(i), "1");
  ASSERT_EQ(WriteSettings(settings), "");
}
} // namespace

TEST(Desktop, LessonsArePlayedWithMouseAndKeys) {
  Journey j;
  j.Run(FiveKeys, WithOwn({"focus Tutor_Start",
                           "keep Circle_Radius",
                           "key Space",
                           "shows Tutor_Head The first circle",
                           "shows Tutor_Step Step 1 of 2",
                           "hidden Empty_Card",
                           "disabled Templates",
                           "expect count 0",
                           "changed Circle_Radius",
                           "cmd 1",
                           "shows Tutor_Note Wrong Tool!  Click on the 'Create a Circle from Radius' Button",
                           "cmd 20",
                           "answer 8",
                           "shows Tutor_Step Step 2 of 2",
                           "click 5 5",
                           "shows Tutor_Note Wrong Position!  Click at X=0, Y=0",
                           "expect count 0",
                           "key Escape",
                           "box No Exit tutor and return to Mainmenu",
                           "click 0 0",
                           "visible TutorMsgForm",
                           "key Return",
                           "shows Tutor_Step Done",
                           "press Tutor_Start",
                           "shows Tutor_Step Step 1 of 7",
                           "cmd 1",
                           "click -10 -4",
                           "click 6 5",
                           "press End_Ent",
                           "click 5.5 4.7",
                           "press Cursor",
                           "click 12 -4",
                           "press Command1",
                           "shows Tutor_Step Done",
                           "expect count 2",
                           "press TutorCancel",
                           "hidden TutorFrame",
                           "expect count 1"}));
  EXPECT_DOUBLE_EQ(j.Table.Row[0].Radius, 7);
}

TEST(Desktop, ALessonLeadsThroughTheMotorWindow) {
  Journey j;
  OfferLesson(j, 8);
  j.Run(FiveKeys,
        WithOwn({"press Tutor_Start", "press RunSim2", "press Performance_Sim", "visible Pressure_Results",
                 "press Chart_Thrust", "shows Tutor_Note Wrong Button!  Click on the 'Chart Pc' Button",
                 "press Chart_Pressure", "press Chart_Thrust", "press Command1", "shows Tutor_Step Done",
                 "press TutorCancel", "hidden Pressure_Results", "expect count 1"}));
}

TEST(Layout, NoTextOfTheTutorIsCut) {
  for (const double points : {10.0, 12.0}) {
    SCOPED_TRACE(points);
    SetBaseFont(points);
    Journey j;
    OfferLesson(j, 7);
    j.Run(FiveKeys, WithOwn({"whole TutorFrame", "press Tutor_Start", "shows Tutor_Step Step 1 of 7",
                             "whole TutorFrame", "cmd 20", "whole TutorFrame", "press RunSim2",
                             "shows Tutor_Step Step 2 of 7", "whole TutorFrame", "press TutorCancel",
                             "press MacroRecord", "answer Bore", "answer 40", "answer 1", "box No",
                             "visible MacroStop", "whole TutorFrame", "press TutorCancel", "box Yes"}));
  }
  SetBaseFont(10);
}
