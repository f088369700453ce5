// Grain files: bytes, the three forms, refusals by place, and mutated files.
#include "base/fault.h"
#include "base/whole_file.h"
#include "rounds.h"
#include "scratch_folder.h"
#include "shell/grain_file.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace {

Design SmallDesign() {
  Design design;
  SetDimensions(design.Doc, 40, 100.5, 5, 1);
  design.Doc.BurnIncrement = .02;
  AppendRow(design.Table, MakeLine(0, 0, 10, 0));
  Entity arc;
  arc.EntType = ArcType;
  arc.Selected = true;
  arc.X1 = 3.5;
  arc.X2 = -.5;
  arc.CenterX = 1.0 / 3;
  arc.Y2 = 2e-9;
  arc.Slope = 7;
  arc.Radius = 4;
  arc.EndAngle = 3.14159265358979;
  AppendRow(design.Table, arc);
  AppendRow(design.Table, MakeCircle(-1, 2, 1e-20));
  return design;
}

const std::string SmallHeader = "20\r\n100.5\r\n1\r\n5\r\n.02\r\n5\r\n1\r\n2\r\n8421504\r\n0\r\n0\r\n.01\r\n"
                                ".02\r\n.002\r\n.0002\r\n.00002\r\n.00002\r\n";
const std::string SmallEntities =
    "1,#FALSE#,0,10,5,0,0,0,.000000001,0,0,0,0\r\n"
    "4,#TRUE#,3.5,-.5,.333333333333333,0,.000000002,0,7,0,4,0,3.14159265358979\r\n"
    "2,#FALSE#,0,0,-1,0,0,2,0,0,1E-20,0,0\r\n";
const std::string SmallFile = "\"Version1_1\"\r\n" + SmallHeader + SmallEntities;

std::string Replace(std::string text, const std::string &part, const std::string &by) {
  const std::size_t at = text.find(part);
  EXPECT_NE(at, text.npos) << part;
  return text.replace(at, part.size(), by);
}

std::vector<std::string> Lines(const std::string &text) {
  std::vector<std::string> lines(1);
  for (char c : text) {
    lines.back() += c;
    if (c == '\n') lines.emplace_back();
  }
  lines.pop_back();
  return lines;
}

std::string Joined(const std::vector<std::string> &lines) {
  std::string text;
  for (const auto &line : lines) text += line;
  return text;
}

TEST(GrainFile, BytesAreFixed) {
  const Design design = SmallDesign();
  EXPECT_EQ(GrainText(design, GrainForm::File), SmallFile);
  EXPECT_EQ(GrainText(design, GrainForm::Work), SmallHeader + SmallEntities);
  Design empty = design;
  empty.Table.EntCount = -1;
  EXPECT_EQ(GrainText(empty, GrainForm::File), "\"Version1_1\"\r\n" + SmallHeader);
}

TEST(GrainFile, BothFormsReadBackTheSame) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "a.mvd";
  for (const bool work : {false, true}) {
    Design design;
    ASSERT_EQ((work ? WriteWorkFile : WriteGrainFile)(path, SmallDesign()), "");
    ASSERT_EQ(ReadGrainFile(path, design), "");
    EXPECT_EQ(GrainText(design, GrainForm::File), SmallFile);
    EXPECT_EQ(design.Doc.GrainDiam, 40);
    EXPECT_EQ(design.Doc.LinerThickness, 1);
    EXPECT_TRUE(design.Table.Row[1].Selected);
  }
  Design playing = SmallDesign();
  playing.MacroMode = 2;
  EXPECT_EQ(WriteWorkFile(folder.Path + "none", playing), "");
  EXPECT_FALSE(FileExists(folder.Path + "none"));
}

TEST(GrainFile, TheOlderFormKeepsTheDocument) {
  Design design;
  SetDimensions(design.Doc, 60, 7, 3, 2);
  AppendRow(design.Table, MakeCircle(0, 0, 1));
  const std::string before = GrainText(design, GrainForm::Work);
  ASSERT_EQ(ParseGrain(SmallEntities, "old", design), "");
  EXPECT_EQ(design.Table.EntCount, 2);
  EXPECT_EQ(design.Doc.GrainDiam, 60);
  EXPECT_EQ(GrainText(design, GrainForm::Work).substr(0, before.find("2,#FALSE#")),
            before.substr(0, before.find("2,#FALSE#")));
}

