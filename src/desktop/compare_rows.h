#pragma once
#include "platform/plot.h"

class QTreeWidget;
struct Theme;

// The rows anew, each with the line of its curve; as tall as they need, at the least this many.
void FillTable(QTreeWidget &, const TextTable &, const Theme &, int leastRows);
