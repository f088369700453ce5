#pragma once
#include "burnback/burn_run.h"
#include "outputs/canvas.h"
#include "outputs/paint_surface.h"

#include <string>
#include <vector>

constexpr std::uint32_t StrongInk = Hex(0x1E2730), QuietInk = Hex(0x6B7884), HairlineInk = Hex(0xD5DCE2);

std::string DesignName(const Design &); // of its file, without folder and ending
std::string ShortFigure(double);        // at most four figures that say something, no zeros behind the point
std::vector<std::string> DimensionLines(const GrainDoc &); // grain, throat if there is one, burning ends

struct Figure {
  std::string Name, Value, Unit;
};
std::vector<Figure> BurnFigures(const BurnRun &); // those the burn has

// A row each over the height of the box, with a hairline above.
void PaintFigures(cairo_t *, const std::vector<Figure> &, const PageBox &, double textSize);
