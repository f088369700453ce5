#include "macros/lesson_words.h"

#include "base/number_text.h"
#include "drafting/command_table.h"
#include "macros/lesson_template.h"
#include "macros/play.h"
#include "platform/controls.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr int RotationDrawTool = 97, SegmentsTool = 54, BackButton = 2, TypedPointKind = 147;

struct Words {
  const char *Wrong;
  const char *Ask; // the value follows
};
constexpr Words Other{"Wrong Value!", "Enter "}, Radius{"Wrong Radius Dimension!", "Enter a radius of "},
    Diameter{"Wrong Diameter Dimension!", "Enter a diameter of "},
    StartAngle{"Wrong Start Angle!", "Enter a starting Angle of "},
    EndAngle{"Wrong End Angle!", "Enter an Ending Angle of "},
    Copies{"Wrong Number of Copies!", "Enter a number of copies of "};

// The numbers of a tool, as its button, its Enter or its frame asks for them.
struct ToolNumbers {
  int Tool;
  std::array<Words, 3> Number;
};
constexpr ToolNumbers Numbers[] = {
    {3, {{{"Wrong Line Angle!", "Enter an angle of "}, Other, Other}}},
    {4, {{{"Wrong Distance!", "Enter a distance of "}, Other, Other}}},
    {20, {{Radius, Other, Other}}},
    {21, {{Diameter, Other, Other}}},
    {26, {{Radius, Other, Other}}},
    {30, {{Radius, StartAngle, EndAngle}}},
    {31, {{Diameter, StartAngle, EndAngle}}},
    {32, {{StartAngle, EndAngle, Other}}},
    {33, {{{"Wrong Arc Angle!", "Enter an angle of "}, Other, Other}}},
    {36, {{Radius, Other, Other}}},
    {51,
     {{{"Wrong Width of Box!", "Enter a width of "},
       {"Wrong Height of Box!", "Enter a height of "},
       {"Wrong Reference of Box!", "Choose the reference point number "}}}},
    {53,
     {{{"Wrong Number of Sides!", "Enter a number of sides of "},
       Radius,
       {"Wrong Rotation Angle!", "Enter a rotation of "}}}},
    {54,
     {{{"Wrong Number of Lines!", "Set Numnber of Lines to:"},
       {"Wrong Starting Angle!", "Enter a starting Angle of "},
       {"Wrong End Angle!", "Enter an Ending Angle of "}}}},
    {55, {{Radius, Other, Other}}},
    {56, {{Radius, Other, Other}}},
    {57,
     {{{"Wrong Chamfer Width!", "Enter a first width of "},
       {"Wrong Chamfer Width!", "Enter a second width of "},
       Other}}},
    {70, {{Copies, Other, Other}}},
    {71, {{Copies, Other, Other}}},
    {72, {{Copies, Other, Other}}},
    {73, {{Copies, Other, Other}}},
    {97, {{{"Wrong Number of Rotations!", "Enter a number of rotations of "}, Other, Other}}},
};

Words NumberWords(const Instruction &step, int lastTool, std::size_t which) {
  switch (step.PointArea) {
  case LogDelta:
    return which == 0 ? Words{"Wrong X axis offset value!", "Enter an X offset of "}
                      : Words{"Wrong Y axis offset value!", "Enter a Y offset of "};
  case LogXInput:
    if (lastTool == 72) return {"Wrong Rotation Angle!", "Enter a rotation angle of "};
    if (lastTool == 73) return {"Wrong Scale Factor!", "Enter a scale factor of "};
    return Other;
  case LogProperty: return {"Wrong Property!", "Set the property to "};
  default: break;
  }
  const int tool = step.PointArea == LogAnswers ? lastTool : step.PointArea;
  for (const ToolNumbers &row : Numbers)
    if (row.Tool == tool) return row.Number[which];
  return Other;
}

bool IsPick(int kind) { return kind == LogFoundEnt || kind == LogSelectEnt || kind == LogTrimmingEnt; }
bool IsPlace(int kind) { return kind == LogClick || kind == TypedPointKind; }

bool Same(double a, double b) {
  return std::abs(a - b) < 0.5e-4 || std::abs(a - b) <= 1e-6 * std::max(std::abs(a), std::abs(b));
}

std::string Number(double v) { return PlainText(std::round(v * 1e4) / 1e4); }

std::string PlaceText(double x, double y) { return "X=" + Number(x) + ", Y=" + Number(y); }

