#pragma once
#include <cairo.h>
#include <string>

// The bytes of a BMP file of 24 bits a pixel, bottom row first, from an image surface of format RGB24.
std::string BitmapBytes(cairo_surface_t *);
