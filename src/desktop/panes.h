#pragma once
#include "desktop/bindings.h"

class ChartView;

QWidget *BuildToolsPane(Bindings &);
QWidget *BuildReportPane(Bindings &);
QWidget *BuildSidePane(Bindings &);
QWidget *BuildPromptStrip(Bindings &);
QWidget *BuildStatusStrip(Bindings &);
QWidget *BuildRecoveryBar(Bindings &);
QWidget *BuildChartCell(Bindings &, Ctl frame, Ctl chart, ChartView *&view);
QWidget *BuildEmptyCard(Bindings &);
QLabel *Quiet(QLabel *); // grey, small
