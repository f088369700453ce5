#pragma once
#include "platform/screen.h"

#include <QLabel>
#include <QMenu>
#include <functional>

// A list that opens as a menu beside a tool while its control is visible. Left without a choice it says so
// with an empty item.
class PopUpList final : public QMenu {
public:
  PopUpList(std::function<void(const QString &item)> chosen, QWidget *const &tool, QWidget *parent);
  void Copy(const Control &);
  QLabel *Head() { return Title; } // above the items

protected:
  void hideEvent(QHideEvent *) override;

private:
  std::function<void(const QString &)> Chosen;
  QWidget *const &Tool;
  QLabel *Title;
  bool Wanted = false; // the core holds it open
};
