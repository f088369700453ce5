#pragma once
#include "desktop/bindings.h"

class QComboBox;
class QGridLayout;
class QProgressBar;

// The search of the value form: a tick and a range at the end of each row, its goal and rules below them.
struct SearchPane {
  QWidget *Pane = nullptr;
  QProgressBar *Bar = nullptr;
  std::vector<std::pair<Ctl, QComboBox *>> List;
};

void AddRange(QGridLayout &, Bindings &, int row, int line, int column); // takes three columns
SearchPane BuildSearchPane(Bindings &);
void CopySearch(const SearchPane &, const Screen &);
