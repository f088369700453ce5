#pragma once
#include "desktop/bindings.h"

class QStandardItemModel;

// A field with a list of what the typed text may mean, which the core makes; a click into the empty field and
// the Down key open it too.
class IngredientPicker final : public QLineEdit {
public:
  IngredientPicker(Bindings &, Ctl);
  void Copy(const Control &);

protected:
  void keyPressEvent(QKeyEvent *) override;
  void mousePressEvent(QMouseEvent *) override;

private:
  void Choose(const QString &);
  void Done(); // Enter: on to the weight

  Bindings &Owner;
  Ctl Self;
  QStandardItemModel *Offer;
  std::vector<std::string> Shown;
};
