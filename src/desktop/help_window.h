#pragma once
#include "desktop/bindings.h"

class QTextBrowser;

// The help pages, beside the drawing: their titles at the left.
class HelpWindow final : public QWidget {
public:
  HelpWindow(Sender, QWidget *parent);
  void Copy(const Screen &);

protected:
  void closeEvent(QCloseEvent *) override;
  void keyPressEvent(QKeyEvent *) override;

private:
  void SendClose();

  Bindings Controls;
  QTextBrowser *Page;
  std::string Shown;
};
