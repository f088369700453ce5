// The solids and the picture of a grain as files.
#include "cli/program.h"

#include <cstring>

namespace {

struct Solids : Program {
  std::string Star = TEST_DATA "/cases/star5_sharp.mvd";
  std::string Mesh(const std::string &more) { return "mesh '" + Star + "' --part grain " + more; }
};

TEST_F(Solids, AreWrittenInBothForms) {
  for (const std::string part : {"grain", "core", "liner"}) {
    ASSERT_EQ(Run("mesh '" + Star + "' --at 2.5 --part " + part + " --stl s.stl --3mf s.3mf"), 0) << Err;
    const std::string stl = Read("s.stl"), package = Read("s.3mf");
    std::uint32_t triangles = 0;
    ASSERT_GT(stl.size(), 84u);
    std::memcpy(&triangles, stl.data() + 80, 4);
    EXPECT_EQ(stl.size(), 84 + 50u * triangles);
    EXPECT_NE(Out.find(std::to_string(triangles) + " triangles"), std::string::npos) << Out;
    EXPECT_EQ(package.substr(0, 4), "PK\3\4");
  }
  ASSERT_EQ(Run("mesh '" + Star + "' --part core --draft 0.2 --stl d.stl"), 0) << Err;
}

TEST_F(Solids, PictureIsDrawnWithoutADisplay) {
  for (const std::string cut : {"none", "half", "quarter"}) {
    ASSERT_EQ(Run("render '" + Star + "' --png p.png --at 3 --size 160x100 --cut " + cut), 0) << Err;
    EXPECT_EQ(Read("p.png").substr(1, 3), "PNG");
  }
}

TEST_F(Solids, RefusalsLeaveTheOldFile) {
  std::string design;
  ASSERT_EQ(ReadWhole(Star, design), "");
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < design.size();) {
    const std::size_t end = std::min(design.find('\n', at), design.size() - 1) + 1;
    lines.push_back(design.substr(at, end - at));
    at = end;
  }
  std::string open;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) open += lines[i];
  Write("open.mvd", open);
  std::string flat, empty;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i < 18) empty += lines[i];
    flat += i == 2 ? "0\r\n" : lines[i];
  }
  Write("flat.mvd", flat);
  Write("empty.mvd", empty);
  Write("old.stl", "old");
  const struct {
    std::string Arguments;
    int Code;
    const char *Words;
  } rows[] = {
      {Mesh("--at 900 --stl old.stl"), 1, "burnt out at"},
      {Mesh("--at -1 --stl old.stl"), 2, "--at"},
      {Mesh("--at nan --stl old.stl"), 2, "--at"},
      {Mesh("--chord 0 --stl old.stl"), 2, "--chord"},
      {Mesh("--draft 3 --stl old.stl"), 2, "--draft"},
      {Mesh(""), 2, "--stl or --3mf"},
      {Mesh("--stl /dev/full"), 2, "/dev/full"},
      {"mesh flat.mvd --part core --stl old.stl", 1, "length"},
      {"mesh empty.mvd --part liner --stl old.stl", 1, ""},
      {Mesh("--stl nowhere/x.stl"), 2, "nowhere/x.stl"},
      {"mesh none.mvd --part grain --stl old.stl", 2, "none.mvd"},
      {"mesh '" + Star + "' --part core --draft 30 --stl old.stl", 1, "at most"},
      {"mesh open.mvd --part grain --stl old.stl", 1, ""},
      {"render '" + Star + "' --png p.png --at 900", 1, "burnt out at"},
      {"render '" + Star + "' --png p.png --size 3x", 2, "--size"},
      {"render '" + Star + "' --png nowhere/p.png", 2, "nowhere/p.png"},
  };
  for (const auto &row : rows) {
    EXPECT_EQ(Run(row.Arguments), row.Code) << row.Arguments << Err;
    EXPECT_NE(Err.find(row.Words), std::string::npos) << row.Arguments << Err;
    EXPECT_EQ(Read("old.stl"), "old") << row.Arguments;
    EXPECT_FALSE(std::filesystem::exists(Folder / "p.png")) << row.Arguments;
  }
}

} // namespace
