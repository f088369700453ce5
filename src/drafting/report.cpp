#include "drafting/report.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int PlayingMode = 2;

void LogAnswersGiven(Drafting &d) {
  for (std::size_t from = 0; from < d.Answers.size(); from += 3) {
    Instruction step{LogAnswers, 0, 0, 0, {}};
    double *const value[] = {&step.Value1, &step.Value2, &step.Value3};
    bool formulas = false;
    for (std::size_t i = 0; i < 3 && from + i < d.Answers.size(); ++i) {
      const AnswerGiven &answer = d.Answers[from + i];
      *value[i] = answer.Value;
      formulas = formulas || !answer.Formula.empty();
      step.Value4 += (i > 0 ? ";" : "") + answer.Formula;
    }
    if (!formulas) step.Value4.clear();
    LogStep(d.Log, std::move(step));
  }
  d.Answers.clear();
}
} // namespace

void Report(Drafting &d, const Box &box) {
  d.Grain.GeomAbort = true;
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
  LogStep(d.Log, {kind, v1, v2, v3, std::move(value4)});
  LogAnswersGiven(d);
}
