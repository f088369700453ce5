#pragma once
#include "desktop/bindings.h"

class ChartView;
class QFrame;
class QPushButton;
class QScrollArea;

QWidget *BuildReportPane(Bindings &);
QWidget *BuildStatusStrip(Bindings &);
QWidget *BuildRecoveryBar(Bindings &);
QWidget *BuildChartCell(Bindings &, Ctl frame, Ctl chart, ChartView *&view);
QWidget *BuildEmptyCard(Bindings &);

// What the panes are made of.
QFrame *Frame(const char *name);
QLabel *Quiet(QLabel *); // grey, small
QLabel *Head(const QString &text);
QFrame *Hairline();
QScrollArea *Scrolled(QWidget *pane, int width); // a low window scrolls it rather than cut it
QPushButton *Button(Bindings &, Ctl);
