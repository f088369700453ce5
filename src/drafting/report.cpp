#include "drafting/report.h"

#include "drafting/command_table.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int PlayingMode = 2;

void Keep(Drafting &d, Instruction step) {
  step.SelectionType = d.Cmd.SelectionMethod;
  LogStep(d.Log, std::move(step));
}

void LogAnswersGiven(Drafting &d) {
  for (std::size_t from = 0; from < d.Answers.size(); from += 3) {
    Instruction step;
    step.PointArea = LogAnswers;
    double *const value[] = {&step.Value1, &step.Value2, &step.Value3};
    bool formulas = false;
    for (std::size_t i = 0; i < 3 && from + i < d.Answers.size(); ++i) {
      const AnswerGiven &answer = d.Answers[from + i];
      *value[i] = answer.Value;
      formulas = formulas || !answer.Formula.empty();
      step.Value4 += (i > 0 ? ";" : "") + answer.Formula;
    }
    if (!formulas) step.Value4.clear();
    Keep(d, std::move(step));
  }
  d.Answers.clear();
}

bool IsPick(int kind) { return kind == LogFoundEnt || kind == LogSelectEnt || kind == LogTrimmingEnt; }

std::string PlaceFormulas(Drafting &d, int kind) {
  if (kind != LogClick && !IsPick(kind)) return {};
  const auto [x, y] = std::exchange(d.Log.Place, {});
  return x.empty() && y.empty() ? "" : (IsPick(kind) ? ";" : "") + x + ";" + y;
}
} // namespace

void Report(Drafting &d, const Box &box) {
  d.Grain.GeomAbort = true;
  if (d.Play.On) d.Play.Said = box.Text;
  if (d.Grain.MacroMode == PlayingMode) return;
  Box told = box;
  told.Passing = told.Offer == Buttons::Ok && told.Text.find('\n') == told.Text.npos; // more is to be read
  if (told.Title.empty()) told.Title = d.Out[Ctl::frmMain].Text;
  d.Out.Ask(told);
}

void Report(Drafting &d, std::string_view text, std::string_view title, Icon mark) {
  Report(d, Box{std::string(text), std::string(title), Buttons::Ok, mark});
}

void LogInput(Drafting &d, int kind, double v1, double v2, double v3, std::string value4) {
  if (!d.Log.On) return d.Answers.clear();
  Instruction step;
  step.PointArea = kind;
  step.Value1 = v1;
  step.Value2 = v2;
  step.Value3 = v3;
  step.Value4 = value4.empty() ? PlaceFormulas(d, kind) : std::move(value4);
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  step.PlotType = IsPick(kind) ? d.Log.PickedType : row ? row->NewType : 0;
  Keep(d, std::move(step));
  LogAnswersGiven(d);
}

void LogLeave(Drafting &d, bool zooming) {
  for (int left = 0; left < (zooming ? 2 : 1); ++left) LogInput(d, LogEscape);
}
