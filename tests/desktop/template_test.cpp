// Templates on the real window: recorded, chosen by their picture, changed by their sliders.
#include "base/number_text.h"
#include "desktop/journey.h"

namespace {
const Lines Tube = {"press mnumaketemplate",
                    "visible VariableNameForm",
                    "text Text1(2) PORT",
                    "text Variable_Value(2) 6",
                    "press Next",
                    "visible TemplateNoteFrame",
                    "hidden MyChart1_Frame",
                    "disabled mnuFileOpen",
                    "cmd 20",
                    "visible MacroParams",
                    "key Return",
                    "visible VariableList1",
                    "text Answer PORT",
                    "key Return",
                    "hidden Question_Form",
                    "click 0 0",
                    "key Escape"};

Lines Recorded(const Lines &more) {
  Lines all = PastIntro(Tube);
  for (const char *line :
       {"press Stop_Macro", "answer Bore", "visible TemplateForm", "text Prompt(2) Port radius, mm [2 .. 15]",
        "press Accept", "box OK", "hidden TemplateNoteFrame"})
    all.push_back(line);
  all.insert(all.end(), more.begin(), more.end());
  return all;
}
} // namespace

TEST(Desktop, ATemplateIsRecordedChosenDraggedAndAccepted) {
  Journey j;
  j.Run(FiveKeys, Recorded({"press New",
                            "box No",
                            "press Templates",
                            "visible Grain_Selection_Window",
                            "focus ListView1",
                            "key End",
                            "press Use_Template",
                            "visible TemplateForm",
                            "shows TemplateForm Grain Dimensions and Configuration - Bore",
                            "shows VariableName(2) 6",
                            "keep Template_Picture",
                            "keep Template_Chart",
                            "press Step_Up(2)",
                            "shows VariableName(2) 6.1",
                            "changed Template_Picture",
                            "changed Template_Chart",
                            "text VariableName(2) 40",
                            "enabled Step_Up(2)",
                            "keep Template_Picture",
                            "text VariableName(2) 8.5",
                            "changed Template_Picture",
                            "down Variable_Slider(2) 0.5 0.5",
                            "move Variable_Slider(2) 0.7 0.5",
                            "move Variable_Slider(2) 1.2 0.5",
                            "up Variable_Slider(2) 1.2 0.5",
                            "shows VariableName(2) 15",
                            "press Preview",
                            "visible PreviewForm",
                            "key Escape",
                            "hidden PreviewForm",
                            "press Accept",
                            "hidden TemplateForm",
                            "expect count 1"}));
  EXPECT_EQ(j.Table.EntCount, 0);
  EXPECT_DOUBLE_EQ(j.Table.Row[0].Radius, 15);
}

TEST(Desktop, ATemplatesBestValuesAreSoughtBesideTheWindow) {
  Journey j;
  j.Run(FiveKeys, PastIntro({"press Templates",
                             "visible Grain_Selection_Window",
                             "focus ListView1",
                             "key Right",
                             "key Right",
                             "press Use_Template",
                             "visible TemplateForm",
                             "shows TemplateForm Grain Dimensions and Configuration - Star filleted",
                             "press Optimise",
                             "visible Optimise_Start",
                             "whole TemplateForm",
                             "text Optimise_Seconds 600",
                             "keep Template_Picture",
                             "press Optimise_Start",
                             "visible Optimise_Stop",
                             "disabled Variable_Slider(2)",
                             "changed Template_Picture",
                             "press Optimise_Stop",
                             "visible Optimise_Start",
                             "whole TemplateForm",
                             "press Optimise_Restore",
                             "same Template_Picture",
                             "disabled Optimise_Restore",
                             "text Optimise_To(2) x",
                             "press Optimise_Start",
                             "visible Optimise_Start",
                             "whole TemplateForm",
                             "text Optimise_To(2) 17",
                             "press Optimise_Start",
                             "visible Optimise_Stop",
                             "press Cancel",
                             "hidden TemplateForm"}));
  EXPECT_EQ(j.Table.EntCount, -1);
}

TEST(Desktop, AVariableIsPutWhereTheCaretStands) {
  Journey j;
  j.Run(FiveKeys, PastIntro({"press mnumaketemplate",
                             "visible VariableNameForm",
                             "text Text1(2) PORT",
                             "text Variable_Value(2) 6",
                             "press Next",
                             "visible TemplateNoteFrame",
                             "cmd 1",
                             "press Key_In",
                             "text X_Input 2*",
                             "key F2",
                             "focus VariableList2",
                             "key End",
                             "key Return",
                             "focus X_Input",
                             "shows X_Input 2*PORT",
                             "key Escape",
                             "key Escape",
                             "press Cancel_Macro",
                             "box Yes",
                             "hidden TemplateNoteFrame"}));
}

TEST(Layout, NoTextOfTheTemplateWindowsIsCut) {
  for (const double points : {10.0, 12.0}) {
    SCOPED_TRACE(points);
    SetBaseFont(points);
    Journey j;
    Lines lines = PastIntro({"press mnumaketemplate", "visible VariableNameForm", "whole VariableNameForm",
                             "text Text1(2) sin", "whole VariableNameForm", "press Cancel"});
    lines.insert(lines.end(), Tube.begin(), Tube.end());
    for (const char *line :
         {"whole TemplateNoteFrame", "press Stop_Macro", "answer Bore", "visible TemplateForm",
          "whole TemplateForm", "press Accept", "box OK", "press Templates", "visible Grain_Selection_Window",
          "whole Grain_Selection_Window", "press Use_Template", "visible TemplateForm",
          "text VariableName(2) 99", "whole TemplateForm", "press Cancel"})
      lines.push_back(line);
    j.Run(FiveKeys, lines);
  }
  SetBaseFont(10);
}
