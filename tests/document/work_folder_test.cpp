// Where the work files are, and who owns which.
#include "base/whole_file.h"
#include "scratch_folder.h"
#include "shell/work_folder.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// Environment variables as a test wants them; as they were when it ends.
struct Environment {
  std::map<std::string, std::optional<std::string>> Before;
  void Set(const std::string &name, const std::optional<std::string> &value) {
    const char *old = std::getenv(name.c_str());
    Before.try_emplace(name, old ? std::optional<std::string>(old) : std::nullopt);
    if (value)
      setenv(name.c_str(), value->c_str(), 1);
    else
      unsetenv(name.c_str());
  }
  ~Environment() {
    for (const auto &[name, value] : Before) {
      if (value)
        setenv(name.c_str(), value->c_str(), 1);
      else
        unsetenv(name.c_str());
    }
  }
};

TEST(FindFolders, TakesTheFirstThatServes) {
  const ScratchFolder scratch;
  const std::string top = fs::canonical(scratch.Path).string() + "/", bin = top + "opt/bin/",
                    program = bin + "morvandel";
  fs::create_directories(bin);
  ASSERT_EQ(WriteWhole(program, "x"), "");
  Environment environment;
  environment.Set("MORVANDEL_HOME", std::nullopt);
  environment.Set("XDG_DATA_HOME", std::nullopt);
  environment.Set("HOME", top + "home");
  EXPECT_EQ(FindFolders(program).AppDir, top + "home/.local/share/morvandel/");
  EXPECT_TRUE(fs::is_directory(top + "home/.local/share/morvandel"));
  environment.Set("XDG_DATA_HOME", "relative");
  EXPECT_EQ(FindFolders(program).AppDir, top + "home/.local/share/morvandel/");
  environment.Set("XDG_DATA_HOME", top + "xdg");
  EXPECT_EQ(FindFolders(program).AppDir, top + "xdg/morvandel/");

  fs::create_symlink(program, top + "link");
  EXPECT_EQ(FindFolders(top + "link").Install, bin);
  fs::create_directories(top + "opt/share/morvandel/data");
  EXPECT_EQ(FindFolders(program).Install, top + "opt/share/morvandel/");
  fs::create_directories(bin + "examples");
  EXPECT_EQ(FindFolders(program).Install, bin);

  ASSERT_EQ(WriteWhole(bin + "DefaultFile", "x"), "");
  EXPECT_EQ(FindFolders(top + "link").AppDir, bin) << "work files stand beside the program";
  environment.Set("MORVANDEL_HOME", top + "own/deep");
  const WorkFolders own = FindFolders(program);
  EXPECT_EQ(own.AppDir, top + "own/deep/");
  EXPECT_EQ(own.Trouble, "");
  environment.Set("MORVANDEL_HOME", program + "/below");
  EXPECT_NE(FindFolders(program).Trouble, "");
}

TEST(FindFolders, NeedsNoHome) {
  Environment environment;
  const ScratchFolder scratch;
  environment.Set("HOME", std::nullopt);
  environment.Set("MORVANDEL_HOME", scratch.Path);
  EXPECT_EQ(FindFolders(ExecutablePath()).Trouble, "");
  EXPECT_TRUE(fs::exists(ExecutablePath()));
}

TEST(WorkClaim, TwoProgramsKeepApartAndADeadOneLeavesItsDesign) {
  const ScratchFolder folder;
  WorkClaim first;
  ClaimWorkFiles(first, folder.Path);
  EXPECT_EQ(first.TempFile, folder.Path + "TempFile");
  ASSERT_EQ(WriteWhole(first.TempFile, "first"), "");

  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    WorkClaim second;
    ClaimWorkFiles(second, folder.Path);
    WriteWhole(second.TempFile, "second");
    const bool told = write(ready[1], "x", 1) == 1;
    while (told) pause();
    _exit(1);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  const std::string second = folder.Path + "TempFile.2";
  ASSERT_TRUE(FileExists(second));
  EXPECT_EQ(LeftOverTempFiles(first, folder.Path), std::vector<std::string>{first.TempFile});
  {
    WorkClaim third;
    ClaimWorkFiles(third, folder.Path);
    EXPECT_EQ(third.TempFile, folder.Path + "TempFile.3");
    EXPECT_TRUE(LeftOverTempFiles(third, folder.Path).empty()) << "both others run";
  }
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(LeftOverTempFiles(first, folder.Path), (std::vector<std::string>{first.TempFile, second}));
  ASSERT_EQ(WriteWhole(folder.Path + "TempFile.10", "x"), "");
  for (const char *stray :
       {"TempFile.unreadable", "TempFile.02", "TempFile.1", "TempFile.", "TempFileX", "TempFile.2x"})
    ASSERT_EQ(WriteWhole(folder.Path + stray, "x"), "");
  ASSERT_EQ(WriteWhole(first.TempFile, ""), "");
  EXPECT_EQ(LeftOverTempFiles(first, folder.Path),
            (std::vector<std::string>{second, folder.Path + "TempFile.10"}));
  WorkClaim next;
  ClaimWorkFiles(next, folder.Path);
  EXPECT_EQ(next.TempFile, second);
}

TEST(WorkClaim, AFolderThatIsNotThereGivesNone) {
  WorkClaim claim;
  ClaimWorkFiles(claim, "/nowhere/at/all/");
  EXPECT_EQ(claim.TempFile, "");
  EXPECT_TRUE(LeftOverTempFiles(claim, "/nowhere/at/all/").empty());
}

} // namespace
