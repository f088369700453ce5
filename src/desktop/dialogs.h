#pragma once
#include "desktop/bindings.h"

#include <QDialog>

// A modal window of the core. Its own Enter, Escape and close are events like any other: the core decides
// what they do.
class FormDialog final : public QDialog {
public:
  FormDialog(Ctl self, Sender, QWidget *parent);
  const Ctl Self;
  Bindings Controls;

protected:
  void closeEvent(QCloseEvent *) override;
  void keyPressEvent(QKeyEvent *) override;
};

FormDialog *MakeDimensions(Sender, QWidget *parent);
FormDialog *MakeIntroPage(Sender, QWidget *parent);
FormDialog *MakeAbout(Sender, QWidget *parent);
