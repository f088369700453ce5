#pragma once
#include "desktop/bindings.h"

// A window beside the drawing that stays open while one draws. Escape and its frame's button ask the core to
// close it; Ctrl+C copies what it is about, where no field has the keys.
class SideWindow : public QWidget {
public:
  SideWindow(Ctl self, Sender, QWidget *parent);
  Bindings Controls;

protected:
  virtual void CopyOut() {}
  void closeEvent(QCloseEvent *) override;
  void keyPressEvent(QKeyEvent *) override;

private:
  const Ctl Self;
};