TEST(GrainFile, OtherLegalFormsReadAlike) {
  const std::string forms[] = {
      Replace(SmallFile, ".02\r\n", "2.0e-02\r\n"),
      Replace(SmallFile, "100.5", " 1.005D+2 "),
      Replace(SmallFile, "\"Version1_1\"", "Version1_1"),
      "\xEF\xBB\xBF" + SmallFile,
      SmallFile + "\r\n \r\n",
      SmallFile.substr(0, SmallFile.size() - 2),
      Replace(SmallFile, "#TRUE#", "-1"),
      Replace(SmallFile, ",3.5,", "\r\n3.5\r\n"), // fields run across line ends
      Replace(SmallFile, "1,#FALSE#,0,10", "1.0,\"0\",+0,\"1e1\""),
      [] {
        std::string text = SmallFile;
        std::erase(text, '\r');
        return text;
      }(),
  };
  for (const auto &text : forms) {
    Design design;
    EXPECT_EQ(ParseGrain(text, "a", design), "") << text;
    EXPECT_EQ(GrainText(design, GrainForm::File), SmallFile);
  }
}

TEST(GrainFile, ALineKeepsTheSlopeOfItsFile) {
  Design design;
  ASSERT_EQ(ParseGrain(Replace(SmallFile, ",.000000001,0,", ",55,66,"), "a", design), "");
  EXPECT_EQ(design.Table.Row[0].Slope, 55);
  EXPECT_EQ(design.Table.Row[0].Intercept, 66);
}

TEST(GrainFile, RefusalsNameFileLineAndField) {
  const auto lines = Lines(SmallFile);
  std::vector<std::string> full(lines.begin(), lines.begin() + 18);
  for (int i = 0; i < 302; ++i) full.push_back(lines[20]);
  const struct {
    std::string Text, Said;
  } rows[] = {
      {Replace(SmallFile, ",-1,0,0,2,", ",inf,0,0,2,"),
       "line 21, field 5 (CenterX): expected a finite number, found \"inf\""},
      {Replace(SmallFile, ",10,", ",nan,"), "line 19, field 4 (X2): expected a finite number, found \"nan\""},
      {Replace(SmallFile, "1E-20", "1e400"),
       "line 21, field 11 (Radius): expected a finite number, found \"1e400\""},
      {Replace(SmallFile, "1E-20", "-1"),
       "line 21, field 11 (Radius): expected a number not below 0, found \"-1\""},
      {Replace(SmallFile, "2,#F", "3,#F"),
       "line 21, field 1 (EntType): expected 1 (line), 2 (circle) or 4 (arc), found \"3\""},
      {Replace(SmallFile, "4,#T", "0,#T"),
       "line 20, field 1 (EntType): expected 1 (line), 2 (circle) or 4 (arc), found \"0\""},
      {Replace(SmallFile, "#TRUE#", "yes"),
       "line 20, field 2 (Selected): expected #TRUE# or #FALSE#, found \"yes\""},
      {Replace(SmallFile, "\n20\r", "\n0\r"),
       "line 2, field 1 (GrainRadius): expected a number above 0, found \"0\""},
      {Replace(SmallFile, "\n20\r", "\n-3\r"),
       "line 2, field 1 (GrainRadius): expected a number above 0, found \"-3\""},
      {Replace(SmallFile, "\n20\r", "\n1e39\r"),
       "line 2, field 1 (GrainRadius): expected a finite 32-bit number, found \"1e39\""},
      {Replace(SmallFile, "100.5", ""),
       "line 3, field 1 (GrainLength): expected a finite 32-bit number, found an empty field"},
      {Replace(SmallFile, "\r\n1\r\n", "\r\n40000\r\n"),
       "line 4, field 1 (EndsExposed): expected a 16-bit whole number, found \"40000\""},
      {Replace(SmallFile, "\r\n0\r\n", "\r\n.5\r\n"),
       "line 11, field 1 (DisplayGrid): expected a 32-bit whole number, found \".5\""},
      {Joined({lines.begin(), lines.begin() + 17}),
       "line 18, field 1 (TolD): expected a finite number, found the end of the file"},
      {Replace(SmallFile, ",1E-20,0,0\r\n", ",1E-20,0\r\n"),
       "line 21, field 13 (EndAngle): expected 13 fields in an entity line, found 12"},
      {Replace(SmallFile, ".000000001,0,0,0,0", ".000000001,0,0,0"),
       "line 19, field 13 (EndAngle): expected 13 fields in an entity line, found 12"},
      {Replace(SmallFile, ",4,0,3", ",4,0,0,3"),
       "line 20, field 14: expected 13 fields in an entity line, found 14"},
      {Joined(full),
       "line 320, field 1 (EntType): expected the end of the file after 301 entities, found one more"},
      {"", "line 1, field 1: expected \"Version1_1\", one number or an entity of 13 fields, found the end of "
           "the file"},
      {"\"Version2\"\r\n",
       "line 1, field 1: expected \"Version1_1\", one number or an entity of 13 fields, found \"Version2\""},
      {"1,2\r\n",
       "line 1, field 1: expected \"Version1_1\", one number or an entity of 13 fields, found 2 fields"},
      {"\"Version1_1\r\n20\r\n", "line 1, field 1: expected \"Version1_1\", one number or an entity of 13 "
                                 "fields, found \"\"Version1_1\""},
  };
  for (const auto &row : rows) {
    Design design = SmallDesign();
    design.Doc.GrainLength = 77;
    const std::string before = GrainText(design, GrainForm::File);
    EXPECT_EQ(ParseGrain(row.Text, "star.mvd", design), "star.mvd: " + row.Said);
    EXPECT_EQ(GrainText(design, GrainForm::File), before) << row.Said;
  }
  full.pop_back();
  Design design;
  EXPECT_EQ(ParseGrain(Joined(full), "a", design), "");
  EXPECT_EQ(design.Table.EntCount, 300);
}

