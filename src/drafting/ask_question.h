#pragma once
#include "drafting/drafting.h"
#include "macros/evaluator.h"

#include <optional>
#include <string_view>

constexpr double MostLength = 1e6; // mm; nothing larger is drawn or asked for

struct Question {
  std::string_view Label, Caption; // the prompt and the form's title
  double Value = 0;                // offered
  bool AllowZero = false;
  double Least = -MostLength, Most = MostLength;
  bool Whole = false;
};

// Opens Question_Form and evaluates the answer as a formula. Empty or Cancel gives nothing. What is no
// number, or out of range, is told in a box titled "Input Error" and asked again. The answer is kept for the
// log.
std::optional<double> AskQuestion(Drafting &, const Question &);
std::optional<double> AskAngle(Drafting &, std::string_view label, std::string_view caption,
                               double radians);    // asked in degrees, given in radians
bool AskDelta(Drafting &, double &dx, double &dy); // "XV=", "YV="; false: cancelled

Formula FieldFormula(const Drafting &, std::string_view text); // with the user's and the grain's variables
// A field's text as a formula; nothing, and a box titled "Input Error", when it is no number.
std::optional<double> FieldValue(Drafting &, std::string_view text);
bool IsPlainNumber(const std::string &text); // digits, sign and point: no formula to be kept
// Opens Question_Form for a text. Empty: nothing was entered, or Cancel.
std::string AskText(Screen &, std::string_view label, std::string_view caption, const std::string &text);
void QuestionEvent(Screen &, const Event &); // events of Question_Form

std::vector<std::string> VariableNames(const VariableTable &); // those in use, in the table's order
std::string WithInserted(const std::string &text, int caret,
                         const std::string &name); // caret -1: at the end
