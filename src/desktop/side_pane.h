#pragma once
#include "desktop/bindings.h"

#include <QScrollArea>

class LiveBurnPane;

// The right pane: the running tool with what it asks for, then the grain and its live burn.
class SidePane final : public QScrollArea {
public:
  explicit SidePane(Bindings &);
  void Follow(const Screen &, const Theme &); // the card shows the running tool

private:
  QWidget *Card;
  QLabel *Name, *Use;
  LiveBurnPane *Live;
};
