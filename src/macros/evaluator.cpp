#include "macros/evaluator.h"

#include "base/number_text.h"
#include "base/numeral.h"

#include <array>
#include <cctype>
#include <cmath>
#include <vector>

namespace {

constexpr double Pi = 3.14159265358979;
constexpr double OutOfRange = 999, ArcLimit = 1.0001;
constexpr int Levels = 50, SlotsOfLevel = 50;
constexpr std::size_t OperandsOfCell = 20;
constexpr std::string_view TwoOperandsText = "two numbers without an operator between them";
constexpr std::string_view MissingText = "a number is missing";

using Function = double (*)(double);
struct FunctionWord {
  std::string_view Word;
  Function Apply;
};
double Sine(double x) { return std::sin(x); }
double Cosine(double x) { return std::cos(x); }
double Tangent(double x) { return std::tan(x); }
double SquareRoot(double x) { return std::sqrt(x); }
double ArcTangent(double x) { return std::atan(x); }
constexpr FunctionWord Words[] = {
    {"sin", Sine},      {"cos", Cosine},  {"tan", Tangent},   {"sqrt", SquareRoot}, {"asin", ArcSin},
    {"arcsin", ArcSin}, {"acos", ArcCos}, {"arccos", ArcCos}, {"atan", ArcTangent}, {"arctan", ArcTangent}};

struct Scan {
  std::string_view Text;
  const VariableTable &Variables;
  std::size_t At = 0;
  std::array<int, Levels + 1> SlotsUsed{};
  std::string_view Why = {}; // the first fault; empty while there is none
  std::size_t Place = 0;     // of it, from 0
};

// What stands before an operand: functions, null for a minus.
struct Prefix {
  Function Apply = nullptr;
  std::size_t Place = 0;
};
struct Operation {
  char Sign = 0;
  std::size_t Place = 0;
};
struct Cell {
  std::vector<double> Operand;
  std::vector<Operation> Operator; // between operands
  std::vector<Prefix> Pending;
  bool Expecting = true; // an operand
};

bool StartsWithWord(std::string_view text, std::string_view word) {
  if (text.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(text[i])) != word[i]) return false;
  return true;
}

const FunctionWord *FunctionAt(std::string_view text) {
  for (const FunctionWord &word : Words)
    if (StartsWithWord(text, word.Word)) return &word;
  return nullptr;
}

double Refuse(Scan &scan, std::size_t place, std::string_view why) {
  if (scan.Why.empty()) {
    scan.Why = why;
    scan.Place = place;
  }
  return 0;
}

double Finite(Scan &scan, double value, std::size_t place) {
  if (std::isnan(value)) return Refuse(scan, place, "no real number comes of this");
  if (std::isinf(value)) return Refuse(scan, place, "the number is too large");
  return value;
}

void TakeOperand(Scan &scan, Cell &cell, double value, std::size_t place) {
  if (!cell.Expecting) Refuse(scan, place, TwoOperandsText);
  if (cell.Operand.size() == OperandsOfCell) Refuse(scan, place, "more than 20 numbers in one bracket");
  if (!scan.Why.empty()) return;
  for (; !cell.Pending.empty(); cell.Pending.pop_back()) {
    const Prefix &prefix = cell.Pending.back();
    value = prefix.Apply ? Finite(scan, prefix.Apply(value), prefix.Place) : -value;
  }
  cell.Operand.push_back(value);
  cell.Expecting = false;
}

double Applied(Scan &scan, const Operation &o, double a, double b) {
  switch (o.Sign) {
  case '^': return Finite(scan, a == 0 && b < 0 ? NAN : std::pow(a, b), o.Place);
  case '/':
    if (b == 0) return Refuse(scan, o.Place, "division by zero");
    return Finite(scan, a / b, o.Place);
  case '*': return Finite(scan, a * b, o.Place);
  case '+': return Finite(scan, a + b, o.Place);
  default: return Finite(scan, a - b, o.Place);
  }
}

double Reduce(Scan &scan, Cell &cell) {
  for (const std::string_view pass : {"^", "/", "*", "+-"})
    for (std::size_t i = 0; i < cell.Operator.size();) {
      if (pass.find(cell.Operator[i].Sign) == std::string_view::npos) {
        ++i;
        continue;
      }
      const auto gap = static_cast<std::ptrdiff_t>(i);
      cell.Operand[i] = Applied(scan, cell.Operator[i], cell.Operand[i], cell.Operand[i + 1]);
      cell.Operand.erase(cell.Operand.begin() + gap + 1);
      cell.Operator.erase(cell.Operator.begin() + gap);
      if (!scan.Why.empty()) return 0;
    }
  return cell.Operand.empty() ? 0 : cell.Operand[0];
}

