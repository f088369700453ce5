#pragma once
#include "burnback/burn_run.h"
#include "outputs/paint_surface.h"

double BurnEnd(const BurnRun &); // the last distance drawn, mm

// A burn in a square box: propellant, start outline, every SimIncrementDisplay-th outline coloured by its
// distance, grain circle. Close outlines are laid on a pale band of their own colour each, which join to an
// even ground; those nearest to the legend's values stand out. `pen` multiplies all line widths.
void PaintBurn(cairo_t *, const Design &, const BurnRun &, const PageBox &, double pen = 1);