TEST(GrainFile, ValuesThatAreNotFiniteAreNeverWritten) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "a.mvd";
  ASSERT_EQ(WriteGrainFile(path, SmallDesign()), "");
  Design design = SmallDesign();
  design.Table.Row[1].Y2 = std::numeric_limits<double>::infinity();
  EXPECT_EQ(WriteGrainFile(path, design),
            path + ": cannot be written: Y2 of entity 1 is not a finite number");
  EXPECT_THROW(GrainText(design, GrainForm::File), Fault);
  design = SmallDesign();
  design.Doc.ThroatDiam = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(WriteWorkFile(path, design), path + ": cannot be written: ThroatDiam is not a finite number");
  std::string bytes;
  ASSERT_EQ(ReadWhole(path, bytes), "");
  EXPECT_EQ(bytes, SmallFile);
}

TEST(GrainFile, RecoveryTakesNoHarmFromAnEmptyFile) {
  const ScratchFolder folder;
  const std::string path = folder.Path + "TempFile";
  Design design = SmallDesign();
  EXPECT_EQ(RecoverWorkFile(path, design), "");
  for (const char *blank : {"", "\r\n"}) {
    ASSERT_EQ(WriteWhole(path, blank), "");
    EXPECT_EQ(RecoverWorkFile(path, design), "");
  }
  EXPECT_EQ(GrainText(design, GrainForm::File), SmallFile);
  ASSERT_EQ(WriteWhole(path, SmallHeader), "");
  EXPECT_EQ(RecoverWorkFile(path, design), "");
  EXPECT_EQ(design.Table.EntCount, -1);
  ASSERT_EQ(WriteWhole(path, "torn"), "");
  EXPECT_NE(RecoverWorkFile(path, design).find("TempFile: line 1, field 1"), std::string::npos);
}