// As it is to be typed: the formula, where there is one.
std::string Typed(const Instruction &step, std::size_t which) {
  const std::string formula = FormulaOf(step, which);
  const double value[] = {step.Value1, step.Value2, step.Value3};
  return formula.empty() ? Number(value[which]) : formula;
}

const char *EntityName(int type) {
  return type == LineType ? "line" : type == CircleType ? "circle" : type == ArcType ? "arc" : "entity";
}

std::string ButtonName(const std::string &control) {
  const auto found = FindControl(control);
  const std::string_view label = found ? RowOf(*found).Text : std::string_view();
  std::string name(label.empty() ? std::string_view(control) : label);
  std::erase(name, '&');
  return name;
}

std::string ToolMessage(int tool) {
  if (tool == RotationDrawTool) return "Click on the 'Rotation Draw' Button";
  const CommandRow *row = FindCommand(tool);
  if (row && row->Message) return row->Message;
  return "Choose: " + std::string(KindName(tool));
}

std::string AskedNumbers(const Instruction &step, int lastTool, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    std::string ask = NumberWords(step, lastTool, i).Ask + Typed(step, i);
    if (!text.empty() && ask[0] == 'E') ask[0] = 'e';
    text += (text.empty() ? "" : ", ") + ask;
  }
  return text;
}

std::size_t ValuesOf(const Instruction &step) {
  switch (step.PointArea) {
  case LogXInput:
  case LogYInput:
  case 26:
  case 36:
  case 55:
  case 56: return 1;
  case LogDelta: return 2;
  default: break;
  }
  const double value[] = {step.Value1, step.Value2, step.Value3};
  std::size_t count = 3; // an answer of 0 behind the last one is none
  while (count > 1 && value[count - 1] == 0) --count;
  return count;
}

bool IsAccept(const Instruction &step) {
  const int kind = step.PointArea;
  return !step.Value4.empty()
             ? FindCommand(kind) != nullptr
             : (kind == 51 || kind == 53 || kind == SegmentsTool || kind == 26 || kind == 36) &&
                   (step.Value1 != 0 || step.Value2 != 0);
}

std::string Asked(const Instruction &step, int lastTool) {
  const int kind = step.PointArea;
  if (kind == LessonPress) return "Click on the '" + ButtonName(step.Value4) + "' Button";
  if (IsPick(kind))
    return "Pick the " + std::string(EntityName(step.PlotType)) + " at " +
           PlaceText(step.Value2, step.Value3);
  if (kind == LogClick && step.Value3 == BackButton) return "Click with the right mouse button";
  if (kind == LogClick) return "Click at " + PlaceText(step.Value1, step.Value2);
  if (kind == TypedPointKind) return "Key in the point X=" + Typed(step, 0) + ", Y=" + Typed(step, 1);
  if (kind == LessonVariable) return "Name a variable " + step.Value4 + " of " + Number(step.Value2);
  if (kind == LessonName) return "Call it " + step.Value4;
  if (kind == LessonPromptText) return "Type the prompt \"" + step.Value4 + "\"";
  if (kind == LogAnswers || kind == LogXInput || kind == LogYInput || kind == LogDelta)
    return AskedNumbers(step, lastTool, ValuesOf(step));
  if (kind == LogProperty) return "Set the property of the picked entity to " + Number(step.Value2);
  if (IsAccept(step)) {
    const bool numbers = step.Value1 != 0 || step.Value2 != 0;
    return numbers ? AskedNumbers(step, lastTool, ValuesOf(step)) : "Press Enter";
  }
  if (kind == LogPolyOption)
    return step.Value1 == 0 ? "Choose the radius to the flats" : "Choose the radius to the corners";
  return ToolMessage(kind);
}

// A kind that is chosen in a list has words of its own when another item is.
const char *WrongKind(int kind) {
  switch (kind) {
  case LogMove:
  case LogCopy:
  case LogDeleteSingle:
  case LogDeleteRotation: return "Wrong Selection!";
  case LogFoundEnt:
  case LogSelectEnt:
  case LogTrimmingEnt: return "Wrong Input!";
  case LogClick:
  case TypedPointKind: return "Wrong Input!";
  default: return FindCommand(kind) ? "Wrong Tool!" : "Wrong Input!";
  }
}

