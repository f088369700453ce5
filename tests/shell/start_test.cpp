// How the program starts, ends, and starts again.
#include "shell/journey.h"

#include "shell/grain_file.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST_F(Journey, FiveKeysSkipTheDialog) {
  ASSERT_TRUE(Start());
  const GrainDoc &doc = Bench().Grain.Doc;
  EXPECT_EQ(doc.GrainDiam, 40);
  EXPECT_EQ(doc.EndsExposed, 1);
  EXPECT_EQ(doc.TolA, 0); // only the dialog's Next computes them
  EXPECT_EQ(Screen().Waited, 2);
  Play(R"(expect text Grain_Diam_Label Grain Diameter: 40
          expect text Grain_Length_Label Grain Length: 100
          expect text Throat_Diam_Label Throat Diameter: 5
          expect text Ends_Exposed_Label End A: Yes    End B: No
          expect text frmMain Morvandel -
          expect visible Empty_Hint
          expect hidden MyChart1_Frame
          expect enabled Empty_Template)");
}

TEST_F(Journey, DimensionsDialogByKeyboard) {
  ASSERT_TRUE(Start({"Gd=0", "Gl=80", "Eb=0"}, R"(expect text GrainDiam 20
          expect text GrainLength 80
          expect text Nozzle_Throat 3
          expect checked EndA_Exposed
          expect unchecked EndB_Exposed
          type GrainDiam abc
          press Next
          expect box A NUMBER GREATER THAN 0 MUST BE ENTERED
          box OK
          type GrainDiam 1e-60
          key Enter
          key Enter
          press Next
          expect box A NUMBER GREATER THAN 0 MUST BE ENTERED
          box OK
          type GrainDiam 66
          press EndA_Exposed
          type Nozzle_Throat 0
          type GrainDiam 66
          key Enter
          expect visible Dimensions
          key Enter
          expect visible Dimensions
          key Enter)"));
  const GrainDoc &doc = Bench().Grain.Doc;
  EXPECT_EQ(doc.GrainDiam, 66);
  EXPECT_EQ(doc.GrainLength, 80);
  EXPECT_EQ(doc.ThroatDiam, 0);
  EXPECT_EQ(doc.EndsExposed, 0);
  EXPECT_DOUBLE_EQ(doc.TolB, 0.0033);
  EXPECT_FLOAT_EQ(doc.LinerThickness, 1.65f);
}

TEST_F(Journey, CancelledDimensionsEndTheProcess) {
  EXPECT_FALSE(Start({}, "type GrainDiam 50\nkey Escape"));
  EXPECT_FALSE(Screen()[Ctl::frmMain].Visible);
}

TEST_F(Journey, CalledOffStartLeavesNothingToRecover) {
  EXPECT_FALSE(Start({Cases + "d_port.mvd"}, "expect text GrainDiam 40\nkey Escape"));
  EXPECT_EQ(Read("TempFile"), "");
}

TEST_F(Journey, CalledOffStartKeepsTheRecoveredDesign) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "d_port.mvd"); // and then the program dies
  EXPECT_FALSE(Start({}, "key Escape"));
  EXPECT_FALSE(Start({}, "key Escape"));
  ASSERT_TRUE(Start({}, "press Next"));
  Play("expect count 2\nexpect visible RecoveryBar");
  int copies = 0;
  for (const auto &file : std::filesystem::directory_iterator(Home))
    copies += file.path().filename().string().starts_with("Recovered ");
  EXPECT_EQ(copies, 1);
  Write("TempFile.7", "12.5\r\nnonsense\r\n");
  Play("close");
  ASSERT_TRUE(Start(FiveKeys(), "expect box TempFile.7\nbox OK")); // told once, and kept
  Play("close");
  ASSERT_TRUE(Start());
  EXPECT_NE(Read("TempFile.7.unreadable"), "");
}

TEST_F(Journey, IntroPageUntilDismissed) {
  std::filesystem::remove(Home / "IntroFile.txt");
  ASSERT_TRUE(Start(FiveKeys(), "expect visible IntroPage\npress IntroPage.DontShow\npress IntroPage.OK"));
  ASSERT_TRUE(Start()); // an unexpected page would be a fault of the empty script
  Play("press mnuIntro\nexpect checked IntroPage.DontShow\npress IntroPage.DontShow\npress "
       "Intro_Example\nexpect count 24");
  EXPECT_EQ(Bench().Grain.CurrentFile, ""); // Save asks for a place of the user's own
  ASSERT_TRUE(Start(FiveKeys(), "press IntroPage.OK"));
}

