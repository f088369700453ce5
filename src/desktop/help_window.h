#pragma once
#include "desktop/side_window.h"

class QTextBrowser;

// The help pages, beside the drawing: their titles at the left.
class HelpWindow final : public SideWindow {
public:
  HelpWindow(Sender, QWidget *parent);
  void Copy(const Screen &);

private:
  QTextBrowser *Page;
  std::string Shown;
};
