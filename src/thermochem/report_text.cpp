#include "thermochem/reports.h"

#include <algorithm>

namespace {

bool IsFigure(const std::string &cell) {
  return !cell.empty() && cell.find_first_not_of("0123456789.+-E,%") == cell.npos;
}

// A column of figures alone, gaps aside.
bool IsNumeric(const ReportTable &table, std::size_t column) {
  return std::all_of(table.Row.begin(), table.Row.end(), [&](const std::vector<std::string> &row) {
    return column >= row.size() || row[column].empty() || IsFigure(row[column]);
  });
}

void AppendRow(std::string &text, const std::vector<std::string> &row, const std::vector<std::size_t> &width,
               const std::vector<bool> &numeric) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string gap(width[i] - std::min(width[i], row[i].size()), ' ');
    line += "  " + (numeric[i] ? gap + row[i] : row[i] + gap);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + '\n';
}

std::string TableText(const ReportTable &table) {
  std::vector<std::size_t> width;
  std::vector<bool> numeric;
  for (std::size_t i = 0; i < table.Column.size(); ++i) {
    width.push_back(table.Column[i].size());
    numeric.push_back(IsNumeric(table, i));
    for (const auto &row : table.Row)
      if (i < row.size()) width[i] = std::max(width[i], row[i].size());
  }
  std::string text = table.Title.empty() ? "" : table.Title + '\n';
  AppendRow(text, table.Column, width, numeric);
  for (const auto &row : table.Row) AppendRow(text, row, width, numeric);
  return text;
}

std::string CsvField(const std::string &field) {
  if (field.find_first_of(",\"\n") == field.npos) return field;
  std::string quoted = "\"";
  for (const char c : field) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

void AppendCsv(std::string &text, const std::vector<std::string> &row) {
  for (std::size_t i = 0; i < row.size(); ++i) text += (i ? "," : "") + CsvField(row[i]);
  text += '\n';
}

} // namespace

std::string ReportAsText(const Report &report) {
  std::string text = report.Title + '\n';
  if (!report.Line.empty()) text += '\n';
  for (const std::string &line : report.Line) text += line + '\n';
  for (const ReportTable &table : report.Table) text += '\n' + TableText(table);
  if (!report.Note.empty()) text += '\n';
  for (const std::string &note : report.Note) text += note + '\n';
  return text;
}

std::string ReportCsv(const Report &report) {
  std::string text = CsvField(report.Title) + '\n';
  for (const std::string &line : report.Line) text += CsvField(line) + '\n';
  for (const ReportTable &table : report.Table) {
    text += '\n';
    if (!table.Title.empty()) text += CsvField(table.Title) + '\n';
    AppendCsv(text, table.Column);
    for (const auto &row : table.Row)
      if (!row.empty() && row != table.Column) AppendCsv(text, row); // headings come once
  }
  if (!report.Note.empty()) text += '\n';
  for (const std::string &note : report.Note) text += CsvField(note) + '\n';
  return text;
}
