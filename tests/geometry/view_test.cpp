#include "drafting/view.h"
#include "geometry/closed_outline.h"
#include "geometry/random_outline.h"

#include <gtest/gtest.h>

namespace {

DrawSurface Panel(double pixelWidth, double pixelHeight, double diameter = 100) {
  DrawSurface s;
  s.PixelWidth = pixelWidth;
  s.PixelHeight = pixelHeight;
  GrainDoc doc;
  SetDimensions(doc, diameter, 300, 20, 3);
  ZoomReset(s, doc);
  return s;
}

Design Grain(double diameter = 100) {
  Design design;
  SetDimensions(design.Doc, diameter, 300, 20, 3);
  return design;
}

Point CentreOf(const DrawSurface &s) { return {s.Left + s.Width / 2, s.Top + s.Height / 2}; }

void ExpectSquarePixels(const DrawSurface &s) {
  EXPECT_NEAR(s.Width / -s.Height, s.PixelWidth / s.PixelHeight, 1e-9);
}

TEST(View, ResetShowsTheWholeGrainInAnyPanel) {
  for (const auto &[w, h] : {std::pair{1000.0, 500.0}, {500.0, 1000.0}, {700.0, 700.0}}) {
    const DrawSurface s = Panel(w, h);
    ExpectSquarePixels(s);
    EXPECT_NEAR(std::min(s.Width, -s.Height), 104, 1e-9);
    EXPECT_NEAR(CentreOf(s).X, 0, 1e-9);
    EXPECT_NEAR(CentreOf(s).Y, 0, 1e-9);
  }
  const DrawSurface unanswered = Panel(400, 300, 0);
  EXPECT_GT(unanswered.Width, 0);
  EXPECT_LT(unanswered.Height, 0);
}

TEST(View, ZoomAndPan) {
  DrawSurface s = Panel(900, 600);
  Pan(s, 10, -5);
  const DrawSurface before = s;
  Zoomx2(s);
  EXPECT_NEAR(s.Width, before.Width / 2, 1e-9);
  EXPECT_NEAR(CentreOf(s).X, 10, 1e-9);
  EXPECT_NEAR(CentreOf(s).Y, -5, 1e-9);
  Zoom1h(s);
  EXPECT_NEAR(s.Left, before.Left, 1e-9);
  EXPECT_NEAR(s.Height, before.Height, 1e-9);

  const Point still{-20, 33};
  const double partX = (still.X - s.Left) / s.Width, partY = (still.Y - s.Top) / s.Height;
  ZoomAbout(s, still, 3.7);
  EXPECT_NEAR(s.Width, before.Width / 3.7, 1e-9);
  EXPECT_NEAR((still.X - s.Left) / s.Width, partX, 1e-9);
  EXPECT_NEAR((still.Y - s.Top) / s.Height, partY, 1e-9);

  ZoomWindow(s, {5, 8}, {15, 6});
  ExpectSquarePixels(s);
  EXPECT_NEAR(s.Width, 10, 1e-9);
  EXPECT_NEAR(CentreOf(s).X, 10, 1e-9);
  ZoomWindow(s, {5, 8}, {6, 28});
  EXPECT_NEAR(-s.Height, 20, 1e-9);
  const double height = s.Height;
  ZoomWindow(s, {5, 8}, {5, 28});
  EXPECT_EQ(s.Height, height);

  ResizePanel(s, 300, 900);
  ExpectSquarePixels(s);
  EXPECT_NEAR(s.Width, 20, 1e-9);
}

TEST(View, NoRoadLeavesTheBounds) {
  for (const double factor : {1.3, 1 / 1.3}) {
    DrawSurface s = Panel(900, 600);
    for (int i = 0; i < 500; ++i) ZoomAbout(s, {49, -20}, factor);
    EXPECT_GE(-s.Height, 100 * 0.99e-6);
    EXPECT_LE(-s.Height, 100 * 101.0);
    ExpectSquarePixels(s);
    Pan(s, 1e12, -1e300);
    EXPECT_LE(std::abs(CentreOf(s).X), 5001);
    EXPECT_LE(std::abs(CentreOf(s).Y), 5001);
  }
}

TEST(Grid, StaysReadableAtEveryZoom) {
  Design design = Grain();
  design.Doc.DisplayGrid = 1;
  for (const float spacing : {1.0f, 0.001f, 7.5f, 1000.0f})
    for (const float style : {0.0f, 2.0f, 99.0f})
      for (double factor = 1e-2; factor < 1e6; factor *= 7) {
        design.Doc.GridSpacing = spacing;
        design.Doc.GridLineType = style;
        DrawSurface s = Panel(2500, 1300);
        ZoomAbout(s, {0, 0}, factor);
        Redraw(s, design);
        SCOPED_TRACE(testing::Message() << spacing << " style " << style << " factor " << factor);
        ASSERT_LE(s.Item.size(), 4100u);
        const DrawItem::Kind kind = style == 99 ? DrawItem::Kind::Dot : DrawItem::Kind::Line;
        std::vector<double> upright;
        bool throughOrigin = false;
        for (const DrawItem &item : s.Item) {
          if (item.What != kind) continue;
          EXPECT_EQ(item.Style, style == 2 ? 2 : 0);
          const double steps = item.At[0] / spacing;
          if (kind == DrawItem::Kind::Dot || item.At[0] == item.At[2]) {
            EXPECT_NEAR(steps, std::round(steps), 1e-6 * (1 + std::abs(steps)));
            upright.push_back(item.At[0]);
            if (item.At[0] == 0 && kind == DrawItem::Kind::Line) {
              throughOrigin = true;
              EXPECT_EQ(item.Role, Ink::GridFifth);
            }
          }
        }
        std::sort(upright.begin(), upright.end());
        upright.erase(std::unique(upright.begin(), upright.end()), upright.end());
        for (std::size_t i = 1; i < upright.size(); ++i)
          EXPECT_GE((upright[i] - upright[i - 1]) / s.Width * s.PixelWidth, 5.999);
        EXPECT_TRUE(throughOrigin || style == 99);
      }
  for (const float spacing : {0.0f, -1.0f}) {
    design.Doc.GridSpacing = spacing;
    DrawSurface s = Panel(800, 600);
    Redraw(s, design);
    EXPECT_EQ(s.Item.size(), 1u);
  }
}

TEST(Grid, EveryFifthLineStandsOut) {
  Design design = Grain();
  design.Doc.DisplayGrid = 1;
  DrawSurface s = Panel(2080, 2080); // 20 pixels to the millimetre
  Redraw(s, design);
  for (const DrawItem &item : s.Item) {
    if (item.What != DrawItem::Kind::Line || item.At[0] != item.At[2]) continue;
    EXPECT_EQ(item.Role, std::fmod(item.At[0], 5) == 0 ? Ink::GridFifth : Ink::Grid) << item.At[0];
  }
}

TEST(Redraw, ShowsTheDesignAndKeepsItsAngles) {
  Design design = Grain();
  AppendRow(design.Table, MakeLine(0, 0, 10, 0));
  AppendRow(design.Table, MakeCircle(1, 2, 3));
  AppendRow(design.Table, MakeArc(0, 0, 5, 7, TwoPi + 2));
  design.Table.Row[1].Selected = true;
  design.GeomAbort = true;
  DrawSurface s = Panel(800, 600);
  const Point mark{4, 4};
  Redraw(s, design, {&mark, 1});
  EXPECT_FALSE(design.GeomAbort);
  ASSERT_EQ(s.Item.size(), 5u);
  EXPECT_EQ(s.Item[0].Role, Ink::GrainCircle);
  EXPECT_EQ(s.Item[0].At[2], 50);
  EXPECT_EQ(s.Item[1].Role, Ink::Geometry);
  EXPECT_EQ(s.Item[2].Role, Ink::Picked);
  EXPECT_EQ(s.Item[2].Colour, 16777215 - s.Item[1].Colour);
  EXPECT_NEAR(s.Item[3].At[3], 7 - TwoPi, 1e-12);
  EXPECT_NEAR(design.Table.Row[2].StartAngle, 7 - TwoPi, 1e-12);
  EXPECT_NEAR(design.Table.Row[2].EndAngle, 2, 1e-12);
  EXPECT_EQ(s.Item[4].What, DrawItem::Kind::Mark);
  EXPECT_NEAR(s.Item[4].At[2], -s.Height / 100, 1e-12);

  design.MacroMode = 2;
  design.Table.EntCount = -1;
  Redraw(s, design);
  EXPECT_EQ(s.Item.size(), 5u);
}

TEST(Redraw, OwnColoursRuleOnlyWhenChosen) {
  Design design = Grain();
  AppendRow(design.Table, MakeCircle(0, 0, 3));
  design.Doc.LineColor = 1.677709e7f; // the built-in colour as a file of seven digits gives it back
  DrawSurface s = Panel(800, 600);
  Redraw(s, design);
  EXPECT_FALSE(s.Ground.has_value());
  EXPECT_EQ(s.Item[1].Role, Ink::Geometry);
  design.Doc.BackColor = 1.677722e7f; // white, past its end after seven digits
  Redraw(s, design);
  EXPECT_EQ(s.Ground, 16777215u);
  EXPECT_EQ(s.Item[1].Role, Ink::Own);
  EXPECT_EQ(s.Item[1].Colour, 16777090u);
}

TEST(ClosedOutline, WalksEveryChainThatCloses) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<Corner> corner;
    const int count = 3 + static_cast<int>(random() % 40);
    for (int i = 0; i < count; ++i) {
      const double r = 20 + 20 * part(random), a = i * 2 * Pi / count;
      corner.push_back({r * std::cos(a), r * std::sin(a), random() % 2 ? 0 : part(random) - 0.5});
    }
    const Outline o = ChainOf(corner, seed % 2 ? 0 : 0.009, &random);
    const std::vector<OutlinePiece> walk = ClosedOutline(o.Table, 0.01);
    ASSERT_EQ(walk.size(), static_cast<std::size_t>(count));
    double area = 0;
    for (std::size_t i = 0; i < walk.size(); ++i) {
      const OutlinePiece &p = walk[i], &next = walk[(i + 1) % walk.size()];
      EXPECT_LE(std::hypot(p.X2 - next.X1, p.Y2 - next.Y1), 0.01);
      area += (p.X1 * p.Y2 - p.X2 * p.Y1) / 2 + p.Radius * p.Radius * (p.Sweep - std::sin(p.Sweep)) / 2;
    }
    EXPECT_NEAR(std::abs(area), o.Area, 0.02 * o.Area);

    EntityTable open = o.Table;
    DeleteRow(open, static_cast<int>(random() % static_cast<unsigned>(count)));
    EXPECT_TRUE(ClosedOutline(open, 0.01).empty());
    EntityTable more = o.Table;
    AppendRow(more, MakeCircle(0, 0, 1));
    EXPECT_TRUE(ClosedOutline(more, 0.01).empty());
  }
  EntityTable circle;
  EXPECT_TRUE(ClosedOutline(circle, 0.01).empty());
  AppendRow(circle, MakeCircle(3, 4, 5));
  ASSERT_EQ(ClosedOutline(circle, 0.01).size(), 1u);
  EXPECT_EQ(ClosedOutline(circle, 0.01)[0].Sweep, 2 * Pi);
}

} // namespace
