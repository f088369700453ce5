#pragma once
#include "desktop/theme.h"

#include <qcustomplot.h>

// Ground, axes, grid and letters of every chart.
void DressPlot(QCustomPlot &, const Theme &);
