#pragma once
#include <cairo.h>
#include <string>
#include <string_view>

// The bytes of a BMP file of 24 bits a pixel, bottom row first, from an image surface of format RGB24.
std::string BitmapBytes(cairo_surface_t *);

// A BMP file that is all there: not packed, 1 to 4096 pixels a side.
bool IsWholeBitmap(std::string_view bytes);
