// The journeys of tests/scripts recorded with variables, played with other numbers, held against closed
// forms.
#include "base/whole_file.h"
#include "geometry/carrier.h"
#include "macros/tables.h"
#include "macros/template_design.h"
#include "shell/journey.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

using Rows = std::vector<Entity>;
using Values = std::vector<double>;

Entity L(double x1, double y1, double x2, double y2) { return MakeLine(x1, y1, x2, y2); }
Entity A(double x, double y, double radius, double from, double to) {
  return MakeArc(x, y, radius, from, to);
}

Entity Turned(const Entity &e, double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  const auto x = [&](double a, double b) { return a * c - b * s; };
  const auto y = [&](double a, double b) { return a * s + b * c; };
  if (e.EntType == LineType) return L(x(e.X1, e.Y1), y(e.X1, e.Y1), x(e.X2, e.Y2), y(e.X2, e.Y2));
  return A(x(e.CenterX, e.CenterY), y(e.CenterX, e.CenterY), e.Radius, e.StartAngle + angle,
           e.EndAngle + angle);
}
Rows Around(int count, const Rows &one) {
  Rows all;
  for (int i = 0; i < count; ++i)
    for (const Entity &e : one) all.push_back(Turned(e, i * TwoPi / count));
  return all;
}

struct Case {
  const char *Script;                                    // in tests/scripts, or lines
  std::vector<std::pair<std::string, double>> Variable;  // as recorded
  std::vector<std::pair<std::string, std::string>> Line; // of the script, in order, and what stands for it
  Values Other;                                          // of the variables, for the play
  std::function<Rows(const Values &)> Expected;
};

const char *const PolygonLines =
    "grain 40 100 9 none\ncmd 53\ntype PolySides 6\ntype PolyRadius 5\n"
    "type PolyRotate 0\npress PolyFlat\npress PolyAccept\nclick 1 0\nkey Escape\n";

