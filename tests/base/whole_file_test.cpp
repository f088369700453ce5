// Files are replaced whole or not at all.
#include "base/settings_store.h"
#include "base/whole_file.h"
#include "rounds.h"
#include "scratch_folder.h"

#include <csignal>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string Content(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream all;
  all << file.rdbuf();
  return all.str();
}

int FilesIn(const std::string &folder) {
  return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

std::string WritePieces(const std::string &path, std::string_view bytes) {
  StreamedFile file;
  OpenStreamed(file, path);
  for (std::size_t i = 0; i < bytes.size(); i += 1000) WriteStreamed(file, bytes.substr(i, 1000));
  return CommitStreamed(file);
}

using Writer = std::string (*)(const std::string &, std::string_view);
constexpr Writer Writers[] = {WriteWhole, WritePieces};

// Runs the body in a process of its own, with other rights or limits than the test's; what it returns.
std::string InAnotherProcess(const std::function<std::string()> &body) {
  int ends[2];
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    const std::string said = body();
    const auto sent = write(ends[1], said.data(), said.size());
    _exit(sent == static_cast<ssize_t>(said.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string said;
  char piece[4096];
  for (ssize_t got; (got = read(ends[0], piece, sizeof piece)) > 0;)
    said.append(piece, static_cast<std::size_t>(got));
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return said;
}

void BecomeNobody() {
  if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(2);
}

TEST(WholeFile, ReplacesFollowsLinksAndKeepsTheMode) {
  for (const Writer writer : Writers) {
    const ScratchFolder folder;
    const std::string real = folder.Path + "real", link = folder.Path + "link", last = folder.Path + "last";
    const std::string big(700001, 'x');
    EXPECT_EQ(writer(real, "first"), "");
    ASSERT_EQ(chmod(real.c_str(), 0640), 0);
    fs::create_symlink("real", link);
    fs::create_symlink(link, last);
    EXPECT_EQ(writer(last, big), "");
    EXPECT_TRUE(fs::is_symlink(last) && fs::is_symlink(link));
    EXPECT_EQ(Content(real), big);
    struct stat facts {};
    ASSERT_EQ(stat(real.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0640u);
    fs::create_symlink("fresh", folder.Path + "dangling");
    EXPECT_EQ(writer(folder.Path + "dangling", "new"), "");
    EXPECT_EQ(Content(folder.Path + "fresh"), "new");
    EXPECT_EQ(FilesIn(folder.Path), 5);
    std::string bytes;
    EXPECT_EQ(ReadWhole(last, bytes), "");
    EXPECT_EQ(bytes, big);
    EXPECT_EQ(writer(real, ""), "");
    EXPECT_EQ(Content(real), "");
  }
}

TEST(WholeFile, NewFilesTakeTheUsualMode) {
  const ScratchFolder folder;
  const mode_t mask = umask(027);
  EXPECT_EQ(WriteWhole(folder.Path + "a", "x"), "");
  umask(mask);
  struct stat facts {};
  ASSERT_EQ(stat((folder.Path + "a").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777, 0640u);
}

TEST(WholeFile, AnyFailureLeavesTheOldFileAndNothingElse) {
  for (const Writer writer : Writers) {
    const ScratchFolder folder;
    const std::string path = folder.Path + "old", big(600000, 'x');
    ASSERT_EQ(writer(path, "kept"), "");
    const auto unhurt = [&](const char *what, const std::string &said) {
      SCOPED_TRACE(what);
      EXPECT_NE(said.find("old: "), said.npos) << said;
      EXPECT_EQ(Content(path), "kept");
      EXPECT_EQ(FilesIn(folder.Path), 1);
    };
    unhurt("disk full", InAnotherProcess([&] {
             std::signal(SIGXFSZ, SIG_IGN);
             const rlimit limit{100000, 100000};
             setrlimit(RLIMIT_FSIZE, &limit);
             return writer(path, big);
           }));
    ASSERT_EQ(chmod(folder.Path.c_str(), 0555), 0);
    unhurt("read-only folder", InAnotherProcess([&] {
             BecomeNobody();
             return writer(path, big);
           }));
    ASSERT_EQ(chmod(folder.Path.c_str(), 0777), 0);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    unhurt("read-only file", InAnotherProcess([&] {
             BecomeNobody();
             return writer(path, big);
           }));
    EXPECT_NE(writer(folder.Path, "x"), "") << "a folder";
    EXPECT_NE(writer(folder.Path + "none/there", "x"), "");
    EXPECT_NE(writer("", "x"), "");
    EXPECT_NE(writer("/dev/full", big).find("/dev/full"), std::string::npos);
    EXPECT_TRUE(fs::is_character_file("/dev/full")) << "a device is written to, not replaced";
    EXPECT_EQ(writer("/dev/null", big), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(FilesIn(folder.Path), 1);
  }
}

TEST(WholeFile, AStreamedFileWithoutCommitLeavesNothing) {
  const ScratchFolder folder;
  {
    StreamedFile file;
    OpenStreamed(file, folder.Path + "a");
    WriteStreamed(file, std::string(1000000, 'x'));
    EXPECT_EQ(FilesIn(folder.Path), 1);
  }
  EXPECT_EQ(FilesIn(folder.Path), 0);
}

TEST(WholeFile, ReadingRefusesWhatIsNoPlainFile) {
  const ScratchFolder folder;
  std::string bytes = "as before";
  ASSERT_EQ(mkfifo((folder.Path + "pipe").c_str(), 0600), 0);
  std::ofstream(folder.Path + "huge").put('x');
  fs::resize_file(folder.Path + "huge", (std::uintmax_t{64} << 20) + 1);
  std::ofstream(folder.Path + "secret").put('x');
  ASSERT_EQ(chmod((folder.Path + "secret").c_str(), 0), 0);
  ASSERT_EQ(chmod(folder.Path.c_str(), 0755), 0);
  for (const std::string &path : {folder.Path, folder.Path + "pipe", folder.Path + "huge",
                                  folder.Path + "absent", std::string("/dev/zero"), std::string()})
    EXPECT_NE(ReadWhole(path, bytes), "") << path;
  EXPECT_EQ(bytes, "as before");
  EXPECT_NE(InAnotherProcess([&] {
              BecomeNobody();
              return ReadWhole(folder.Path + "secret", bytes);
            }).find("secret: "),
            std::string::npos);
  EXPECT_FALSE(FileExists(folder.Path));
}

TEST(SettingsStore, RoundTripsAnyText) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "deep/below/settings";
  SettingsStore store = LoadSettings(path);
  EXPECT_TRUE(store.Entry.empty());
  std::mt19937_64 random(Seed());
  const std::string letters = "ab[]=\\\n\r \"#;e";
  const auto text = [&] {
    std::string made;
    for (auto left = random() % 7; left > 0; --left) made += letters[random() % letters.size()];
    return made;
  };
  for (int i = 0; i < 500; ++i) SaveSetting(store, text(), text(), text());
  ASSERT_EQ(WriteSettings(store), "");
  EXPECT_EQ(LoadSettings(path).Entry, store.Entry);
  SaveSetting(store, "A", "k", "1");
  SaveSetting(store, "B", "k", "2");
  DeleteSection(store, "A");
  EXPECT_EQ(GetSetting(store, "A", "k", "none"), "none");
  EXPECT_EQ(GetSetting(store, "B", "k"), "2");
}

TEST(SettingsStore, ABrokenFileIsNoTrouble) {
  const ScratchFolder folder;
  std::mt19937_64 random(Seed());
  for (int i = 0; i < 200 * Rounds(); ++i) {
    std::string bytes;
    for (auto left = random() % 300; left > 0; --left) bytes += static_cast<char>(random());
    std::ofstream(folder.Path + "s", std::ios::binary) << "[Good]\r\nkey=1\r\n" << bytes;
    const SettingsStore store = LoadSettings(folder.Path + "s");
    EXPECT_EQ(GetSetting(store, "Good", "key").substr(0, 1), "1");
  }
}

} // namespace
