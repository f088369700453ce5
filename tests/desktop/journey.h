#pragma once
#include "desktop/player.h"
#include "desktop/qt_screen.h"
#include "shell/command_line.h"
#include "shell/dispatch.h"
#include "shell/start_up.h"

#include <QApplication>
#include <QTemporaryDir>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

inline const std::string Cases = TEST_DATA "/cases/";

inline std::string BytesOf(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

// A program of its own: fresh work folder, fresh screen, the script played on it.
struct Journey {
  QTemporaryDir Home;
  DrawSurface Panel; // as it stood when the last line was done
  EntityTable Table;

  std::string File(const char *name) const { return Home.filePath(name).toStdString(); }

  void Run(const std::vector<std::string> &arguments, std::vector<QString> lines) {
    qputenv("MORVANDEL_HOME", Home.path().toUtf8());
    auto &app = *static_cast<QApplication *>(QCoreApplication::instance());
    QtScreen screen(app);
    Workbench bench(screen);
    Player player{app, bench, std::move(lines), 0, {}};
    Play(player);
    const WorkFolders folders = FindFolders(TEST_BIN "/morvandel");
    if (StartUp(bench, folders, ReadCommandLine(arguments))) {
      screen.Mirror();
      if (!bench.Ended) app.exec();
    }
    EXPECT_EQ(player.Fault, "");
    EXPECT_EQ(player.Next, player.Line.size()) << "ended before the script did";
    Panel = screen.Panel;
    Table = bench.Grain.Table;
  }
};

using Lines = std::vector<QString>;
inline const std::vector<std::string> FiveKeys = {"Gd=50", "Gl=120", "Ea=1", "Eb=0", "Td=9"};
inline QString Path(const std::string &path) { return QString::fromStdString(path); }

inline std::vector<std::string> KeysAnd(const std::string &file) {
  std::vector<std::string> all = FiveKeys;
  all.push_back(file);
  return all;
}

inline Lines PastIntro(Lines lines) {
  Lines all = {"press OK"};
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}