TEST_F(Journey, GrainFileOnTheCommandLine) {
  const std::string odd = At("a star, my own.mvd");
  std::filesystem::copy_file(Cases + "star6_fillet.mvd", odd);
  ASSERT_TRUE(Start({odd}, "expect text GrainDiam 100\npress Next"));
  Play("expect count 24\nexpect text frmMain Morvandel - a star, my own.mvd\nexpect text mnuMRU(0) a star, "
       "my own.mvd");
}

TEST_F(Journey, BrokenFilesAtStartAreToldOnce) {
  Write("DefaultFile", "0\r\nx\r\n");
  Write("HotKeys", "nonsense");
  ASSERT_TRUE(Start(FiveKeys(), "expect box HotKeys: line 1\nexpect box DefaultFile: line 2"));
  Write("bad.mvd", "\"Version1_1\"\r\n20\r\n");
  for (const char *name : {"DefaultFile", "HotKeys"}) std::filesystem::remove(Home / name);
  ASSERT_TRUE(
      Start({"Gd=40", "Gl=100", "Ea=1", "Eb=0", "Td=5", At("bad.mvd")}, "expect box bad.mvd\nbox OK"));
  EXPECT_EQ(Bench().Grain.Table.EntCount, -1);
}

TEST_F(Journey, CloseKeepsPlaceAndRecentFiles) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star5_sharp.mvd\nexpect count 10");
  Screen().MainPlace = {11, 22, 1333, 777, false};
  Play("close");
  EXPECT_TRUE(Bench().Ended);
  EXPECT_EQ(Read("TempFile"), "");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Screen().MainPlace.Left, 11);
  EXPECT_EQ(Screen().MainPlace.Width, 1333);
  Play("expect text mnuMRU(0) star5_sharp.mvd\nexpect hidden RecoveryBar\nexpect count 0");
}

TEST_F(Journey, UnsavedChangesAreAskedFor) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases + "star5_sharp.mvd");
  Play(R"(press mnuDims
          type GrainDiam 60
          press Dimensions.Next
          expect box Scale Core Entities with Grain Diameter?
          box Yes)");
  EXPECT_FALSE(Bench().Grain.SavedFlag);
  Play("press mnuFileNew\nexpect box Save Current Geometry First?\nbox Cancel\nexpect count 10");
  const std::string copy = At("copy.mvd");
  Play("press mnuFileSaveAs\nfile " + copy + "\nexpect text frmMain Morvandel - copy.mvd");
  Play("press mnuFileNew\nexpect count 0\nexpect text frmMain Morvandel -");
  Play("press mnuMRU(0)\nexpect count 10");
  Design scaled, original;
  ASSERT_EQ(ReadGrainFile(copy, scaled), "");
  ASSERT_EQ(ReadGrainFile(Cases + "star5_sharp.mvd", original), "");
  const double factor = 60 / original.Doc.GrainDiam;
  for (int i = 0; i <= original.Table.EntCount; ++i)
    EXPECT_NEAR(scaled.Table.Row[i].X1, original.Table.Row[i].X1 * factor, 1e-9);
}

TEST_F(Journey, SaveThatFailsLosesNothing) {
  ASSERT_TRUE(Start());
  Play("drop " + Cases +
       "d_port.mvd\npress mnuFileSaveAs\nfile /nowhere/at/all.mvd\nexpect box /nowhere/at/all.mvd\nbox "
       "OK\nexpect count 2");
  Play("press mnuFileSaveAs\nfile cancel\nexpect text frmMain Morvandel - d_port.mvd");
  Write("broken.mvd", "1\r\nx");
  Play("press mnuFileOpen\nfile " + At("broken.mvd") +
       "\nexpect box broken.mvd: line\nbox OK\nexpect count 2");
  Play("press mnuFileOpen\nfile " + At("absent.mvd") + "\nexpect count 2"); // a silent end
}

// A real kill -9: a child process opens a design and is killed; the next start has it.
TEST_F(Journey, KilledProgramLosesNothing) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Start();
    Play("drop " + Cases + "dogbone.mvd");
    [[maybe_unused]] const auto told = write(ready[1], "x", 1);
    for (;;) pause();
  }
  char byte;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  // While it lives, a second program neither takes nor harms its design.
  ASSERT_TRUE(Start());
  EXPECT_EQ(Bench().Grain.Table.EntCount, -1);
  Play("close");
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  ASSERT_TRUE(Start({}, "expect text GrainDiam 50\npress Next")); // prefilled from the recovered design
  Play(R"(expect count 4
          expect visible RecoveryBar
          expect visible mnuRecovered)");
  EXPECT_TRUE(Bench().Grain.SavedFlag);
  Play("press Recovery_Discard\nexpect count 0\nexpect hidden RecoveryBar\npress mnuRecovered\nexpect count "
       "4");
  Play("close");
  ASSERT_TRUE(Start());
  Play("expect count 0\nexpect hidden RecoveryBar");
}

} // namespace
