#pragma once
#include "platform/draw_surface.h"

#include <QColor>
#include <QFont>
#include <QString>

class QApplication;

// Every colour of the window, by what it stands for.
struct Theme {
  bool Dark = false;
  QColor Window, Pane, Field, Hairline, Text, Quiet, Hover, Pressed;
  QColor Ground, Disc, Propellant, Core, GrainCircle, Geometry, Picked, Guide, New, Gone, Grid, GridFifth;
  QColor Accent, AccentHover, AccentText;
};
const Theme &LightTheme();
const Theme &DarkTheme();

QColor InkColour(const Theme &, const DrawItem &);
QColor ContourColour(const Theme &, std::uint32_t colour); // a scale's colour, kept readable on the ground
QColor FromRed(std::uint32_t colour);                      // red in the low byte

enum class Type : std::uint8_t { Base, Small, Head, Prompt, Figure, Large, Title, Name };
void SetBaseFont(double least); // points; the system's own size when that is larger
QFont TypeFont(Type);
void ApplyTheme(QApplication &, const Theme &); // style, palette, sheet: for every window, open ones too
