#pragma once
#include "desktop/bindings.h"

#include <QDialog>

class QPushButton;
class QVBoxLayout;

// A modal window of the core. Its own Enter, Escape and close are events like any other: the core decides
// what they do.
class FormDialog final : public QDialog {
public:
  FormDialog(Ctl self, Sender, QWidget *parent);
  void Copy(const Screen &);
  const Ctl Self;
  Bindings Controls;
  std::function<void(const Screen &)> Follow; // what no single control tells

protected:
  void closeEvent(QCloseEvent *) override;
  void keyPressEvent(QKeyEvent *) override;
  void showEvent(QShowEvent *) override;
};

QVBoxLayout *Column(FormDialog &); // its layout, as large as what it holds
QPushButton *DialogButton(Bindings &, Ctl, bool chief);
// At the foot: `left` alone at the left, then cancel and the chief one; Ctl::Count: no such button.
void AddDialogButtons(FormDialog &, QVBoxLayout &, Ctl chief, Ctl cancel = Ctl::Count, Ctl left = Ctl::Count);
