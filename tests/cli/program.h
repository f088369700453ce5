#pragma once
#include "base/whole_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

// Runs morvandel-cli as a process in a folder of its own.
struct Program : testing::Test {
  std::filesystem::path Folder;
  std::string Out, Err;

  void SetUp() override {
    const auto *info = testing::UnitTest::GetInstance()->current_test_info();
    Folder =
        std::filesystem::path(testing::TempDir()) /
        ("cli_" + std::string(info->test_suite_name()) + "_" + info->name() + "_" + std::to_string(getpid()));
    std::filesystem::remove_all(Folder);
    std::filesystem::create_directories(Folder / "home");
  }
  void TearDown() override { std::filesystem::remove_all(Folder); }

  std::string At(const std::string &name) const { return (Folder / name).string(); }
  std::string Read(const std::string &name) const {
    std::string bytes;
    EXPECT_EQ(ReadWhole(At(name), bytes), "");
    return bytes;
  }
  void Write(const std::string &name, std::string_view bytes) const {
    ASSERT_EQ(WriteWhole(At(name), bytes), "");
  }

  // The exit code; Out and Err hold what it printed. HOME is not set.
  int Run(const std::string &arguments) {
    const std::string command = "cd '" + Folder.string() + "' && env -u HOME MORVANDEL_HOME='" + At("home") +
                                "' '" TEST_BIN "/morvandel-cli' " + arguments +
                                " >out.txt 2>err.txt </dev/null";
    const int status = std::system(command.c_str());
    Out = Read("out.txt");
    Err = Read("err.txt");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

inline const std::string Star = TEST_DATA "/cases/star6_fillet.mvd";
