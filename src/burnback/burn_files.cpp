#include "burnback/burn_files.h"

#include "base/number_text.h"
#include "base/text_record.h"

#include <array>
#include <string_view>
#include <utility>

void WriteRow(StreamedFile &file, const BurnEntity &row, int index) {
  std::array<char, 11 * 32> text;
  char *at = text.data();
  const auto put = [&](double v) {
    if (v == 0)
      *at++ = '0';
    else
      at = WriteNumber(at, v);
    *at++ = ',';
  };
  *at++ = static_cast<char>('0' + row.EntType);
  *at++ = '\r';
  *at++ = '\n';
  if (row.EntType == LineType) {
    for (const double v : {row.BurnX1, row.BurnY1, row.BurnX2, row.BurnY2}) put(v);
  } else {
    for (const double v : {row.CenterX, row.CenterY, row.Radius, row.StartAngle, row.EndAngle}) put(v);
  }
  for (const double v : {row.CaseX1, row.CaseY1, row.CaseX2, row.CaseY2}) put(v);
  at = WriteNumber(at, static_cast<double>(index));
  *at++ = '\r';
  *at++ = '\n';
  WriteStreamed(file, std::string_view(text.data(), static_cast<std::size_t>(at - text.data())));
}

void WriteStepEnd(StreamedFile &file) { WriteStreamed(file, "8\r\n"); }

std::string CheckFileText(const BurnRun &run) {
  RecordWriter out;
  for (const char *head : {"Core Area", "Ends Area", "Regression Dist"}) Put(out, head);
  EndRecord(out);
  for (const RowFigures &row : run.Figures) {
    Put(out, FormatMask(row.CoreArea, CheckAreaMask));
    Put(out, FormatMask(row.Section, CheckAreaMask));
    Put(out, FormatMask(row.BurnDist, CheckDistMask));
    EndRecord(out);
  }
  return std::move(out.Bytes);
}

std::string KnProfileText(const BurnRun &run) {
  RecordWriter out;
  for (const RowFigures &row : run.Figures) {
    Put(out, row.BurnDist);
    Put(out, row.Kn);
    EndRecord(out);
  }
  return std::move(out.Bytes);
}
