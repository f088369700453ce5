#include "journey_scripts.h"
#include "shell/journey.h"

#include "platform/recorded_screen.h"
#include "shell/grain_file.h"

namespace {

struct Recorder : testing::Test {
  struct Running {
    RecordedScreen<ScriptedScreen> Screen;
    Workbench Bench{Screen};
    // A start that every round shares; the folder is the test's own.
    explicit Running(const std::string &home) {
      BindScript(Bench, Screen);
      WorkFolders folders;
      folders.AppDir = home;
      folders.Install = std::string(TEST_SOURCE) + "/";
      EXPECT_TRUE(StartUp(Bench, folders, ReadCommandLine(Journey::FiveKeys())));
      Bench.Grain.Doc.SnapToGrid = 0;
    }
    void Play(const std::string &script) {
      Screen.Lines = ReadScript(script);
      PlayScript(Screen);
      EXPECT_EQ(Screen.Lines.Fault, "") << script;
    }
    std::string Text() { return GrainText(Bench.Grain, GrainForm::File); }
  };
  std::filesystem::path Home =
      std::filesystem::path(testing::TempDir()) / ("recorder_" + std::to_string(getpid()));
  std::string Folder() { return Home.string() + "/"; }

  void SetUp() override {
    std::filesystem::create_directories(Home);
    Put("IntroFile.txt", "1\r\n");
  }
  void TearDown() override { std::filesystem::remove_all(Home); }
  void Put(const std::string &name, std::string_view bytes) {
    ASSERT_EQ(WriteWhole(Folder() + name, bytes), "");
  }

  // Plays `before`, then `script` while it is recorded, then the recording in a new program: the same design.
  // The recording.
  std::string RoundTrip(const std::string &before, const std::string &script) {
    Put("TempFile", "");
    std::string drawn, recorded;
    {
      Running first(Folder());
      first.Play(before);
      first.Play("press mnuRecord\nexpect checked mnuRecord");
      first.Play(script);
      first.Play("press mnuRecord\nfile " + Folder() + "again\nexpect unchecked mnuRecord");
      drawn = first.Text();
    }
    EXPECT_EQ(ReadWhole(Folder() + "again.txt", recorded), "");
    Put("TempFile", "");
    Running second(Folder());
    second.Play(recorded);
    EXPECT_EQ(second.Text(), drawn) << recorded;
    return recorded;
  }
};

TEST_F(Recorder, EveryJourneyComesOutTheSame) {
  for (const auto &[path, script] : JourneyScripts()) {
    SCOPED_TRACE(path);
    const auto grain = script.find("grain "); // of the Dimensions dialog, before anything is drawn
    const auto rest = grain == script.npos ? 0 : script.find('\n', grain);
    RoundTrip(script.substr(0, rest), script.substr(rest));
  }
}

TEST_F(Recorder, WritesWhatWasDoneNotHowItWasTyped) {
  const std::string script = R"(key C
      move 1.25 2.5
      move 3 4
      click 3 0
      type X_Input 1
      type X_Input 12
      key Enter in X_Input
      key Ctrl+K
      type Find_Text rectangle by corners
      key Enter
      click 0 0 Alt
      move 3 4
      type X_Input 5
      key Enter in X_Input
      key Enter in Y_Input
      key Escape in DrawPanel
      drag -1 -1 6 6
      wheel 1 1 2
      pan 0 0 2 3
      ask FilletArc
      press HotKeyList:Help
      press mnuGrid
      type GridSpacing 0
      press Grid_Control.OK
      box OK
      type GridSpacing 2
      press SnapToGrid
      press Grid_Control.OK
      cmd 20
      answer 1/2
      click 3.2 3.2
      cmd 20
      answer cancel)";
  const std::string recorded = RoundTrip("grain 40 100 5 A\nhave rotating 1\nhave rotations 3", script);
  EXPECT_TRUE(recorded.starts_with("grain 40 100 5 A\nhave snap 0\n")) << recorded;
  for (const char *line :
       {"\nhave rotations 3\nhave rotating 1\npress Circle_CtrEdge\nclick 3.000000 0.000000\n",
        "\ntype X_Input 12\nkey Enter in X_Input\n",
        "\npress BoxEdges\nclick 0.000000 0.000000 Alt\n"
        "move 3.000000 4.000000\ntype X_Input 5\n",
        "\ndrag -1.000000 -1.000000 6.000000 6.000000\n", "\nask FilletArc\npress HotKeyList:Help\n",
        "\npress Grid_Control.OK\nbox OK\n", "\nanswer 1/2\n"})
    EXPECT_NE(recorded.find(line), std::string::npos) << line << "is not in\n" << recorded;
}

TEST_F(Recorder, AsksBeforeItLosesARecording) {
  Running program(Folder());
  program.Play("press mnuRecord\npress mnuRecord\nfile cancel\nbox No\nexpect checked mnuRecord\n"
               "press mnuRecord\nfile /nowhere/at/all\nexpect box /nowhere\nexpect checked mnuRecord\n"
               "close\nfile cancel\nbox No\nexpect visible frmMain\nclose\nfile cancel\nbox Yes\nexpect "
               "hidden frmMain");
}

} // namespace
