#pragma once
#include "platform/screen.h"

#include <QWidget>
#include <functional>

class QPushButton;

// A short list of which every item is a button: NAME:ITEM is its object name.
class ChoiceButtons final : public QWidget {
public:
  explicit ChoiceButtons(std::function<void(const QString &item)> chosen);
  void Copy(const Control &);

private:
  std::function<void(const QString &)> Chosen;
  std::vector<std::string> Shown;
  std::vector<QPushButton *> Button;
};
