// Every step of random burns held against what a burn is: each front point stands exactly BurnDist from the
// outline, inside the grain (sampled distances), the section shrinks by the front's length (nothing is
// missing), and the burn does not depend on how the outline was drawn.
#include "burnback/designs.h"
#include "burnback/regression.h"
#include "burnback/run_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace {

int Rounds(int few) { return std::getenv("MORVANDEL_LONG") ? 20 * few : few; }

double DistanceTo(const Entity &e, double x, double y) {
  if (e.EntType == LineType) {
    const double dx = e.X2 - e.X1, dy = e.Y2 - e.Y1;
    const double t = std::clamp(((x - e.X1) * dx + (y - e.Y1) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return std::hypot(e.X1 + t * dx - x, e.Y1 + t * dy - y);
  }
  double a = std::atan2(y - e.CenterY, x - e.CenterX) - e.StartAngle;
  a -= TwoPi * std::floor(a / TwoPi);
  double sweep = e.EndAngle - e.StartAngle;
  if (sweep <= 0) sweep += TwoPi;
  if (e.EntType == CircleType || a <= sweep)
    return std::abs(std::hypot(x - e.CenterX, y - e.CenterY) - e.Radius);
  return std::min(std::hypot(e.X1 - x, e.Y1 - y), std::hypot(e.X2 - x, e.Y2 - y));
}

void ExpectTrueFront(const Design &design, const std::string &what) {
  const double R = design.Doc.GrainRadius, h = R / 1000;
  Regression g;
  Profile &p = g.Chain;
  Init(p, design.Table, R, design.Doc.JoinTolerance);
  ASSERT_TRUE(p.ProfileOK) << what;
  StartRegression(g, 2002, h);
  p.BurnIncrement = h / 2;
  double section = g.Section, perimeter = g.Perimeter, worst = 0, burnt = 0;
  const double start = g.Section;
  while (true) {
    StepFront(g);
    if (g.LiveRows == 0) break;
    ASSERT_LE(p.BurnDist, 2 * R) << what;
    if (g.Step % 7 == 1)
      for (const BurnEntity &row : p.BurnTable) {
        if (row.BurntOut) continue;
        for (const double t : {0.02, 0.5, 0.98}) {
          double x, y;
          FrontPoint(p.Sources[row.Source], row.From + t * (row.To - row.From), p.BurnDist, x, y);
          EXPECT_LE(std::hypot(x, y), R * (1 + 1e-9)) << what;
          TurnPoint(x, y, -p.Turn);
          double d = 1e300;
          for (int i = 0; i <= design.Table.EntCount; ++i)
            d = std::min(d, DistanceTo(design.Table.Row[i], x, y));
          worst = std::max(worst, std::abs(d - p.BurnDist));
        }
      }
    // Between two mid-step fronts the section shrinks by the mean of their lengths, but for the jumps of
    // vanishing pieces.
    const double step = p.BurnIncrement, loss = section - g.Section, most = std::max(perimeter, g.Perimeter);
    EXPECT_GT(loss, -1e-9 * R * R) << what << " at " << p.BurnDist;
    EXPECT_LE(loss, most * step * 1.5 + 1e-9 * R * R) << what << " at " << p.BurnDist;
    burnt += loss;
    section = g.Section;
    perimeter = g.Perimeter;
    p.BurnIncrement = h;
  }
  EXPECT_LT(worst, 2e-8 * R) << what;
  EXPECT_LT(std::abs(section) / start, 5e-3) << what;
}

TEST(Truth, RandomOutlines) {
  for (int round = 0; round < Rounds(25); ++round) {
    std::mt19937 random(1000 + round);
    const double R = std::vector<double>{2, 21.5, 40, 1000}[round % 4];
    Design d = MakeDesign(2 * R);
    AddRows(d, RandomOutline(random, R, 3 + round % 40));
    ExpectTrueFront(d, "seed " + std::to_string(1000 + round));
  }
}

std::vector<double> Perimeters(const Design &d, const std::string &what) {
  BurnRun run;
  BurnRefusal refusal;
  EXPECT_TRUE(BurnDesign(d, {}, run, refusal)) << what << ": " << refusal.Text;
  EXPECT_EQ(run.Notice, "") << what;
  return run.StepPerimeter;
}

void ExpectSame(const std::vector<double> &a, const std::vector<double> &b, double scale, double R,
                const std::string &what) {
  ASSERT_NEAR(static_cast<double>(a.size()), static_cast<double>(b.size()), 1) << what;
  for (std::size_t i = 0; i + 1 < std::min(a.size(), b.size()); ++i)
    ASSERT_NEAR(a[i] * scale, b[i], 1e-6 * R * scale) << what << " step " << i + 1;
}

TEST(Truth, TheBurnDoesNotDependOnTheDrawing) {
  for (int round = 0; round < Rounds(12); ++round) {
    std::mt19937 random(77 + round);
    const double R = 30;
    std::vector<Entity> rows = RandomOutline(random, R, 4 + 3 * round % 23);
    if (round % 3 == 0) // past the wall
      for (Entity &e : rows) e = ScaledRow(e, 1.6);
    const auto burn = [&](const std::vector<Entity> &drawn, double radius, const char *what) {
      Design d = MakeDesign(2 * radius);
      AddRows(d, drawn);
      return Perimeters(d, std::string(what) + ", seed " + std::to_string(77 + round));
    };
    const auto each = [&](auto change) {
      std::vector<Entity> changed;
      for (const Entity &e : rows) changed.push_back(change(e));
      return changed;
    };
    const std::vector<double> plain = burn(rows, R, "plain");
    ExpectSame(plain, burn(each([](const Entity &e) { return TurnedRow(e, 1.234); }), R, "turned"), 1, R,
               "turned");
    ExpectSame(plain, burn(each([](const Entity &e) { return TurnedRow(e, TwoPi / 4); }), R, "quarter"), 1, R,
               "quarter");
    ExpectSame(plain, burn(each(MirroredRow), R, "mirrored"), 1, R, "mirrored");
    ExpectSame(plain, burn(each(SwappedRow), R, "swapped"), 1, R, "swapped");
    ExpectSame(plain, burn(each([](const Entity &e) { return ScaledRow(e, 25); }), 25 * R, "scaled"), 25, R,
               "scaled");
    std::vector<Entity> shuffled = rows;
    std::shuffle(shuffled.begin(), shuffled.end(), random);
    ExpectSame(plain, burn(shuffled, R, "shuffled"), 1, R, "shuffled");
    std::vector<Entity> split; // lines in two collinear parts, arcs in two
    for (const Entity &e : rows) {
      if (e.EntType == LineType) {
        const double x = 0.3 * e.X1 + 0.7 * e.X2, y = 0.3 * e.Y1 + 0.7 * e.Y2;
        split.push_back(MakeLine(e.X1, e.Y1, x, y));
        split.push_back(MakeLine(x, y, e.X2, e.Y2));
      } else {
        const double sweep =
            e.EndAngle > e.StartAngle ? e.EndAngle - e.StartAngle : e.EndAngle - e.StartAngle + TwoPi;
        const double middle = std::fmod(e.StartAngle + 0.4 * sweep, TwoPi);
        split.push_back(MakeArc(e.CenterX, e.CenterY, e.Radius, e.StartAngle, middle));
        split.push_back(MakeArc(e.CenterX, e.CenterY, e.Radius, middle, e.EndAngle));
      }
    }
    ExpectSame(plain, burn(split, R, "split"), 1, R, "split");
    std::vector<Entity> loose = rows; // ends that miss each other, within the joining tolerance
    for (Entity &e : loose)
      if (e.EntType == LineType) e = MakeLine(e.X1 + 1e-6, e.Y1, e.X2, e.Y2 - 1e-6);
    const std::vector<double> gaping = burn(loose, R, "loose");
    ASSERT_NEAR(static_cast<double>(plain.size()), static_cast<double>(gaping.size()), 1);
    for (std::size_t i = 0; i + 10 < std::min(plain.size(), gaping.size()); ++i)
      ASSERT_NEAR(plain[i], gaping[i], 3e-4 * plain[0]) << "loose, step " << i;
  }
}

} // namespace
