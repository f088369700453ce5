// Templates through Dispatch: recording, the list, the values with their live burn, the play and its stops.
#include "base/number_text.h"
#include "chance.h"
#include "shell/journey.h"
#include "shell/template_play.h"
#include "shell/template_record.h"

namespace {

const std::string EmptyWords = "Error: File Empty",
                  BadWords = "Unfortunately an Error was encounted reading the Template file";
const std::string MissingWords =
    "Can't find Macro Template file. Note: All Macro files must be in the Applicaion Directory";
const std::string ZeroWords = "ERROR: All dimensional parameters must contain a value higher than zero!";

// A tube of radius PORT, moved by formulas: recorded at 8 in a grain of 40.
const std::string Names = "press mnumaketemplate\ntype Text1(2) PORT\ntype Variable_Value(2) 8\n";
const std::string Draw = "press Next\npress Circle_Radius\npress MacroParams.Accept\nanswer PORT\nclick 0 0\n"
                         "press Escape\n";
const std::string Keep = "press Stop_Macro\nanswer Tube\ntype Prompt(2) Port radius, mm [2 .. 15]\n"
                         "press TemplateForm.Accept\nexpect box in the list of templates\n";

struct TemplateJourney : Journey {
  void SetUp() override {
    Journey::SetUp();
    Install.clear(); // no templates but one's own
  }
  void MakeTube() { Play(Names + Draw + Keep); }
  // Calls `check` with the count of the lines "check" before it.
  void PlayChecked(const std::string &script, const std::function<void(int)> &check) {
    Screen().PlayLine = [this, n = 0, play = Screen().PlayLine, check]() mutable {
      if (Upcoming(Screen().Lines) != "check") return play();
      ++Screen().Lines.Next;
      check(n++);
    };
    Play(script);
  }
  std::string Folder(const std::string &name) { return "templates/" + name; }
  const Entity &Row(int i) { return RowAt(Bench().Grain.Table, i); }
  double Radius() { return Bench().Grain.Table.EntCount == 0 ? Row(0).Radius : -1; }
  std::string Text(Ctl c) { return Screen()[c].Text; }
};

TEST_F(TemplateJourney, RecordedAtTheWindowItIsListedAskedForAndPlayedWithOneUndo) {
  ASSERT_TRUE(Start());
  Play(Names + "press Next\nexpect visible TemplateNoteFrame\nexpect hidden MyChart1_Frame\n"
               "expect disabled mnuFileOpen\nexpect disabled mnumaketemplate");
  EXPECT_EQ(Bench().Grain.MacroMode, 3);
  EXPECT_EQ(Screen()[Ctl::VariableList2].Item,
            (std::vector<std::string>{"GRAINDIAMETER = 40", "GRAINLENGTH = 100", "PORT = 8"}));
  Play("press Circle_Radius\npress MacroParams.Accept\nanswer PORT\nclick 0 0\npress Escape\n" + Keep +
       "expect hidden TemplateNoteFrame\nexpect enabled mnuFileOpen\nexpect count 1");
  EXPECT_EQ(Bench().Grain.MacroMode, 0);
  EXPECT_EQ(Read(Folder("Templates")), "\"Tube\",\"Tube\"\r\n");
  const std::string picture = Read(Folder("Tube.BMP"));
  ASSERT_GT(picture.size(), 54u);
  EXPECT_EQ(picture.substr(0, 2), "BM");
  EXPECT_EQ(static_cast<unsigned char>(picture[28]), 24);
  EXPECT_EQ(picture.size(), 54u + 320 * 320 * 3);
  const auto pixel = [&](int x, int y) {
    return picture.substr(54u + static_cast<std::size_t>(3 * (320 * y + x)), 3);
  };
  EXPECT_EQ(pixel(160, 160), "\xFF\xFF\xFF"); // the core
  EXPECT_EQ(pixel(160, 40), "\xC4\xE2\xF2");  // propellant, blue first

  Play("press New\nbox No\npress mnuchoosetemplate\npress Use_Template\nexpect text TemplateForm Grain "
       "Dimensions and "
       "Configuration - Tube\nexpect text Prompt(2) Port radius\nexpect text Variable_Unit(2) mm, 2 to "
       "15\n"
       "type VariableName(2) 2*3\npress TemplateForm.Accept");
  EXPECT_DOUBLE_EQ(Radius(), 6);
  EXPECT_FALSE(Bench().Grain.SavedFlag);
  Play("press Undo\nexpect count 0\npress Redo\nexpect count 1");
}

TEST_F(TemplateJourney, NamesThatClashOrValuesThatAreNoneAreRefusedWhenNamed) {
  ASSERT_TRUE(Start());
  const struct {
    const char *Name, *Value, *Says;
  } table[] = {{"sin", "1", "sin"},     {"pi", "1", "pi"},       {"GRAIN", "1", "GRAINDIAMETER"},
               {"2A", "1", "letter"},   {"A+B", "1", "letters"}, {"TIP", "0", "higher than zero"},
               {"TIP", "-3", "higher"}, {"TIP", "", "higher"},   {"TIP", "WEB*2", "TIP"},
               {"TIP", "1/0", "TIP"}};
  for (const auto &row : table) {
    SCOPED_TRACE(std::string(row.Name) + " = " + row.Value);
    Play("press mnumaketemplate\ntype Text1(2) " + std::string(row.Name) + "\ntype Variable_Value(2) " +
         row.Value + "\npress Next\nexpect box " + row.Says +
         "\nexpect visible VariableNameForm\npress VariableNameForm.Cancel");
    EXPECT_EQ(Bench().Grain.MacroMode, 0);
  }
  // The rows before it may stand in a value; a prefix of another name is refused.
  Play(
      "press mnumaketemplate\ntype Text1(2) TIP\ntype Variable_Value(2) GRAINDIAMETER/4\ntype Text1(4) TIPS\n"
      "type Variable_Value(4) 2\npress Next\nexpect box TIP\ntype Text1(4) ROOT\ntype Variable_Value(4) "
      "TIP/2\n"
      "press Next\nexpect visible TemplateNoteFrame");
  EXPECT_DOUBLE_EQ(Bench().Draft.Variables.Row[4].Value, 5);
}

TEST_F(TemplateJourney, FormulasGoIntoAnswersAndFieldsByTheirLists) {
  ASSERT_TRUE(Start());
  Play(Names +
       "press Next\npress Sing_Line\npress Key_In\npress VariableList2:PORT = 8\nexpect text X_Input PORT\n"
       "key F2 in X_Input\ntype Y_Input 2\nkey F2 in Y_Input\npress VariableList2:PORT = 8\n"
       "expect text Y_Input 2PORT\ntype Y_Input 2*PORT\nkey Enter in Y_Input\npress Escape\n"
       // the pointer's way of a radius is the tool that takes it from the drawing
       "press Circle_Radius\npress MacroParams_Mouse\npress MacroParams.Accept");
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 24);
  Play("press Escape\npress Circle_Radius\npress MacroParams_Value\npress MacroParams.Accept\n"
       "expect visible VariableList1\ntype Answer 0.5*\npress VariableList1:PORT\nexpect text Answer "
       "0.5*PORT\n"
       "press Question_Form.Accept\nclick 0 0\npress Escape");
  EXPECT_DOUBLE_EQ(Row(0).Radius, 4);
  const auto &log = Bench().Draft.Log.Row;
  const auto has = [&](const std::string &formula) {
    return std::any_of(log.begin(), log.end(),
                       [&](const Instruction &i) { return i.Value4.find(formula) != i.Value4.npos; });
  };
  EXPECT_TRUE(has("PORT;2*PORT"));
  EXPECT_TRUE(has("0.5*PORT"));
}

