#pragma once
#include <QElapsedTimer>
#include <QFrame>

class QLabel;
class QProgressBar;
class QPushButton;

// SimMsg: says that a run is under way and, once that takes longer than half a second, how far it is, with a
// stop button.
class RunNotice final : public QFrame {
public:
  RunNotice();
  QLabel *Text() { return Words; }
  bool
  Show(double part); // 0..1; false: the user pressed stop. Only the stop button hears the user meanwhile.

protected:
  void showEvent(QShowEvent *) override;
  void hideEvent(QHideEvent *) override;
  bool eventFilter(QObject *, QEvent *) override;

private:
  QLabel *Words;
  QProgressBar *Bar;
  QPushButton *Stop;
  QElapsedTimer Since, Last;
  bool Stopped = false;
};