void TakeSign(Scan &scan, Cell &cell) {
  const char sign = scan.Text[scan.At];
  if (!cell.Expecting) {
    cell.Operator.push_back({sign, scan.At});
    cell.Expecting = true;
  } else if (sign == '-') {
    cell.Pending.push_back({nullptr, scan.At});
  } else if (sign != '+' || !cell.Operand.empty() || !cell.Pending.empty()) {
    Refuse(scan, scan.At, MissingText); // a plus may lead the text
  }
  ++scan.At;
}

// A number, pi or a function word.
void TakeWord(Scan &scan, Cell &cell) {
  const std::string_view rest = scan.Text.substr(scan.At);
  if (rest[0] == '.' || std::isdigit(static_cast<unsigned char>(rest[0]))) {
    const std::size_t length = NumeralLength(rest);
    double value = 0;
    if (length == 0) Refuse(scan, scan.At, MissingText);
    if (!NumeralValue(rest.substr(0, length), value)) Refuse(scan, scan.At, "the number is too large");
    TakeOperand(scan, cell, value, scan.At);
    scan.At += length;
  } else if (rest.starts_with("pi") || rest.starts_with("Pi")) {
    TakeOperand(scan, cell, Pi, scan.At);
    scan.At += 2;
  } else if (const FunctionWord *word = FunctionAt(rest)) {
    if (!cell.Expecting) Refuse(scan, scan.At, TwoOperandsText);
    cell.Pending.push_back({word->Apply, scan.At});
    scan.At += word->Word.size();
  } else {
    Refuse(scan, scan.At, "this character has no meaning here");
  }
}

double ValueOf(Scan &scan, const VariableRow &row, std::size_t place) {
  if (!std::isfinite(row.Value)) return Refuse(scan, place, "the variable has no value");
  return row.Format.empty() ? row.Value : Val(FormatMask(row.Value, row.Format));
}

double TakeCell(Scan &scan, int level) {
  Cell cell;
  while (scan.Why.empty() && scan.At < scan.Text.size()) {
    const std::size_t place = scan.At;
    const char c = scan.Text[place];
    if (const VariableRow *row = VariableAt(scan.Variables, scan.Text.substr(place))) {
      TakeOperand(scan, cell, ValueOf(scan, *row, place), place);
      scan.At += row->Name.size() - 1;
    } else if (c == ' ' || c == '\t') {
      ++scan.At;
    } else if (c == '(') {
      if (!cell.Expecting) Refuse(scan, place, TwoOperandsText);
      if (level == Levels) Refuse(scan, place, "brackets deeper than 50 levels");
      if (++scan.SlotsUsed[static_cast<std::size_t>(level)] > SlotsOfLevel)
        Refuse(scan, place, "more than 50 brackets on one level");
      if (!scan.Why.empty()) break;
      ++scan.At;
      const double inner = TakeCell(scan, level + 1);
      TakeOperand(scan, cell, inner, place);
    } else if (c == ')') {
      if (level == 1) Refuse(scan, place, "a bracket is closed that was not opened");
      break;
    } else if (std::string_view("^/*+-").find(c) != std::string_view::npos) {
      TakeSign(scan, cell);
    } else {
      TakeWord(scan, cell);
    }
  }
  if (cell.Expecting && !(cell.Operand.empty() && cell.Pending.empty())) Refuse(scan, scan.At, MissingText);
  if (!scan.Why.empty()) return 0;
  const double value = Reduce(scan, cell);
  if (scan.At < scan.Text.size()) ++scan.At; // the closing bracket
  return value;
}

} // namespace

Formula EvaluateFormula(std::string_view text, const VariableTable &variables) {
  Scan scan{text, variables};
  Formula formula;
  formula.Value = TakeCell(scan, 1);
  if (scan.Why.empty()) return formula;
  formula.Value = 0;
  formula.Place = static_cast<int>(scan.Place) + 1;
  formula.Message =
      "Error in the formula at character " + std::to_string(formula.Place) + ": " + std::string(scan.Why);
  return formula;
}

double ArcCos(double x) {
  if (!(std::abs(x) <= ArcLimit)) return OutOfRange;
  if (x >= 1) return 0;
  if (std::trunc(x) == -1) return Pi;
  return std::atan(-x / std::sqrt(1 - x * x)) + 2 * std::atan(1.0);
}

double ArcSin(double x) {
  if (!(std::abs(x) <= ArcLimit)) return OutOfRange;
  if (x >= 1) return Pi / 2;
  if (std::trunc(x) == -1) return -Pi / 2;
  return std::atan(x / std::sqrt(1 - x * x));
}