const std::vector<Case> Drawings{
    {"tube",
     {{"BORE", 8}, {"ASIDE", 0.5}},
     {{"answer 8", "answer BORE"}, {"click 0 0", "clickat ASIDE-0.5; 0"}},
     {9, 2},
     [](const Values &v) { return Rows{MakeCircle(v[1] - 0.5, 0, v[0])}; }},
    {"box_chamfer_fillet_undo",
     {{"WIDE", 20}, {"HIGH", 12}, {"CUTX", 2}, {"CUTY", 2}, {"ROUND", 2}},
     {{"type BoxWidth 20", "type BoxWidth WIDE"},
      {"type BoxHeight 12", "type BoxHeight HIGH"},
      {"answer 2", "answer CUTX"},
      {"answer 2", "answer CUTY"},
      {"answer 2", "answer ROUND"}},
     {24, 14, 3, 4, 2.5},
     [](const Values &v) {
       const double x = v[0] / 2, y = v[1] / 2, f = v[4];
       return Rows{L(f - x, -y, x, -y),   L(x, -y, x, y - v[3]), L(x, y - v[3], x - v[2], y),
                   L(x - v[2], y, -x, y), L(-x, y, -x, f - y),   A(f - x, f - y, f, Pi, 1.5 * Pi)};
     }},
    {"c_slot_past_wall",
     {{"PORT", 2}, {"REACH", 24}},
     {{"answer 2", "answer PORT"},
      {"click 0 2", "clickat 0; PORT"},
      {"click 24 2", "clickat REACH; PORT"},
      {"click 24 -2", "clickat REACH; -PORT"},
      {"click 0 -2", "clickat 0; -PORT"}},
     {2.5, 26},
     [](const Values &v) {
       return Rows{A(0, 0, v[0], Pi / 2, 1.5 * Pi), L(0, v[0], v[1], v[0]), L(v[1], v[0], v[1], -v[0]),
                   L(v[1], -v[0], 0, -v[0])};
     }},
    {"circles_joined_by_tangents",
     {{"PORT", 5}, {"DIAM", 6}, {"LEFT", 6}, {"RIGHT", 7}},
     {{"answer 5", "answer PORT"},
      {"click -6 0", "clickat -LEFT; 0"},
      {"answer 6", "answer DIAM"},
      {"click 7 0", "clickat RIGHT; 0"}},
     {5.5, 7, 6.5, 7.5},
     [](const Values &v) {
       const double r = v[0], s = v[1] / 2, a = -v[2], b = v[3];
       const double t = std::acos((r - s) / (b - a)), c = std::cos(t), n = std::sin(t);
       return Rows{L(a + r * c, r * n, b + s * c, s * n), L(a + r * c, -r * n, b + s * c, -s * n),
                   A(a, 0, r, t, TwoPi - t), A(b, 0, s, -t, t)};
     }},
    {"cross_from_boxes",
     {{"LONG", 12}, {"HALF", 3}},
     {{"click -12 -3", "clickat -LONG; -HALF"},
      {"click 12 3", "clickat LONG; HALF"},
      {"click -3 -12", "clickat -HALF; -LONG"},
      {"click 3 12", "clickat HALF; LONG"}},
     {13, 2.5},
     [](const Values &v) {
       return Around(4, {L(v[0], -v[1], v[0], v[1]), L(v[1], v[1], v[0], v[1]), L(v[1], -v[1], v[0], -v[1])});
     }},
    {"d_port",
     {{"PORT", 10}, {"FLAT", 4}},
     {{"click 10 0", "clickat PORT; 0"}, {"click 4 -15", "clickat FLAT; -15"}},
     {11, 5},
     [](const Values &v) {
       const double a = std::acos(v[1] / v[0]), y = v[0] * std::sin(a);
       return Rows{L(v[1], -y, v[1], y), A(0, 0, v[0], a, TwoPi - a)};
     }},
    {"dogbone_mirrored",
     {{"PORT", 4}, {"OUT", 8}, {"NECK", 1.5}},
     {{"answer 4", "answer PORT"},
      {"click 8 0", "clickat OUT; 0"},
      {"click 0 1.5", "clickat 0; NECK"},
      {"click 0 -1.5", "clickat 0; -NECK"}},
     {4.5, 8.5, 2},
     [](const Values &v) {
       const double b = std::asin(v[2] / v[0]), x = v[1] - v[0] * std::cos(b);
       return Around(2, {L(0, v[2], x, v[2]), L(0, -v[2], x, -v[2]), A(v[1], 0, v[0], Pi + b, 3 * Pi - b)});
     }},
    {"finocyl_round_ends",
     {{"FINS", 6}, {"TIP", 16}, {"HALF", 1.5}, {"BORE", 8}},
     {{"answer 6", "answer FINS"},
      {"click 5 1.5", "clickat 5; HALF"},
      {"click 16 1.5", "clickat TIP; HALF"},
      {"click 16 -1.5", "clickat TIP; -HALF"},
      {"click 5 -1.5", "clickat 5; -HALF"},
      {"expect count 18", ""},
      {"click 12 1.5", "clickat 12; HALF"},
      {"click 16 0", "clickat TIP; 0"},
      {"click 12 -1.5", "clickat 12; -HALF"},
      {"answer 8", "answer BORE"},
      {"answer 6", "answer FINS"},
      {"click 8 0", "clickat BORE; 0"},
      {"click 6 1.5", "clickat 6; HALF"},
      {"click 6 -1.5", "clickat 6; -HALF"}},
     {8, 15, 1.2, 7.5},
     [](const Values &v) {
       const double h = v[2], b = std::asin(h / v[3]), x = v[3] * std::cos(b);
       return Around(8, {L(x, h, v[1] - h, h), L(x, -h, v[1] - h, -h), A(v[1] - h, 0, h, -Pi / 2, Pi / 2),
                         A(0, 0, v[3], b, TwoPi / 8 - b)});
     }},
    {"keyhole",
     {{"PORT", 6}, {"HALF", 2}, {"ROUND", 1}},
     {{"answer 6", "answer PORT"},
      {"click 2 -4", "clickat HALF; -4"},
      {"click 2 12", "clickat HALF; 12"},
      {"click -2 12", "clickat -HALF; 12"},
      {"click -2 -4", "clickat -HALF; -4"},
      {"answer 1", "answer ROUND"}},
     {6.5, 1.8, 1.2},
     [](const Values &v) {
       // The fillet touches the slot's side and the circle: its centre is ROUND off both.
       const double x = v[1] + v[2], up = std::sqrt((v[0] + v[2]) * (v[0] + v[2]) - x * x), y = up - 5;
       const double a = std::atan2(up, x);
       return Rows{L(v[1], y, v[1], 12),      L(-v[1], y, -v[1], 12), L(-v[1], 12, v[1], 12),
                   A(x, y, v[2], Pi, Pi + a), A(-x, y, v[2], -a, 0),  A(0, -5, v[0], Pi - a, TwoPi + a)};
     }},
    {"star_six_filleted",
     {{"TIPS", 1}, {"VALLEYS", 0.8}},
     {{"answer 1", "answer TIPS"}, {"answer 0.8", "answer VALLEYS"}},
     {0.7, 1.1},
     [](const Values &v) {
       // Sides through (14.880385, -0.3) and (4.315768, 3.3), tips on the X axis.
       const double h = std::atan2(3.6, 14.880385 - 4.315768), tip = 14.880385 - 0.3 / std::tan(h);
       const double w = Pi / 6 + h, valley = tip * std::sin(h) / std::sin(w); // half angles at tip and valley
       const double at = tip - v[0] / std::tan(h) * std::cos(h), up = v[0] / std::tan(h) * std::sin(h);
       const double in = valley + v[1] / std::tan(w) * std::cos(w), off = v[1] / std::tan(w) * std::sin(w);
       const Entity side = L(in, -off, tip, 0); // along the valley's own axis, its tip is set below
       Entity upper = Turned(side, Pi / 6);
       upper = L(upper.X1, upper.Y1, at, up);
       return Around(6, {upper, L(upper.X1, -upper.Y1, at, -up),
                         A(tip - v[0] / std::sin(h), 0, v[0], h - Pi / 2, Pi / 2 - h),
                         Turned(A(valley + v[1] / std::sin(w), 0, v[1], Pi / 2 + w, 1.5 * Pi - w), Pi / 6)});
     }},
    {"wagon_wheel",
     {{"TIP", 12}, {"HALF", 1}, {"BORE", 5}},
     {{"click 3 1", "clickat 3; HALF"},
      {"click 12 1", "clickat TIP; HALF"},
      {"click 3 -1", "clickat 3; -HALF"},
      {"click 12 -1", "clickat TIP; -HALF"},
      {"click 12 -1", "clickat TIP; -HALF"},
      {"click 12 1", "clickat TIP; HALF"},
      {"answer 5\nclick 0 0", "answer BORE\nclick 0 0"}},
     {12.5, 0.8, 4.5},
     [](const Values &v) {
       const double b = std::asin(v[1] / v[2]), x = v[2] * std::cos(b);
       return Around(6, {L(x, v[1], v[0], v[1]), L(x, -v[1], v[0], -v[1]), L(v[0], -v[1], v[0], v[1]),
                         A(0, 0, v[2], b, TwoPi / 6 - b)});
     }},
    {PolygonLines,
     {{"SIDES", 6}, {"FLAT", 5}, {"ASIDE", 1}},
     {{"type PolySides 6", "type PolySides SIDES"},
      {"type PolyRadius 5", "type PolyRadius FLAT"},
      {"click 1 0", "clickat ASIDE; 0"}},
     {8, 6, 2},
     [](const Values &v) { // a side is 2 FLAT tan(pi/SIDES) long
       const double half = v[1] * std::tan(Pi / v[0]);
       Rows rows = Around(8, {L(v[1], -half, v[1], half)});
       for (Entity &e : rows) e = L(e.X1 + v[2], e.Y1, e.X2 + v[2], e.Y2);
       return rows;
     }},
};