TEST_F(TemplateJourney, AnswersOfTheRecordersQuestions) {
  ASSERT_TRUE(Start());
  Play(Names + Draw +
       // no name, and no: it goes on; a slash; a name that is there; prompts called off: it goes on
       "press Stop_Macro\nanswer cancel\nexpect box Are you sure you want to cancel creating template?\nbox "
       "No\n"
       "expect visible TemplateNoteFrame\npress Stop_Macro\nanswer a/b\nexpect box must not hold\nbox OK\n"
       "answer Tube.mac\npress TemplateForm.Cancel\nexpect visible TemplateNoteFrame\n"
       "press Stop_Macro\nanswer Tube.mac\npress TemplateForm.Accept\nbox OK");
  EXPECT_TRUE(std::filesystem::exists(At(Folder("Tube.mac"))));
  Play("press New\nbox No\n" + Names + Draw +
       "press Stop_Macro\nanswer TUBE\nexpect box Tube.mac already exists\nbox No\n"
       "answer cancel\nbox Yes\nexpect hidden TemplateNoteFrame\nexpect count 1");
  EXPECT_EQ(Bench().Grain.MacroMode, 0);
}

TEST_F(TemplateJourney, TheFormFollowsItsValuesAndKeepsTheLastGoodShape) {
  ASSERT_TRUE(Start());
  MakeTube();
  const auto drawn = [&] { return Screen().Template_Picture.Item.back().At[2]; };
  PlayChecked(
      "press New\nbox No\npress tbToolBar.Templates\npress Use_Template\ntype VariableName(2) 5\ncheck\n"
      "key Up in VariableName(2)\nexpect text VariableName(2) 5.1\ntype Variable_Slider(2) 500\n"
      "expect text VariableName(2) 8.5\ntype VariableName(2) GRAINDIAMETER/4\ncheck\n"
      "type VariableName(2) 25\ncheck\ntype VariableName(2) WEB\ncheck\ntype VariableName(2) -1\ncheck\n"
      "type VariableName(2)\ncheck\ntype VariableName(2) 0\ncheck\npress TemplateForm.Accept\nexpect box " +
          ZeroWords +
          "\nexpect visible TemplateForm\ntype VariableName(0) 80\ntype VariableName(2) 9\n"
          "press Preview\nexpect text PreviewForm Preview\npress PreviewForm.Close\n"
          "press TemplateForm.Accept",
      [&](int n) {
        SCOPED_TRACE(n);
        const std::string note = Text(Ctl::Template_Note), kn = Text(Ctl::Template_FirstKn);
        if (n < 2) {
          EXPECT_EQ(note, "");
          EXPECT_EQ(drawn(), n == 0 ? 5 : 10);
          // one end and the port over the throat of 5, at the first step
          if (n == 0) {
            EXPECT_NEAR(Val(kn.substr(kn.find(':') + 1)),
                        (Pi * 400 - Pi * 25 + 2 * Pi * 5 * 100) / (Pi * 6.25), 6);
          } else {
            EXPECT_EQ(Text(Ctl::Variable_Slider2), "615");
          }
          return;
        }
        EXPECT_NE(note.find(n == 2 ? "PORT = 25: " : n == 3 ? "PORT: " : "(PORT)"), note.npos) << note;
        EXPECT_NE(Screen()[Ctl::VariableName2].Hint, "");
        EXPECT_EQ(drawn(), 10);
        EXPECT_FALSE(Screen()[Ctl::Template_FirstKn].Enabled);
      });
  EXPECT_DOUBLE_EQ(Radius(), 9);
  EXPECT_DOUBLE_EQ(Bench().Grain.Doc.GrainDiam, 80);
}

