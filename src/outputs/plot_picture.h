#pragma once
#include "outputs/picture.h"
#include "platform/plot.h"

#include <span>
#include <string>

// A plot as it is seen whole: its filled curve, those laid over it and a key of what they are. An empty fill
// name: the filled curve is not in the key. Returns the trouble, or an empty text.
std::string WritePlotPicture(const Plot &, const std::string &title, const std::string &fillName, PictureForm,
                             const std::string &path);

std::span<const double> DashPattern(int dash); // lengths of lines and gaps in widths of the line; empty: none