std::string WithFormulas(const Case &c) {
  std::string text = c.Script;
  if (text.find('\n') == text.npos) {
    const std::string path = TEST_SOURCE "/tests/scripts/" + text + ".txt";
    EXPECT_EQ(ReadWhole(path, text), "");
  }
  std::size_t from = 0;
  for (const auto &[line, formula] : c.Line) {
    const std::size_t at = text.find("\n" + line + "\n", from);
    EXPECT_NE(at, text.npos) << line;
    if (at == text.npos) break;
    text.replace(at + 1, line.size(), formula);
    from = at + formula.size();
  }
  std::string head;
  for (const auto &[name, value] : c.Variable)
    head += "variable " + name + " " + std::to_string(value) + " " + name + ", mm\n";
  const std::size_t drawing = text.find("\n", text.find("grain ")) + 1;
  return text.substr(0, drawing) + head + "record\n" + text.substr(drawing) + "template T: T\n";
}

struct JourneysWithOtherValues : Journey {};

TEST_F(JourneysWithOtherValues, AreWhereTrigonometryPutsThem) {
  for (const Case &c : Drawings) {
    SCOPED_TRACE(c.Script);
    ASSERT_TRUE(Start());
    Bench().Grain.Doc.SnapToGrid = 0;
    ScriptedTemplates made;
    BindScript(Bench(), Screen(), {.Templates = &made, .Lessons = nullptr});
    Play(WithFormulas(c));
    ASSERT_EQ(made.Made.size(), 1u);
    Values recorded;
    for (const auto &[name, value] : c.Variable) recorded.push_back(value);
    for (const Values &values : {recorded, c.Other}) {
      std::vector<TemplateAnswer> answers;
      for (std::size_t i = 0; i < values.size(); ++i)
        answers.push_back({c.Variable[i].first, std::to_string(values[i])});
      Design grain;
      ASSERT_EQ(DesignFromTemplate(made.Made[0].Mac, answers, {}, grain).Trouble, "");
      if (values != c.Other) {
        EXPECT_EQ(Difference(RowsOf(grain.Table), RowsOf(Bench().Grain.Table)), "");
        continue;
      }
      ExpectSameRows(RowsOf(grain.Table), c.Expected(values), 2e-5); // places are kept to 32 bits
    }
  }
}

} // namespace
