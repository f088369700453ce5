#include "desktop/splash.h"

#include "desktop/icons.h"
#include "desktop/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>

Splash::Splash(const QString &title) : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setWindowTitle(title);
  setFixedSize(640, 340);
  move(screen()->availableGeometry().center() - rect().center());
  Picture = SvgPicture("splash", 268, devicePixelRatioF());
}

void Splash::paintEvent(QPaintEvent *) {
  const Theme &t = DarkTheme();
  const QString title = windowTitle();
  const auto dash = title.indexOf(" - ");
  QPainter painter(this);
  painter.fillRect(rect(), t.Ground);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(t.Hairline, 1));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  painter.drawPixmap(34, 36, Picture);
  painter.setFont(TypeFont(Type::Name));
  painter.setPen(t.Text);
  painter.drawText(QRectF(334, 108, 290, 50), Qt::AlignLeft | Qt::AlignVCenter, title.left(dash));
  painter.setFont(TypeFont(Type::Base));
  painter.setPen(t.Quiet);
  painter.drawText(QRectF(336, 162, 280, 44), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   title.mid(dash + 3));
  painter.setFont(TypeFont(Type::Small));
  painter.drawText(QRectF(336, 282, 280, 24), Qt::AlignLeft | Qt::AlignVCenter, "Version " MORVANDEL_VERSION);
}