TEST_F(TemplateJourney, APlayCanBeSteppedAndStopped) {
  ASSERT_TRUE(Start());
  MakeTube();
  Play(
      "press New\nbox No\npress Sing_Line\nclick -5 0\nclick 5 0\npress Escape\n"
      "press mnuchoosetemplate\npress Use_Template\ntype VariableName(0) 60\npress Template_Steps\n"
      "press TemplateForm.Accept\nexpect visible TemplateNoteFrame\nexpect hidden Empty_Hint\nexpect text "
      "Paused_Button Continue\n"
      "expect count 0\npress Sing_Line\npress Macro_Step\npress Stop_Macro\nexpect hidden TemplateNoteFrame\n"
      "expect count 1");
  EXPECT_EQ(Row(0).EntType, LineType);
  EXPECT_DOUBLE_EQ(Bench().Grain.Doc.GrainDiam, 40);
  EXPECT_EQ(Bench().Draft.Cmd.CmdNo, 0); // a tool was not to be had meanwhile
  EXPECT_TRUE(std::filesystem::exists(At("CurrentWorkFile")));
  Play("press mnuchoosetemplate\npress Use_Template\npress Template_Steps\npress TemplateForm.Accept\n"
       "press Macro_Step\npress Paused_Button\nexpect hidden TemplateNoteFrame\nexpect count 1");
  EXPECT_DOUBLE_EQ(Radius(), 8);
  EXPECT_GT(Screen().Waited, 0);
  MacroPlay2_Click(Bench(), "tube", 5); // no questions
  EXPECT_DOUBLE_EQ(Radius(), 8);
}

// The form refuses what cannot be drawn; what fails all the same is named, and the design is back.
TEST_F(TemplateJourney, AStepThatCannotBeDrawnIsNamedAndTheDesignIsBack) {
  ASSERT_TRUE(Start());
  MakeTube();
  const std::string told = "expect box Instruction 2: there is no such kind of input\n";
  const auto isBack = [&] {
    EXPECT_EQ(Row(0).EntType, LineType);
    EXPECT_DOUBLE_EQ(Bench().Grain.Doc.GrainDiam, 40);
    EXPECT_EQ(Bench().Grain.MacroMode, 0);
  };
  Play("press New\nbox No\npress Sing_Line\nclick -5 0\nclick 5 0\npress Escape");
  const std::string ask = "press mnuchoosetemplate\npress Use_Template\ntype VariableName(0) 60\n";
  for (const std::string way : {"press Macro_Step\npress Macro_Step\n", "press Paused_Button\n"}) {
    SCOPED_TRACE(way);
    Play(ask + "press Template_Steps\npress TemplateForm.Accept\nexpect visible TemplateNoteFrame");
    Bench().Template.Play.Log.at(2).PointArea = 999;
    Play(way + told + "expect hidden TemplateNoteFrame\nexpect count 1");
    isBack();
  }
  std::string broken = Read(Folder("Tube.Mac"));
  const std::size_t click = broken.find("\"PointArea:\",151");
  ASSERT_NE(click, broken.npos);
  Write(Folder("Tube.Mac"), broken.replace(click + 13, 3, "999"));
  Play(ask + "press TemplateForm.Accept\n" + told + "press TemplateForm.Cancel\nexpect count 1");
  isBack();
  Screen().Lines = ReadScript(told);
  MacroPlay2_Click(Bench(), "tube", 5); // no questions, no form
  EXPECT_EQ(Screen().Lines.Fault, "");
  isBack();
}

