#pragma once
#include "burnback/burn_run.h"
#include "platform/chart.h"

#include <string>
#include <vector>

// The small chart and the figures of a burn beside what is being changed.

std::vector<float> BurnCurve(const BurnRun &); // Kn of each step, or without a throat the area, mm2

// The run's curve over burn distance; `before`, on the same steps, lies grey behind it unless it is the same.
// `former`: the run is not that of the drawing at hand, and grey itself. No run: no series.
void FillBurnChart(const BurnRun &, const std::vector<float> &before, bool former, Chart &);

enum class BurnFigure { MaxKn, FirstKn, MaxArea, Distance, Neutrality, Sliver, Loading, ApAt };
std::string BurnFigureText(const BurnRun &, BurnFigure); // "Max Kn: 210.4"; N/A; without a run no value