bool SameKind(const Instruction &expected, const Instruction &got) {
  if (expected.PointArea == LogClick && expected.Value3 != BackButton && got.PointArea == TypedPointKind)
    return true; // typed where it was to be pointed at
  return expected.PointArea == got.PointArea && IsAccept(expected) == IsAccept(got);
}
} // namespace

bool IsLessonTool(int kind) { return kind == RotationDrawTool || FindCommand(kind) != nullptr; }

int ToolBefore(std::span<const LessonStep> step, std::size_t next) {
  for (std::size_t i = std::min(next, step.size()); i-- > 0;)
    if (IsLessonTool(step[i].Expected.PointArea)) return step[i].Expected.PointArea;
  return 0;
}

std::size_t GroupEnd(std::span<const LessonStep> step, std::size_t first) {
  if (first >= step.size()) return step.size();
  std::size_t end = first + 1;
  const auto is = [&](int kind) { return end < step.size() && step[end].Expected.PointArea == kind; };
  // Sections are asked for at the pick itself.
  if (step[first].Expected.PointArea == LogFoundEnt && is(SegmentsTool) && IsAccept(step[end].Expected))
    ++end;
  while (is(LogAnswers) || is(LessonVariable) || is(LessonName) || is(LessonPromptText)) ++end;
  return end;
}

std::string LessonMessage(std::span<const LessonStep> group, int lastTool) {
  std::string text;
  for (std::size_t i = 0; i < group.size(); ++i) {
    const Instruction &step = group[i].Expected;
    if (i == 0 && !group[i].Message.empty()) return group[i].Message;
    text += (i > 0 ? ". " : "") + Asked(step, lastTool);
    if (IsLessonTool(step.PointArea)) lastTool = step.PointArea;
  }
  return text;
}

std::string LessonObjection(const LessonStep &expected, const Instruction &got, int lastTool, double radius,
                            const VariableTable &variables) {
  const Instruction &want = expected.Expected;
  const std::string asked = Asked(want, lastTool);
  const auto wrong = [&](const char *what) { return std::string(what) + "\n" + asked; };
  if (!SameKind(want, got)) return wrong(IsAccept(want) ? "Wrong Input!" : WrongKind(want.PointArea));
  const double near = expected.Tolerance > 0 ? expected.Tolerance : radius / 50;
  if (IsPlace(want.PointArea)) {
    if (want.PointArea == LogClick && (want.Value3 == BackButton) != (got.Value3 == BackButton))
      return wrong("Wrong Mouse Button!");
    if (want.PointArea == LogClick && want.Value3 == BackButton) return {};
    const double apart = std::hypot(got.Value1 - want.Value1, got.Value2 - want.Value2);
    const double least = want.PointArea == LogClick ? near : std::min(near, 0.5e-4);
    if (apart > least) return wrong("Wrong Position!");
    return want.PointArea == LogClick || SameFormulas(want, got, variables) ? "" : wrong("Wrong Formula!");
  }
  if (IsPick(want.PointArea)) {
    const double apart = std::hypot(got.Value2 - want.Value2, got.Value3 - want.Value3);
    const bool row = got.Value1 == want.Value1;
    const bool fits = row ? want.PointArea == LogSelectEnt || apart <= 5 * near : apart <= near;
    return fits ? "" : wrong(row ? "Wrong Position!" : "Wrong Entity!");
  }
  if (want.PointArea == LessonPress) return want.Value4 == got.Value4 ? "" : wrong("Wrong Button!");
  if (want.PointArea == LessonName) return want.Value4 == got.Value4 ? "" : wrong("Wrong Name!");
  if (want.PointArea == LessonPromptText)
    return SamePrompt(want.Value4, got.Value4) && want.Value1 == got.Value1 ? "" : wrong("Wrong Prompt!");
  if (want.PointArea == LessonVariable)
    return want.Value4 == got.Value4 && Same(want.Value2, got.Value2) ? "" : wrong("Wrong Variable!");
  const double w[] = {want.Value1, want.Value2, want.Value3}, g[] = {got.Value1, got.Value2, got.Value3};
  for (std::size_t i = 0; i < 3; ++i)
    if (!Same(w[i], g[i])) {
      const Words words = NumberWords(want, lastTool, i);
      return std::string(words.Wrong) + "\n" + words.Ask + Typed(want, i);
    }
  return SameFormulas(want, got, variables) ? "" : wrong("Wrong Formula!");
}

std::string MissingInput(const LessonStep &expected, int lastTool) {
  return "Wrong Input!\n" + Asked(expected.Expected, lastTool);
}
