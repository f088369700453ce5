#include "dxf/dxf_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {
std::vector<std::string> LinesOf(const std::string &bytes) {
  std::vector<std::string> lines;
  for (std::size_t at = 0, end; (end = bytes.find("\r\n", at)) != bytes.npos; at = end + 2)
    lines.push_back(bytes.substr(at, end - at));
  return lines;
}

std::string Joined(const std::vector<std::string> &lines, std::size_t from, std::size_t count) {
  std::string text;
  for (std::size_t i = from; i < from + count && i < lines.size(); ++i) text += lines[i] + "|";
  return text;
}

std::string Behind(const std::vector<std::string> &lines, const std::string &line, std::size_t count) {
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (lines[i] == line) return Joined(lines, i + 1, count);
  return "no " + line;
}

Design Grain(double radius) {
  Design design;
  SetDimensions(design.Doc, 2 * radius, 40, 3, 3);
  return design;
}

TEST(DxfWriter, StandsAsItAlwaysDid) {
  Design design = Grain(100);
  const auto lines = LinesOf(DxfText(design, {}));
  EXPECT_EQ(Joined(lines, 0, 8), "  0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|");
  EXPECT_EQ(Behind(lines, "$EXTMIN", 6), "10|-101.0000000000|20|-101.0000000000|30|0.0000000000|");
  EXPECT_EQ(Behind(lines, "$EXTMAX", 4), "10|101.0000000000|20|101.0000000000|");
  EXPECT_EQ(Behind(lines, "$SHADEDGE", 5), std::string("70|Print #1, ") + "    " + " 3 |9|$SHADEDIF|70|");
  EXPECT_EQ(Behind(lines, "$TEXTSTYLE", 2), "7|CKSTANDARD|");
  EXPECT_EQ(Behind(lines, "$DIMBLK", 3), "1||9|");
  EXPECT_EQ(Behind(lines, "$VISRETAIN", 10), "70|0|0|ENDSEC|0|SECTION|2|TABLES|0|Table|");
  EXPECT_EQ(Behind(lines, "ENTITIES", 5), "0|ENDSEC|0|EOF|"); // an empty table
  int variables = 0, padded = 0;
  for (const std::string &line : lines) {
    variables += line.starts_with("$");
    padded += line.starts_with(" ");
  }
  EXPECT_EQ(variables, 135);
  EXPECT_EQ(padded, 1);
}

TEST(DxfWriter, EntitiesInBothForms) {
  Design design = Grain(12.345);
  AppendRow(design.Table, MakeLine(-0.00000000001, 2, 3.00000000005, -4));
  AppendRow(design.Table, MakeArc(1, 2, 3, Pi, Pi / 2));
  AppendRow(design.Table, MakeCircle(0, 0, 5));
  AppendRow(design.Table, {}); // of no known type
  const std::string head = "8|Morvandel_LEVEL_1|6|CONTINUOUS|62|3|", zero = "0.0000000000|";
  const std::string expected = "0|LINE|" + head + "10|" + zero + "20|2.0000000000|30|" + zero +
                               "11|3.0000000001|21|-4.0000000000|31|" + zero + "0|ARC|" + head +
                               "10|1.0000000000|20|2.0000000000|30|" + zero +
                               "40|3.0000000000|50|180.0000000000|51|90.0000000000|0|CIRCLE|" + head + "10|" +
                               zero + "20|" + zero + "30|" + zero + "40|5.0000000000|0|CIRCLE|" + head +
                               "10|" + zero + "20|" + zero + "30|" + zero +
                               "40|12.3450000000|0|ENDSEC|0|EOF|";
  for (const DxfForm form : {DxfForm::Own, DxfForm::PlainR12})
    EXPECT_EQ(Behind(LinesOf(DxfText(design, {form, true})), "ENTITIES", 1000), expected);
}

TEST(DxfWriter, NamesWhatIsNoNumber) {
  Design design = Grain(10);
  AppendRow(design.Table, MakeLine(0, 0, 1, 1));
  AppendRow(design.Table, MakeCircle(0, NAN, 1));
  EXPECT_EQ(WriteDxfFile("/dev/null", design, {}),
            "/dev/null: cannot be written: entity 2: CenterY is not a finite number");
}
} // namespace