std::vector<std::string> CaseFiles() {
  std::vector<std::string> files;
  for (const auto &file : std::filesystem::directory_iterator(TEST_DATA "/cases"))
    if (file.path().extension() == ".mvd") files.push_back(file.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

TEST(GrainFile, EveryCaseReadsAndRoundTrips) {
  const auto files = CaseFiles();
  ASSERT_GE(files.size(), 10u);
  for (const auto &file : files) {
    Design design, again;
    ASSERT_EQ(ReadGrainFile(file, design), "");
    EXPECT_GE(design.Table.EntCount, 0) << file;
    const std::string text = GrainText(design, GrainForm::File);
    std::string bytes;
    ASSERT_EQ(ReadWhole(file, bytes), "");
    EXPECT_EQ(Lines(text).size(), Lines(bytes).size()) << file;
    ASSERT_EQ(ParseGrain(text, file, again), "");
    EXPECT_EQ(GrainText(again, GrainForm::File), text);
    for (int i = 0; i <= design.Table.EntCount; ++i) {
      EXPECT_EQ(again.Table.Row[i].X1, design.Table.Row[i].X1);
      EXPECT_EQ(again.Table.Row[i].EndAngle, design.Table.Row[i].EndAngle);
    }
  }
}

struct Mutator {
  std::mt19937_64 Random;
  std::size_t Below(std::size_t n) { return n == 0 ? 0 : Random() % n; }
  std::string Mutate(std::string text) {
    static const std::vector<std::string> scraps{"inf",    "nan", "1e400", "-",      "\"",    ",",   "\r\n",
                                                 "\n",     "\r",  ".",     "E",      "40000", "-1",  "3",
                                                 "#TRUE#", "",    "1E-09", "\0\0\0", "9999",  "D5",  "  ",
                                                 "0",      "1,2", "#",     "\xff",   "4",     "1e39"};
    for (auto times = 1 + Below(3); times > 0; --times) {
      const std::size_t at = Below(text.size() + 1), many = Below(12);
      switch (Below(8)) {
      case 0: text.resize(at); break;
      case 1: text.erase(at, many); break;
      case 2: text.insert(at, scraps[Below(scraps.size())]); break;
      case 3: text.replace(at, many, scraps[Below(scraps.size())]); break;
      case 4:
        if (at < text.size()) text[at] = static_cast<char>(Random());
        break;
      case 5: std::erase(text, "\r\",#"[Below(4)]); break;
      case 6: {
        auto lines = Lines(text);
        if (lines.empty()) break;
        const auto line = lines[Below(lines.size())];
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(Below(lines.size())), Below(20) ? 1 : 300,
                     line);
        text = Joined(lines);
        break;
      }
      default: {
        auto lines = Lines(text);
        if (lines.size() < 2) break;
        std::swap(lines[Below(lines.size())], lines[Below(lines.size())]);
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(Below(lines.size())));
        text = Joined(lines);
      }
      }
    }
    return text;
  }
};

TEST(GrainFile, MutatedFilesAreReadWholeOrRefusedByPlace) {
  const auto seed = Seed();
  RecordProperty("seed", std::to_string(seed));
  SCOPED_TRACE("MORVANDEL_SEED=" + std::to_string(seed));
  std::vector<std::string> texts{SmallFile, SmallHeader + SmallEntities, SmallEntities, ""};
  for (const auto &file : CaseFiles()) ASSERT_EQ(ReadWhole(file, texts.emplace_back()), "");
  Mutator mutator{std::mt19937_64(seed)};
  const Design base = SmallDesign();
  const auto design = std::make_unique<Design>(), again = std::make_unique<Design>();
  int read = 0, refused = 0;
  for (int i = 0; i < 3000 * Rounds(); ++i) {
    const std::string text = mutator.Mutate(texts[mutator.Below(texts.size())]);
    *design = base;
    const std::string said = ParseGrain(text, "f.mvd", *design);
    if (!said.empty()) {
      ++refused;
      ASSERT_TRUE(said.starts_with("f.mvd: line ") && said.find(", field ") != said.npos &&
                  said.find("expected ") != said.npos)
          << said;
      ASSERT_EQ(GrainText(*design, GrainForm::File), SmallFile) << text;
      ASSERT_EQ(design->Doc.GrainDiam, base.Doc.GrainDiam);
      continue;
    }
    ++read;
    const std::string written = GrainText(*design, GrainForm::File);
    ASSERT_EQ(ParseGrain(written, "f.mvd", *again), "") << written;
    ASSERT_EQ(GrainText(*again, GrainForm::File), written);
    ASSERT_LE(design->Table.EntCount, 300);
    for (int k = 0; k <= design->Table.EntCount; ++k) {
      const Entity &row = RowAt(design->Table, k);
      ASSERT_TRUE(row.EntType == LineType || row.EntType == CircleType || row.EntType == ArcType);
    }
  }
  EXPECT_GT(read, 100);
  EXPECT_GT(refused, 1000);
}

} // namespace
