#include "burnback/results_export.h"

#include "base/number_text.h"
#include "base/text_record.h"
#include "burnback/run_at_step.h"

#include <utility>

namespace {

constexpr const char *Label[] = {"Burn Dist,", "Core Area,",  "Conduit Area,",
                                 "Ends Area,", "Total Area,", "Kn Ratio"};
constexpr int FirstRow = 7; // in a file with parameters and without a header

int EndCount(const GrainDoc &doc) { return (doc.EndsExposed & 1) + (doc.EndsExposed >> 1 & 1); }

void AddLine(std::string &to, const std::string &line) { to += line + "\r\n"; }

std::string OneLine(std::string text) {
  for (char &c : text)
    if (static_cast<unsigned char>(c) < 32) c = ' ';
  return text;
}

void AddParameters(std::string &to, const GrainDoc &doc) {
  AddLine(to, "Results for Parameters:");
  AddLine(to,
          "Grain Diam,Grain Length,Ends Exposed,Throat Diam,,,,,a (coefficient),,n (exponent),,Propellant "
          "Density,,Propellant c*");
  AddLine(to, "mm,mm,,mm,,,,,(metric),,,,g/cm^2,,m/s*");
  AddLine(to, PlainText(static_cast<float>(doc.GrainDiam)) + ',' + PlainText(doc.GrainLength) + ',' +
                  std::to_string(EndCount(doc)) + ',' + PlainText(doc.ThroatDiam) +
                  ",,,,,0.15,,0.3,,1.7,,1300");
  AddLine(to, "");
}

void AddTemplateData(std::string &to, const ResultsForm &form) {
  AddLine(to, "Results for Template Parameters for " + OneLine(form.TemplateName) + ":");
  std::string names, values;
  for (const auto &[name, value] : form.TemplateValue) {
    names += OneLine(name) + ',';
    values += ',' + PlainText(value);
  }
  AddLine(to, names);
  AddLine(to, values);
  AddLine(to, "");
}

// The line through the two rows around the time in K, of Kn or pressure; the 1 in L takes up its constant
// term.
std::string Resampled(char column, const std::string &R, const std::string &N) {
  const std::string time = "K" + R;
  return std::string("=SUMPRODUCT(LINEST(OFFSET(") + column + "7,MATCH(" + time + ",offset(I7,0,0," + N +
         ",1),1)-1,0,2,1),OFFSET(I7,MATCH(" + time + ",offset(I7,0,0," + N + ",1))-1,0,2,1))*(" + time +
         ":L" + R + "))";
}

void AddRow(RecordWriter &out, const ResultRow &row, int i, const std::string &N, float time) {
  const std::string R = std::to_string(i + FirstRow), above = std::to_string(i + FirstRow - 1);
  for (const float value :
       {row.BurnDist, row.CoreArea, row.ConduitArea, row.EndsArea, row.CoreArea + row.EndsArea})
    Put(out, value);
  Put(out, "=E" + R + "/((D4/2)^2*pi())");
  Put(out, "=(F" + R + "*O4*M4*I4)^(1/(1-K4))");
  Put(out, "=G" + R + "/(F" + R + "*O4*M4)");
  // Quotes within a field are doubled, so that a spreadsheet reads them as one each.
  Put(out, "=if(A" + above + "=\"\"Burn Dist\"\",0,(A7/H" + R + ")+I" + above + ")");
  Put(out, "");
  Put(out, time);
  Put(out, 1);
  Put(out, Resampled('F', R, N));
  Put(out, Resampled('G', R, N));
  EndRecord(out);
}

} // namespace

double OfferedResultStep(const GrainDoc &doc) { return Val(PlainText(doc.GrainRadius / 100)); }

std::string ResultsText(const GrainDoc &doc, const BurnRun &run, const ResultsForm &form) {
  RecordWriter out;
  if (!form.Header.empty()) AddLine(out.Bytes, OneLine(form.Header));
  if (form.IncludeDimensions) AddParameters(out.Bytes, doc);
  if (!form.TemplateName.empty()) AddTemplateData(out.Bytes, form);
  std::string labels;
  for (std::size_t i = 0; i < form.Column.size(); ++i)
    if (form.Column[i]) labels += Label[i];
  AddLine(out.Bytes, labels + ",Pressure,Burn Rate,Time,,Time,,Kn Ratio,Pressure");
  const std::string N = std::to_string(run.Result.size());
  float time = 0;
  for (std::size_t i = 0; i < run.Result.size(); ++i) {
    AddRow(out, run.Result[i], static_cast<int>(i), N, time);
    time += 0.01f;
  }
  return std::move(out.Bytes);
}

bool ExportResults(const Design &design, const BurnOptions &options, double step, const ResultsForm &form,
                   std::string &text, BurnRefusal &refusal) {
  BurnRun run;
  if (!RunSim3(design, options, step == 0 ? OfferedResultStep(design.Doc) : step, run, refusal)) return false;
  if (run.Result.empty()) {
    refusal.Text = "There are no results: the grain's length is gone within the first step";
    return false;
  }
  text = ResultsText(design.Doc, run, form);
  return true;
}
