#include "desktop/theme.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
double Channel(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }
double Luminance(const QColor &c) {
  return 0.2126 * Channel(c.redF()) + 0.7152 * Channel(c.greenF()) + 0.0722 * Channel(c.blueF());
}
double Contrast(const QColor &a, const QColor &b) {
  const double x = Luminance(a), y = Luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

using Part = QColor Theme::*;
struct Pairing {
  const char *What;
  double Least;
  std::vector<Part> Ink, Ground;
};

// Every ground on which a colour stands; disabled words are left out.
const Pairing Pairings[] = {
    {"words",
     4.5,
     {&Theme::Text},
     {&Theme::Window, &Theme::Pane, &Theme::Field, &Theme::Hover, &Theme::Pressed, &Theme::Lit, &Theme::Glow,
      &Theme::Notice, &Theme::Ground, &Theme::Disc}},
    {"quiet words", 4.5, {&Theme::Quiet}, {&Theme::Window, &Theme::Pane, &Theme::Field, &Theme::Ground}},
    {"links and snap names", 4.5, {&Theme::Accent, &Theme::Guide}, {&Theme::Window, &Theme::Field}},
    {"words of the chief button", 4.5, {&Theme::AccentText}, {&Theme::Accent, &Theme::AccentHover}},
    {"icons",
     3,
     {&Theme::Quiet, &Theme::Accent, &Theme::Gone, &Theme::Picked},
     {&Theme::Window, &Theme::Field, &Theme::Hover, &Theme::Pressed, &Theme::Lit, &Theme::Glow}},
    {"borders of what takes input", 3, {&Theme::Edge, &Theme::Accent}, {&Theme::Window, &Theme::Field}},
    {"the drawing",
     3,
     {&Theme::New, &Theme::Gone, &Theme::Guide, &Theme::Picked, &Theme::Geometry, &Theme::GrainCircle},
     {&Theme::Ground, &Theme::Disc, &Theme::Propellant, &Theme::Core}},
};
} // namespace

TEST(Theme, EverythingStandsOutFromItsGround) {
  for (const Theme *theme : {&LightTheme(), &DarkTheme()})
    for (const auto &[what, least, inks, grounds] : Pairings)
      for (const Part ink : inks)
        for (const Part ground : grounds)
          EXPECT_GE(Contrast(theme->*ink, theme->*ground), least)
              << (theme->Dark ? "dark, " : "light, ") << what << ": " << (theme->*ink).name().toStdString()
              << " on " << (theme->*ground).name().toStdString();
}

TEST(Theme, ChartLinesStandOutFromGroundAndFill) {
  constexpr std::uint32_t fills[] = {0xB4C8FF, 0xEBEBB4, 0xB4FFC8, 0xD1CCC8}; // red in the low byte
  for (const Theme *theme : {&LightTheme(), &DarkTheme()})
    for (const std::uint32_t fill : fills) {
      EXPECT_GE(Contrast(ChartLine(*theme, fill), theme->Field), 3);
      EXPECT_GE(Contrast(ChartLine(*theme, fill), ChartFill(*theme, fill)), 3);
    }
}
