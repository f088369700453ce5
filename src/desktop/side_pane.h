#pragma once
#include "desktop/bindings.h"

#include <QScrollArea>

// The right pane: the running tool with what it asks for, then the grain.
class SidePane final : public QScrollArea {
public:
  explicit SidePane(Bindings &);
  void Follow(const Screen &); // the card shows the running tool

private:
  QWidget *Card;
  QLabel *Name, *Use;
};
