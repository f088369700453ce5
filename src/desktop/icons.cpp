#include "desktop/icons.h"

#include "desktop/theme.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// Resources of a static library must be taken in by name, outside any namespace.
static void TakeInResources() { Q_INIT_RESOURCE(desktop); }

namespace {
class SvgIconEngine final : public QIconEngine {
public:
  explicit SvgIconEngine(QByteArray source) : Source(std::move(source)) {}

  void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
    const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    if (!Renderer.isValid() || dark != Dark) {
      const Theme &light = LightTheme(), &theme = dark ? DarkTheme() : light;
      QByteArray text = Source;
      // The files are drawn in the light theme's colours.
      text.replace(light.Quiet.name().toUpper().toLatin1(), theme.Quiet.name().toLatin1());
      text.replace(light.Accent.name().toUpper().toLatin1(), theme.Accent.name().toLatin1());
      text.replace(light.Gone.name().toUpper().toLatin1(), theme.Gone.name().toLatin1());
      text.replace(light.Picked.name().toUpper().toLatin1(), theme.Picked.name().toLatin1());
      Renderer.load(text);
      Dark = dark;
    }
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(0.36);
    Renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect({}, size), mode, state);
    return pixmap;
  }

  QIconEngine *clone() const override { return new SvgIconEngine(Source); }

private:
  QByteArray Source;
  QSvgRenderer Renderer;
  bool Dark = false;
};

QByteArray SourceOf(const QString &name) {
  TakeInResources();
  QFile file(":/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) qFatal("no icon %s", qPrintable(name));
  return file.readAll();
}
} // namespace

QIcon SvgIcon(const QString &name) { return QIcon(new SvgIconEngine(SourceOf(name))); }

QPixmap SvgPicture(const QString &name, int side, double pixelRatio) {
  QPixmap pixmap(QSize(side, side) * pixelRatio);
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(SourceOf(name));
  QPainter painter(&pixmap);
  renderer.render(&painter);
  painter.end();
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}
