#include "shell/form_answer.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "shell/recovery.h"

#include <cmath>

namespace {
constexpr int EnterKey = 13, EscapeKey = 27;

std::string Wanted(const NumberRange &range) {
  const std::string what = range.Whole ? "a whole number" : "a number";
  const std::string most = PlainText(range.Most), least = PlainText(range.Least);
  return range.AboveLeast ? what + " above " + least + ", at most " + most
                          : what + " from " + least + " to " + most;
}
} // namespace

FormAct ActOf(const Event &event, Ctl accept, Ctl cancel) {
  switch (event.What) {
  case Event::Kind::Close: return FormAct::Cancel;
  case Event::Kind::Press:
    return event.Target == accept   ? FormAct::Accept
           : event.Target == cancel ? FormAct::Cancel
                                    : FormAct::None;
  case Event::Kind::Key:
    if (event.KeyCode == EscapeKey) return FormAct::Cancel;
    if (event.KeyCode != EnterKey) return FormAct::None;
    return event.Target == cancel ? FormAct::Cancel : FormAct::Accept;
  default: return FormAct::None;
  }
}

std::optional<double> FormNumber(Workbench &bench, Ctl field, const std::string &text,
                                 const NumberRange &range) {
  const bool empty = text.find_first_not_of(" \t") == std::string::npos;
  const auto value = empty ? std::nullopt : FieldValue(bench.Draft, text);
  const bool fits = value && (range.AboveLeast ? *value > range.Least : *value >= range.Least) &&
                    *value <= range.Most && (!range.Whole || *value == std::floor(*value));
  if (fits) return value;
  if (empty || value) // else the formula's own fault has been told
    bench.Out.Ask({"ERROR: " + (empty ? std::string("Nothing entered") : "\"" + text + "\"") + ": expected " +
                       Wanted(range),
                   "Input Error", Buttons::Ok, Icon::Stop});
  bench.Out.Focus = field;
  return std::nullopt;
}

void DocumentChanged(Workbench &bench) {
  if (bench.Grain.Table.EntCount < 0) return;
  bench.Grain.SavedFlag = false;
  KeepWorkFile(bench);
}
