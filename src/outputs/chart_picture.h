#pragma once
#include "outputs/picture.h"
#include "performance/charts.h"

#include <string>

// A chart with its title, labels and columns as its record tells them. Returns the trouble, or an empty text.
std::string WriteChartPicture(const PerformanceChart &, PictureForm, const std::string &path);
