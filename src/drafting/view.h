#pragma once
#include "geometry/primitives.h"
#include "platform/draw_surface.h"
#include "shell/grain_document.h"

#include <span>

// The window of a drawing surface, in mm. All of these keep the aspect of the panel's pixels, its height
// between a millionth of and a hundred times the grain diameter, and its centre within fifty diameters of the
// origin.
void ZoomReset(DrawSurface &,
               const GrainDoc &); // the whole grain circle with a margin of a fiftieth of its diameter
void Zoom1h(DrawSurface &);       // the centre stays, the window doubles
void Zoomx2(DrawSurface &);       // the centre stays, the window halves
void ZoomWindow(DrawSurface &, Point corner, Point opposite); // shows the rectangle; nothing when it is empty
void ZoomAbout(DrawSurface &, Point still, double factor); // above 1 comes nearer; the point keeps its place
void Pan(DrawSurface &, double dx, double dy);             // moves the window by mm
void ResizePanel(DrawSurface &, double pixelWidth, double pixelHeight); // centre and shorter side stay

// Draws the design anew: grid, grain circle, entities, then the marks. Brings arc angles above 2*pi back by
// one turn in the table and clears GeomAbort. Nothing is done while a template plays (MacroMode 2). Grid
// lines stand at least 6 pixels apart and there are never more than some thousands of items in the grid. The
// design's own colours are told as Ink::Own, with the ground, once one of them is not the built-in one.
void Redraw(DrawSurface &, Design &, std::span<const Point> marks = {});

void FoldArcAngles(EntityTable &); // those above 2*pi come back by one turn

bool HasOwnColours(const GrainDoc &);
