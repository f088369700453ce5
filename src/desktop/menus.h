#pragma once
#include "desktop/bindings.h"

class QMainWindow;
class QToolButton;

void BuildMenus(QMainWindow &, Bindings &);
void BuildToolBar(QMainWindow &, Bindings &);
QToolButton *ToolButton(Bindings &, Ctl, const QString &icon);
