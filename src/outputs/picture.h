#pragma once
#include "burnback/burn_run.h"
#include "platform/contour_scale.h"
#include "platform/draw_surface.h"

#include <string>

enum class PictureForm { Svg, Png, Pdf, Bmp };

// Draws a list of items on a page of the given pixels (points for PDF) through one routine, whatever the
// form. Returns the trouble, or an empty text. Written atomically.
std::string WritePicture(const DrawSurface &, PictureForm, int width, int height, const std::string &path);

// The picture of a burn: grain circle, propellant, start outline, every SimIncrementDisplay-th outline
// coloured by burn distance, with a legend in mm.
std::string WriteBurnPicture(const Design &, const BurnRun &, PictureForm, const std::string &path);
