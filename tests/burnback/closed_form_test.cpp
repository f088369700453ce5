// Ports whose burn is known in closed form.
#include "burnback/burn_run.h"
#include "burnback/designs.h"

#include <gtest/gtest.h>

namespace {

BurnRun Burn(const Design &design) {
  BurnRun run;
  BurnRefusal refusal;
  EXPECT_TRUE(BurnDesign(design, {}, run, refusal)) << refusal.Text;
  return run;
}

TEST(ClosedForm, TubeWithAndWithoutEnds) {
  for (const int ends : {0, 1, 2, 3}) {
    Design d = MakeDesign(50, 120, 9, ends);
    AppendRow(d.Table, MakeCircle(0, 0, 10));
    const BurnRun run = Burn(d);
    const int E = (ends & 1) + (ends >> 1);
    ASSERT_EQ(run.StepCount, 600);
    for (int i = 0; i < run.StepCount; ++i) {
      const double r = 10 + (i + 0.5) * 0.025, b = (i + 1) * 0.025;
      EXPECT_NEAR(run.StepPerimeter[i], 2 * Pi * r, 1e-9);
      EXPECT_NEAR(run.StepSection[i], Pi * (625 - r * r), 1e-8);
      EXPECT_NEAR(run.Figures[i].CoreArea, (120 - b * E) * 2 * Pi * r, 1e-7);
    }
    EXPECT_EQ(run.TouchDist, -1); // the whole front reaches the wall at once
    EXPECT_FALSE(run.HasSliver);
    EXPECT_NEAR(run.VolumeLoading, 1 - 100.0 / 625, 1e-9);
    EXPECT_EQ(run.Figures[100].EndsArea > 0, E > 0);
    EXPECT_LT(run.SectionCheck, 1e-12);
  }
}

TEST(ClosedForm, GrainShorterThanItsWebStopsAtItsLength) {
  Design d = MakeDesign(50, 10, 9, 3);
  AppendRow(d.Table, MakeCircle(0, 0, 10));
  const BurnRun run = Burn(d);
  EXPECT_EQ(run.StepCount, 600);   // the front itself runs on to the wall
  EXPECT_EQ(run.RowsReached, 199); // 2 b reaches the length at row 200
}

TEST(ClosedForm, CircleOffCentreCrossesTheWall) {
  for (const double e : {3.0, 12.0, 17.0, 19.5}) {
    const double R = 20, r = 5;
    Design d = MakeDesign(2 * R);
    AppendRow(d.Table, MakeCircle(e * 0.6, e * 0.8, r));
    const BurnRun run = Burn(d);
    for (int i = 0; i < run.StepCount; ++i) {
      const double q = r + run.StepDist[i];
      const double c = (e * e + q * q - R * R) / (2 * e * q);
      const double open = q + e <= R ? TwoPi : 2 * std::acos(std::clamp(c, -1.0, 1.0));
      // Near its very end the front is a short arc whose angle is ill conditioned.
      EXPECT_NEAR(run.StepPerimeter[i], q * open, 1e-6 * R) << "centre at " << e;
    }
    EXPECT_NEAR(run.TouchDist, std::max(R / 2000, R - r - e), 0.021);
    EXPECT_NEAR(run.LastLiveDist, R + e - r, 0.021);
  }
}

// Half a star's sector: tip arc, flank, wall.
double SharpStar(int N, double tip, double valley, double R, double d) {
  const double al = Pi / N, vx = valley * std::cos(al), vy = valley * std::sin(al);
  const double flank = std::hypot(vx - tip, vy), ux = (vx - tip) / flank, uy = vy / flank;
  const double beta = std::acos(-ux), normal = Pi / 2 - beta;
  const double rest = flank - d / std::tan(al + beta);
  double half = 0, hi = rest > 0 ? normal : al + std::asin(std::min(1.0, tip * std::sin(al) / d)), lo = 0;
  if (tip + d > R) {
    const double c = (tip * tip + d * d - R * R) / (2 * tip * d);
    if (c <= -1) return 0;
    lo = Pi - std::acos(c);
  }
  if (hi > lo) half += d * (hi - lo);
  if (rest > 0) {
    const double px = tip + d * std::cos(normal), py = d * std::sin(normal), b = px * ux + py * uy;
    const double D = b * b - px * px - py * py + R * R;
    if (D > 0) half += std::max(0.0, std::min(rest, -b + std::sqrt(D)) - std::max(0.0, -b - std::sqrt(D)));
  }
  return 2 * N * half;
}

TEST(ClosedForm, StarsAndPolygons) {
  struct {
    int Points;
    double Tip, Valley, R;
  } const stars[] = {{5, 14, 6, 25},
                     {8, 15, 9, 22},
                     {6, 5, 3.5, 20},
                     {12, 30, 20, 50},
                     {3, 400, 120, 900},
                     {40, 1, .8, 2},
                     {4, 10, 10 * std::cos(Pi / 4), 20},
                     {6, 8, 8 * std::cos(Pi / 6), 20},
                     {7, 19.99, 4, 20}};
  for (const auto &s : stars) {
    Design d = MakeDesign(2 * s.R);
    AddRows(d, RoundedPolygon(StarCorners(s.Points, s.Tip, s.Valley, 0.2)));
    const BurnRun run = Burn(d);
    ASSERT_GT(run.StepCount, 50);
    for (int i = 0; i < run.StepCount; ++i)
      EXPECT_NEAR(run.StepPerimeter[i], SharpStar(s.Points, s.Tip, s.Valley, s.R, run.StepDist[i]),
                  2e-6 * s.R)
          << s.Points << " points at " << run.StepDist[i];
  }
}

// A rib of propellant between two slots is pinched in its middle and burns on as an island until it is gone.
TEST(ClosedForm, PinchedRibBurnsOnAsAnIsland) {
  // A ring-shaped port about a disc of propellant that hangs on a thin rib.
  const double R = 30, inner = 7, outer = 9, gap = 0.15;
  Design d = MakeDesign(2 * R);
  const double xi = inner * std::cos(gap), yi = inner * std::sin(gap), xo = outer * std::cos(gap),
               yo = outer * std::sin(gap);
  AddRows(d, {MakeArc(0, 0, inner, gap, TwoPi - gap), MakeArc(0, 0, outer, gap, TwoPi - gap),
              MakeLine(xi, yi, xo, yo), MakeLine(xo, -yo, xi, -yi)});
  const BurnRun run = Burn(d);
  for (int i = 0; i < run.StepCount; ++i) {
    const double b = run.StepDist[i];
    if (b < 2.5 || b > inner - 0.2)
      continue; // the rib of half width 1.05 is gone: a disc inside, a ring outside
    // Two plain circles, but for the dents that the rib's four corners leave.
    EXPECT_NEAR(run.StepPerimeter[i], TwoPi * (inner - b) + TwoPi * (outer + b), 0.3) << "at " << b;
  }
  EXPECT_LT(run.SectionCheck, 1e-4);
  EXPECT_NEAR(run.StepSection.front() - run.StepSection.back(), run.Section, 2e-3 * run.Section);
}

} // namespace
