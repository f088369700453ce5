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

TEST(Desktop, ALessonMakesATemplate) {
  Journey j;
  OfferLesson(j, 10);
  Lines lines = {"press Tutor_Start",
                 "press mnumaketemplate",
                 "visible VariableNameForm",
                 "text Text1(2) TipRad",
                 "text Variable_Value(2) 13",
                 "press Next",
                 "shows Tutor_Step Step 1 of 11",
                 "press mnumaketemplate",
                 "visible VariableNameForm",
                 "text Text1(2) TipRad",
                 "text Variable_Value(2) 14",
                 "text Text1(3) ValleyRad",
                 "text Variable_Value(3) 5",
                 "text Text1(4) Fillet",
                 "text Variable_Value(4) 0.5",
                 "press Next",
                 "press Command1",
                 "visible TemplateNoteFrame",
                 "hidden Cancel_Macro",
                 "cmd 97",
                 "answer 6",
                 "cmd 1"};
  for (const char *at :
       {"TipRad 0", "ValleyRad*cos(pi/6) ValleyRad/2", "TipRad 0", "ValleyRad*cos(pi/6) -ValleyRad/2"}) {
    const QStringList xy = QString(at).split(' ');
    for (const QString &line :
         {QString("press Key_In"), "text X_Input " + xy[0], "text Y_Input " + xy[1], QString("key Return")})
      lines.push_back(line);
  }
  for (const char *line :
       {"shows Tutor_Step Step 8 of 11", "cmd 55", "answer Fillet", "click 9.2 1.25", "click 9.2 -1.25",
        "press Stop_Macro", "text Answer Rounded star", "key Return", "visible TemplateForm",
        "text Prompt(2) Tip radius, mm [10 .. 18]", "text Prompt(3) Valley radius, mm [3 .. 7]",
        "text Prompt(4) Tip fillet, mm [0.2 .. 1]", "press Accept", "press Command1", "shows Tutor_Step Done",
        "press TutorCancel", "hidden TemplateNoteFrame", "expect count 1"})
    lines.push_back(line);
  j.Run(FiveKeys, WithOwn(lines));
}

TEST(Layout, NoTextOfTheTutorIsCut) {
  for (const double points : {10.0, 12.0}) {
    SCOPED_TRACE(points);
    SetBaseFont(points);
    Journey j;
    OfferLesson(j, 7);
    j.Run(FiveKeys,
          WithOwn({"whole TutorFrame",
                   "press Tutor_Start",
                   "shows Tutor_Step Step 1 of 7",
                   "whole TutorFrame",
                   "cmd 20",
                   "whole TutorFrame",
                   "press RunSim2",
                   "shows Tutor_Step Step 2 of 7",
                   "whole TutorFrame",
                   "place frmMain 0 0 900 500",
                   "whole TutorFrame",
                   "press TutorCancel",
                   "press MacroRecord",
                   "answer Bore",
                   "shows Question_Label Enter Macro Index",
                   "answer 40",
                   "shows Question_Label Enter Macro Level of Difficulty (1-Starting, 2-Medium, 3-Advanced):",
                   "answer 1",
                   "box No",
                   "visible MacroStop",
                   "whole TutorFrame",
                   "press TutorCancel",
                   "box Yes"}));
  }
  SetBaseFont(10);
}
