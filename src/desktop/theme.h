#pragma once
#include "platform/draw_surface.h"

#include <QColor>
#include <QFont>
#include <QString>

class QApplication;

// Every colour of the window, by what it stands for.
struct Theme {
  bool Dark = false;
  QColor Window, Pane, Field, Hairline, Edge, Text, Quiet, Faint, Hover, Pressed;
  QColor Ground, Disc, Propellant, Core, GrainCircle, Geometry, Picked, Guide, New, Gone, Grid, GridFifth;
  QColor Accent, AccentHover, AccentText, Lit, Glow,
      Notice; // Lit, Glow: grounds of what runs, what takes part
};
const Theme &LightTheme();
const Theme &DarkTheme();

QColor InkColour(const Theme &, const DrawItem &);
QColor ContourColour(const Theme &, std::uint32_t colour); // a scale's colour, kept readable on the ground
// A chart's given colour, as it is in the light theme and sunk into the ground in the dark one, and the line
// of the same hue on top of it.
QColor ChartFill(const Theme &, std::uint32_t colour);
QColor ChartLine(const Theme &, std::uint32_t colour);
QColor FromRed(std::uint32_t colour); // red in the low byte

enum class Type : std::uint8_t { Base, Small, Head, Prompt, Figure, Large, Title, Name };
void SetBaseFont(double least); // points; the system's own size when that is larger
QFont TypeFont(Type);
void ApplyTheme(QApplication &, const Theme &); // style, palette, sheet: for every window, open ones too
