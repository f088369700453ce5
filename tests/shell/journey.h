#pragma once
#include "base/whole_file.h"
#include "shell/dispatch.h"
#include "shell/play_script.h"
#include "shell/start_up.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

// A program on a scripted screen, with work files in a folder of its own. Start may be called again: the next
// start of the same user.
struct Journey : testing::Test {
  struct Running {
    ScriptedScreen Screen;
    Workbench Bench{Screen};
  };
  std::filesystem::path Home;
  std::unique_ptr<Running> Program;
  std::string Install = TEST_SOURCE "/"; // examples, help pages and hot keys; empty: nothing is installed

  void SetUp() override {
    const auto *info = testing::UnitTest::GetInstance()->current_test_info();
    Home = std::filesystem::path(testing::TempDir()) /
           ("journey_" + std::string(info->name()) + "_" + std::to_string(getpid()));
    std::filesystem::remove_all(Home);
    std::filesystem::create_directories(Home);
    Write("IntroFile.txt", "1\r\n");
  }
  void TearDown() override {
    Program.reset();
    std::filesystem::remove_all(Home);
  }

  std::string At(const std::string &name) const { return (Home / name).string(); }
  void Write(const std::string &name, std::string_view bytes) const {
    ASSERT_EQ(WriteWhole(At(name), bytes), "");
  }
  std::string Read(const std::string &name) const {
    std::string bytes;
    EXPECT_EQ(ReadWhole(At(name), bytes), "");
    return bytes;
  }

  // Starts with these arguments; the script answers what comes up. False: the program ended at once.
  bool Start(const std::vector<std::string> &arguments = FiveKeys(), const std::string &script = "") {
    Program.reset();
    Program = std::make_unique<Running>();
    BindScript(Program->Bench, Program->Screen);
    Program->Screen.Lines = ReadScript(script);
    WorkFolders folders;
    folders.AppDir = Home.string() + "/";
    folders.Install = Install;
    const bool stays = StartUp(Program->Bench, folders, ReadCommandLine(arguments));
    EXPECT_EQ(Program->Screen.Lines.Fault, "");
    return stays;
  }
  void Play(const std::string &script) {
    Program->Screen.Lines = ReadScript(script);
    PlayScript(Program->Screen);
    EXPECT_EQ(Program->Screen.Lines.Fault, "") << script;
  }
  Workbench &Bench() { return Program->Bench; }
  ScriptedScreen &Screen() { return Program->Screen; }

  static std::vector<std::string> FiveKeys() { return {"Gd=40", "Gl=100", "Ea=1", "Eb=0", "Td=5"}; }
};

inline const std::string Cases = TEST_DATA "/cases/";
