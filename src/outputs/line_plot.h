#pragma once
#include "outputs/paint_surface.h"

#include <cstdint>
#include <string>
#include <vector>

struct PlotLine {
  std::string Name;         // shown when there are several
  std::uint32_t Colour = 0; // red in the low byte
  std::vector<double> Y;    // as many as the plot has X
};

// A chart of lines over a common, rising X from 0 on; Y from 0 on unless values lie below.
struct LinePlot {
  std::string Title, Unit; // of Y
  std::string XTitle;      // with its unit
  std::vector<double> X;
  std::vector<PlotLine> Line;
  bool MarkPeak = false; // of the first line, with its value
  double Mean = 0;       // a dashed line there, with its value; 0: none
};

// All of it within the box, text of the size given (page units). Nothing is drawn of lines that hold a value
// that is not finite, or of fewer than two points.
void PaintPlot(cairo_t *, const LinePlot &, const PageBox &, double textSize);
