#pragma once
#include <QWidget>

class QAbstractButton;

// Buttons side by side as one; where the width does not hold them, in two rows.
class SegmentRow final : public QWidget {
public:
  SegmentRow();
  void Add(QAbstractButton *);

protected:
  void resizeEvent(QResizeEvent *) override;
  bool event(QEvent *) override;

private:
  void Arrange();
  QList<QAbstractButton *> Parts;
};
