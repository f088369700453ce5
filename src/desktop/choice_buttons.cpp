#include "desktop/choice_buttons.h"

#include <QPushButton>
#include <QVBoxLayout>

ChoiceButtons::ChoiceButtons(std::function<void(const QString &)> chosen) : Chosen(std::move(chosen)) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(6);
}

void ChoiceButtons::Copy(const Control &from) {
  if (Shown != from.Item) {
    Shown = from.Item;
    for (QPushButton *button : Button) {
      button->hide();
      button->deleteLater(); // it may be the one just pressed
    }
    Button.clear();
    for (const std::string &item : Shown) {
      const QString text = QString::fromStdString(item);
      auto *button = new QPushButton(text);
      button->setCheckable(true);
      button->setFocusPolicy(Qt::TabFocus);
      button->setObjectName(objectName() + ":" + text);
      connect(button, &QPushButton::clicked, this, [this, text] { Chosen(text); });
      layout()->addWidget(button);
      Button.push_back(button);
    }
  }
  for (std::size_t i = 0; i < Button.size(); ++i) Button[i]->setChecked(static_cast<int>(i) == from.Index);
}
