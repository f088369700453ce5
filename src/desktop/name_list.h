#pragma once
#include "desktop/bindings.h"

#include <QListWidget>
#include <QPointer>
#include <functional>

// Names to be put into the field beside it, where its caret stands: by a double click or Enter, and where one
// click is enough by that. Escape goes back to the field.
class NameList final : public QListWidget {
public:
  NameList(Bindings &, Ctl, bool oneClick, std::function<QLineEdit *()> field);

protected:
  void keyPressEvent(QKeyEvent *) override;

private:
  void Choose(const QListWidgetItem *);
  Bindings &Owner;
  Ctl Control;
  std::function<QLineEdit *()> Field;
};
