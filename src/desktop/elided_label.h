#pragma once
#include <QLabel>

// One line that gives way: what does not fit is left out at its end and stands in the tooltip.
class ElidedLabel final : public QLabel {
public:
  explicit ElidedLabel(const QString &least = {}); // text that always has room
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent *) override;

private:
  QString Least;
};
