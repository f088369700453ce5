#pragma once
#include "macros/mac_file.h"
#include "macros/templates.h"
#include "platform/draw_surface.h"

#include <string>

DrawSurface GrainSurface(Design);             // the whole grain, without grid and marks
DrawSurface TemplateSurface(const MacFile &); // what its play drew when it was recorded

// K.BMP of a template; returns the trouble, or an empty text.
std::string WriteTemplatePicture(const TemplateFolders &, const std::string &key, const MacFile &);
