#pragma once
#include "desktop/bindings.h"

class ChartView;
class QLabel;

// The curve of the drawing at hand, its figures in small type, and a word on what the curve is.
class LiveBurnPane final : public QWidget {
public:
  explicit LiveBurnPane(Bindings &);
  void Copy(const Screen &, const Theme &);

private:
  ChartView *View;
  QLabel *Note;
};
