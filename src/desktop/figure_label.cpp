#include "desktop/figure_label.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

namespace {
// The figure's first digits are to be read, the rest is there for who wants them.
struct Parts {
  QString Caption, Figure, Rest, Unit;
};

Parts Split(const QString &caption, const QString &unit, const QString &text) {
  constexpr int Read = 7; // significant digits
  const auto colon = caption.isEmpty() ? text.indexOf(": ") : -1;
  Parts parts{
      caption.isEmpty() ? text.left(colon) : caption, colon < 0 ? text : text.mid(colon + 2), {}, unit};
  if (parts.Figure == "N/A") parts.Unit.clear();
  int digits = 0;
  bool point = false;
  for (qsizetype i = 0; i < parts.Figure.size(); ++i) {
    const QChar c = parts.Figure[i];
    point = point || c == '.';
    digits += c.isDigit() && (digits > 0 || c != '0');
    if (!c.isDigit() && c != '.' && c != '-') break;
    if (!point || digits <= Read) continue;
    parts.Rest = parts.Figure.mid(i);
    parts.Figure.truncate(i);
  }
  return parts;
}

void CopyFigure(const Parts &p) { QGuiApplication::clipboard()->setText(p.Figure + p.Rest); }
} // namespace

FigureLabel::FigureLabel(QString caption, QString unit, Type figure)
    : Caption(std::move(caption)), Unit(std::move(unit)), Size(figure) {
  setTextFormat(Qt::PlainText);
  setFocusPolicy(Qt::StrongFocus);
}

QSize FigureLabel::sizeHint() const {
  const QFontMetrics head(TypeFont(Type::Small)), figure(TypeFont(Size));
  const Parts p = Split(Caption, Unit, text());
  const int wide = figure.horizontalAdvance(p.Figure) + head.horizontalAdvance(p.Rest) + 6 +
                   head.horizontalAdvance(p.Unit);
  return {std::max(head.horizontalAdvance(p.Caption), wide) + 2, head.height() + figure.height() + 4};
}

void FigureLabel::paintEvent(QPaintEvent *) {
  const Parts p = Split(Caption, Unit, text());
  const QFont small = TypeFont(Type::Small), large = TypeFont(Size);
  const QFontMetrics head(small), figure(large);
  QPainter painter(this);
  painter.setFont(small);
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(0, head.ascent(), p.Caption);
  const int base = head.height() + 2 + figure.ascent();
  const int after = figure.horizontalAdvance(p.Figure);
  painter.drawText(after, base, p.Rest);
  painter.drawText(after + head.horizontalAdvance(p.Rest) + 6, base, p.Unit);
  painter.setFont(large);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(0, base, p.Figure);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
  painter.drawLine(0, base + 3, figure.horizontalAdvance(p.Figure), base + 3);
}

void FigureLabel::keyPressEvent(QKeyEvent *key) {
  if (key->matches(QKeySequence::Copy))
    CopyFigure(Split(Caption, Unit, text()));
  else
    QLabel::keyPressEvent(key);
}
