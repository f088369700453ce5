#include "platform/screen.h"

Screen::Screen() {
  for (std::size_t i = 0; i < CtlCount; ++i) {
    Show[i].Text = RowOf(static_cast<Ctl>(i)).Text;
    Show[i].Visible = true;
  }
}
