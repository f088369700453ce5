#pragma once
#include "desktop/bindings.h"

#include <QFrame>

class QBoxLayout;
class QToolButton;

// The prompt and, right of it, how points are given. Modes lose their words, then move below the prompt, as
// the window gets narrow; the height depends on the width alone, so that no tool moves the drawing.
class PointStrip final : public QFrame {
public:
  explicit PointStrip(Bindings &);
  QWidget *TakeFields(); // X_Input, Y_Input and their labels; their place stays free
  void PutFields();      // back

protected:
  void resizeEvent(QResizeEvent *) override;

private:
  void Arrange();
  QWidget *BuildModes(Bindings &);
  void AddField(Bindings &, QBoxLayout &, Ctl label, Ctl field);

  std::vector<QToolButton *> Mode;
  QBoxLayout *Row = nullptr;
  QWidget *Fields = nullptr, *FieldPlace = nullptr;
};
