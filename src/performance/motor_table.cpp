#include "performance/motor_table.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "base/text_record.h"
#include "burnback/burn_files.h"

#include <utility>

namespace {

std::string Place(const std::string &path, const RecordReader &in, const char *field,
                  const std::string &trouble) {
  return path + ": line " + std::to_string(in.Line) + " (" + field + "): " + trouble;
}

bool TakeNumber(RecordReader &in, double &value) {
  std::string text;
  if (!Take(in, text)) return false;
  if (!text.empty() && NumeralLength(text) == text.size() && NumeralValue(text, value)) return true;
  in.Trouble = "expected a number, found \"" + text + "\"";
  return false;
}

} // namespace

std::string ReadMotorTable(std::string_view checkFile, const std::string &path, MotorTable &table) {
  RecordReader in{checkFile};
  std::string text;
  for (const char *head : {"Core Area", "Ends Area", "Regression Dist"}) {
    if (!Take(in, text)) return Place(path, in, head, in.Trouble);
    if (text != head)
      return Place(path, in, head, "expected the column's name \"" + std::string(head) + "\"");
  }
  MotorTable read;
  while (!AtEnd(in)) {
    MotorRow row;
    for (const auto &[name, field] : {std::pair{"core area", &MotorRow::Core},
                                      {"ends area", &MotorRow::Ends},
                                      {"burn distance", &MotorRow::Dist}}) {
      if (!TakeNumber(in, row.*field)) return Place(path, in, name, in.Trouble);
      if (row.*field < 0) return Place(path, in, name, "expected 0 or more, found " + PlainText(row.*field));
    }
    if (!read.Row.empty() && row.Dist < read.Row.back().Dist)
      return Place(path, in, "burn distance", "expected no less than the row before it");
    read.Row.push_back(row);
  }
  table = std::move(read);
  return {};
}

MotorTable TableOfRun(const BurnRun &run) {
  MotorTable table;
  for (const RowFigures &row : run.Figures)
    table.Row.push_back({Val(FormatMask(row.CoreArea, CheckAreaMask)),
                         Val(FormatMask(row.Section, CheckAreaMask)),
                         Val(FormatMask(row.BurnDist, CheckDistMask))});
  return table;
}

std::string ReadKnProfile(std::string_view knProfile, const std::string &path, std::vector<KnRow> &rows) {
  RecordReader in{knProfile};
  std::vector<KnRow> read;
  while (!AtEnd(in)) {
    KnRow row;
    if (!Take(in, row.Dist)) return Place(path, in, "burn distance", in.Trouble);
    if (!Take(in, row.Kn)) return Place(path, in, "Kn", in.Trouble);
    if (!read.empty() && row.Dist < read.back().Dist)
      return Place(path, in, "burn distance", "expected no less than the row before it");
    read.push_back(row);
  }
  rows = std::move(read);
  return {};
}

std::vector<KnRow> KnRowsOfRun(const BurnRun &run, double throatDiam) {
  const double At = Pi * (throatDiam / 2) * (throatDiam / 2);
  std::vector<KnRow> rows;
  for (const RowFigures &row : run.Figures)
    rows.push_back(
        {static_cast<float>(row.BurnDist), static_cast<float>((row.CoreArea + row.EndsArea) / At)});
  return rows;
}