TEST_F(TemplateJourney, AFileInItsErrorStatesLeavesTheDesign) {
  ASSERT_TRUE(Start());
  MakeTube();
  const std::string good = Read(Folder("Tube.Mac"));
  const auto play = [&](const std::string &bytes, const std::string &says) {
    Write(Folder("Tube.Mac"), bytes);
    const auto kept = Bench().Grain.Table;
    Play("press mnuchoosetemplate\npress Use_Template\nexpect box " + says + "\nexpect count 1");
    EXPECT_EQ(Bench().Grain.MacroMode, 0);
    EXPECT_EQ(Row(0).Radius, RowAt(const_cast<EntityTable &>(kept), 0).Radius);
  };
  play("", EmptyWords);
  play(good.substr(0, good.size() / 3), BadWords);
  play("nonsense\r\n", BadWords);
  std::filesystem::remove(At(Folder("Tube.Mac")));
  Play("press mnuchoosetemplate\npress Use_Template\nexpect box " + MissingWords + "\nexpect count 1");
}

TEST_F(TemplateJourney, TheListIsOrderedRenamedAddedToAndKept) {
  ASSERT_TRUE(Start());
  MakeTube();
  const std::string bytes = Read(Folder("Tube.Mac"));
  Write("Wide.Mac", bytes);
  Write("Empty.Mac", "");
  Play("press mnuchoosetemplate\npress Add_Grain_Geometry\nfile " + At("Wide.Mac") +
       "\npress Add_Grain_Geometry\nfile " + At("Wide.Mac") +
       "\nexpect box Error: Duplicate Key Name in List.\npress Add_Grain_Geometry\nfile " + At("Empty.Mac") +
       "\nexpect box " + EmptyWords +
       "\npress ListView1:Wide\nkey Alt+Up in ListView1\nkey F2 in ListView1\n"
       "answer A wide, \"round\" port\nask ListView1:Tube\nexpect visible ShortCutMenu\npress "
       "ShortCutMenu:Show File...\n"
       "press Template_File.Close\npress Grain_Selection_Window.Close");
  EXPECT_EQ(Read(Folder("Templates")), "\"Wide\",\"A wide, round port\"\r\n\"Tube\",\"Tube\"\r\n");
  EXPECT_TRUE(std::filesystem::exists(At(Folder("Wide.BMP"))));
  const std::string picture = Read(Folder("Wide.BMP"));
  std::filesystem::remove(At(Folder("Wide.BMP")));
  Play("press mnuchoosetemplate\npress ListView1:Tube\nkey Delete in ListView1\npress "
       "Grain_Selection_Window.Close");
  EXPECT_EQ(Read(Folder("Templates")), "\"Wide\",\"A wide, round port\"\r\n");
  ASSERT_EQ(Screen().Gallery.size(), 1u); // its picture is missing: the drawing stands for it
  EXPECT_EQ(Screen().Gallery[0].PictureFile, "");
  EXPECT_EQ(Screen().Gallery[0].Drawing.Core.size(), 1u);
  Chance chance;
  for (int round = 0; round < 40; ++round) { // and so it does for one that is cut off, or of no size
    std::string broken = picture;
    if (round % 2 == 0)
      broken.resize(static_cast<std::size_t>(chance.Below(static_cast<int>(broken.size()))));
    else
      broken[static_cast<std::size_t>(18 + chance.Below(8))] = static_cast<char>(128 + chance.Below(120));
    Write(Folder("Wide.BMP"), broken);
    Play("press mnuchoosetemplate\npress Grain_Selection_Window.Close");
    EXPECT_EQ(Screen().Gallery.at(0).PictureFile, "") << round;
    EXPECT_EQ(Screen().Gallery[0].Drawing.Core.size(), 1u);
  }
  Write(Folder("Wide.BMP"), picture);
  Play("press mnuchoosetemplate\npress Grain_Selection_Window.Close");
  EXPECT_NE(Screen().Gallery.at(0).PictureFile, "");
  Write(Folder("Templates"), "\"a\",\"b\",\"c\"\r\n");
  Play("press mnuchoosetemplate\nexpect box line 1");
  EXPECT_EQ(Read(Folder("Templates")), "\"a\",\"b\",\"c\"\r\n"); // what cannot be read is not written over
}

} // namespace
