#pragma once
#include <QPixmap>
#include <QWidget>

// frmSplash: our picture, the name and what it is.
class Splash final : public QWidget {
public:
  explicit Splash(const QString &title); // "Name - what it is"

protected:
  void paintEvent(QPaintEvent *) override;

private:
  QPixmap Picture;
};
