#include "desktop/plot_view.h"

#include "desktop/event_codes.h"
#include "desktop/plot_dress.h"
#include "outputs/plot_picture.h"
#include "platform/events.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <cmath>

namespace {
constexpr double MostZoom = 500, Notch = 0.8; // what a step of zoom leaves

double ValueAt(const std::vector<double> &x, const std::vector<double> &y, double at) {
  const auto next = std::upper_bound(x.begin(), x.end(), at);
  if (next == x.begin()) return y.front();
  if (next == x.end()) return y.back();
  const auto i = static_cast<std::size_t>(next - x.begin());
  return y[i - 1] + (y[i] - y[i - 1]) * (at - x[i - 1]) / (x[i] - x[i - 1]);
}

// The least number of labels to leave out between two so that they do not touch, of those that part the
// whole evenly.
int EveryOf(int labels, double room, double need) {
  for (int every = 1; every < labels; ++every)
    if (labels % every == 0 && room * every >= need) return every;
  return labels;
}
} // namespace

QPen PenOf(const PlotCurve &curve, const Theme &theme, double width) {
  if (curve.Dash < 0) return QPen(ChartLine(theme, curve.Colour), width);
  QPen pen(curve.Points ? theme.Text : FromRed(curve.Colour), width);
  const auto pattern = DashPattern(curve.Dash);
  if (!pattern.empty()) pen.setDashPattern(QVector<qreal>(pattern.begin(), pattern.end()));
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

PlotView::PlotView(Ctl self, Sender send) : Self(self), Send(std::move(send)) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(320, 128);
  setNoAntialiasingOnDrag(false);
  setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  plotLayout()->setMargins(QMargins(4, 2, 4, 2));
  // Half of the last label stands beyond the axis, and would be left out without room.
  axisRect()->setMinimumMargins(
      QMargins(0, 8, QFontMetrics(TypeFont(Type::Small)).horizontalAdvance("0000"), 0));
  axisRect()->setRangeZoomFactor(Notch, Notch);
  for (QCPAxis *axis : {xAxis, yAxis})
    connect(axis, qOverload<const QCPRange &>(&QCPAxis::rangeChanged), this, [this] { Follow(); });
}

void PlotView::Copy(const Plot &plot, const std::vector<std::string> &yLabels,
                    const std::vector<std::string> &timeLabels, const Theme &theme) {
  const bool recolour = Colours != &theme, fresh = plot.Number != Shown.Number;
  const bool cursor = plot.Cursor != Shown.Cursor || plot.CursorText != Shown.CursorText;
  Colours = &theme;
  if (recolour) DressPlot(*this, *Colours);
  if (fresh) {
    const bool whole = Whole() || plot.XTitle != Shown.XTitle || plot.YTitle != Shown.YTitle;
    Shown = plot;
    YLabels = yLabels;
    TimeLabels = timeLabels;
    xAxis->setLabel(QString::fromStdString(Shown.XTitle));
    yAxis->setLabel(QString::fromStdString(Shown.YTitle));
    if (whole) ShowWhole();
    Follow();
  }
  Shown.Cursor = plot.Cursor;
  Shown.CursorText = plot.CursorText;
  if (recolour && !fresh) Follow();
  if (cursor) update();
}

bool PlotView::Whole() const {
  return xAxis->range() == QCPRange(Shown.XBegin, Shown.XEnd) &&
         yAxis->range() == QCPRange(Shown.YBegin, Shown.YTop);
}

void PlotView::ShowWhole() { Look(Shown.XBegin, Shown.XEnd, Shown.YBegin, Shown.YTop); }

void PlotView::Look(double left, double right, double bottom, double top) {
  Following = true;
  xAxis->setRange(left, right);
  yAxis->setRange(bottom, top);
  Following = false;
  Follow();
}

void PlotView::ZoomBy(double times) {
  const bool pointed = Shown.Cursor >= 0 && static_cast<std::size_t>(Shown.Cursor) < Shown.X.size();
  const auto i = static_cast<std::size_t>(std::max(0, Shown.Cursor));
  xAxis->scaleRange(times, pointed ? Shown.X[i] : xAxis->range().center());
  yAxis->scaleRange(times, pointed ? Shown.Y[i] : yAxis->range().center());
}

// Nothing outside of the plot is looked at, and no more than a few pixels of it spread over all.
void PlotView::Follow() {
  if (Following || !Colours) return;
  Following = true;
  for (const auto &[axis, begin, end] :
       {std::tuple{xAxis, Shown.XBegin, Shown.XEnd}, std::tuple{yAxis, Shown.YBegin, Shown.YTop}}) {
    const double whole = end - begin, size = std::clamp(axis->range().size(), whole / MostZoom, whole);
    const double from = std::clamp(axis->range().lower, begin, std::max(begin, end - size));
    axis->setRange(from, size < whole ? from + size : end);
  }
  Fill();
  Label();
  Following = false;
  replot(rpQueuedReplot);
  if (OnView) OnView();
}

void PlotView::Fill() {
  clearPlottables();
  if (Shown.X.size() < 2) return;
  if (Shown.Filled) FillArea();
  for (const PlotCurve &curve : Shown.Curve) {
    QCPGraph *graph = addGraph();
    graph->setData(QVector<double>(curve.X.begin(), curve.X.end()),
                   QVector<double>(curve.Y.begin(), curve.Y.end()), true);
    graph->setAdaptiveSampling(false);
    graph->setPen(PenOf(curve, *Colours, curve.Points ? 1.25 : 2));
    if (curve.Points && curve.X.size() <= 200)
      graph->setScatterStyle({QCPScatterStyle::ssDisc, Colours->Text, Colours->Text, 4});
  }
}

void PlotView::FillArea() {
  const double from = std::max(xAxis->range().lower, Shown.X.front());
  const double to = std::min(xAxis->range().upper, Shown.X.back());
  const int pixels = std::max(2, axisRect()->width());
  QVector<double> x, y;
  for (int i = 0; i <= pixels && to > from; ++i) {
    x.push_back(from + (to - from) * i / pixels);
    y.push_back(ValueAt(Shown.X, Shown.Y, x.back()));
  }
  QCPGraph *area = addGraph();
  area->setData(x, y, true);
  area->setAdaptiveSampling(false);
  area->setAntialiasedFill(false);
  area->setPen(Qt::NoPen);
  area->setBrush(ChartFill(*Colours, Shown.Fill));
  QCPGraph *line = addGraph();
  line->setData(x, y, true);
  line->setAdaptiveSampling(false);
  line->setPen(QPen(ChartLine(*Colours, Shown.Fill), 1.75));
}

void PlotView::Label() {
  const QFontMetricsF metrics(TypeFont(Type::Small));
  const bool told = Whole() && Shown.XEnd == Shown.LabelEnd && YLabels.size() > 1 && TimeLabels.size() > 1;
  if (!told || Shown.X.size() < 2) {
    for (QCPAxis *axis : {xAxis, yAxis}) axis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
    yAxis->ticker()->setTickCount(std::clamp(axisRect()->height() / 40, 2, 10));
    xAxis->ticker()->setTickCount(std::clamp(axisRect()->width() / 90, 2, 10));
    return;
  }
  QSharedPointer<QCPAxisTickerText> across(new QCPAxisTickerText), up(new QCPAxisTickerText);
  const int ticks = static_cast<int>(TimeLabels.size()) - 1, rows = static_cast<int>(YLabels.size());
  double widest = 0;
  for (const std::string &label : TimeLabels)
    widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(label)));
  const int everyTick = EveryOf(ticks, axisRect()->width() / static_cast<double>(ticks), widest + 10);
  const int everyRow = EveryOf(rows, axisRect()->height() * 15.0 / 16 / rows, metrics.height() + 2);
  across->addTick(0, QString::fromStdString(TimeLabels.back()));
  for (int k = everyTick; k <= ticks; k += everyTick)
    across->addTick(Shown.LabelEnd * k / ticks,
                    QString::fromStdString(TimeLabels[static_cast<std::size_t>(k - 1)]));
  const bool higher = Shown.YTop > Shown.LabelLast * 16 / 15 * (1 + 1e-9); // kept curves need more room
  for (int k = everyRow; k <= rows; k += everyRow)
    up->addTick(Shown.LabelLast * k / rows, QString::fromStdString(YLabels[static_cast<std::size_t>(k - 1)]));
  xAxis->setTicker(across);
  if (higher)
    yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
  else
    yAxis->setTicker(up);
}

void PlotView::paintEvent(QPaintEvent *event) {
  QCustomPlot::paintEvent(event);
  if (!Colours) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (hasFocus()) {
    painter.setPen(QPen(Colours->Accent, 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  }
  const QRect area = axisRect()->rect();
  if (Shown.X.size() < 2) {
    painter.setPen(Colours->Quiet);
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, "Nothing to draw: the inputs give no chart");
    return;
  }
  if (Shown.Cursor < 0 || static_cast<std::size_t>(Shown.Cursor) >= Shown.X.size()) return;
  const auto i = static_cast<std::size_t>(Shown.Cursor);
  const QPointF at(xAxis->coordToPixel(Shown.X[i]), yAxis->coordToPixel(Shown.Y[i]));
  if (at.x() < area.left() - 1 || at.x() > area.right() + 1) return;
  for (const QPen &pen : {QPen(Colours->Field, 3), QPen(Colours->Text, 1)}) { // seen on ground and fill alike
    painter.setPen(pen);
    painter.drawLine(QPointF(at.x(), area.top()), QPointF(at.x(), area.bottom()));
  }
  painter.setPen(QPen(Colours->Field, 1.5));
  painter.setBrush(Colours->Text);
  if (area.contains(at.toPoint())) painter.drawEllipse(at, 4, 4);
  const QString text = QString::fromStdString(Shown.CursorText);
  painter.setFont(TypeFont(Type::Head));
  const QSizeF size = QFontMetricsF(painter.font()).size(0, text) + QSizeF(16, 8);
  const double left = at.x() + 8 + size.width() > area.right() ? at.x() - 8 - size.width() : at.x() + 8;
  const QRectF tag(QPointF(std::max(left, static_cast<double>(area.left())), area.top() + 4), size);
  painter.setPen(QPen(Colours->Hairline, 1));
  painter.setBrush(Colours->Field);
  painter.drawRoundedRect(tag.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.setPen(Colours->Text);
  painter.drawText(tag, Qt::AlignCenter, text);
}

void PlotView::resizeEvent(QResizeEvent *event) {
  QCustomPlot::resizeEvent(event);
  Follow();
}

void PlotView::Point(double x) {
  const double part = (x - Shown.XBegin) / (Shown.XEnd - Shown.XBegin);
  Send(MouseAt(Event::Kind::MouseMove, Self, std::clamp(part, 0.0, 1.0), 0));
}

void PlotView::mouseMoveEvent(QMouseEvent *mouse) {
  QCustomPlot::mouseMoveEvent(mouse);
  if (mouse->buttons() != Qt::NoButton) return;
  if (!axisRect()->rect().contains(mouse->pos())) return leaveEvent(mouse);
  Point(xAxis->pixelToCoord(mouse->position().x()));
}

void PlotView::mouseDoubleClickEvent(QMouseEvent *) { ShowWhole(); }

void PlotView::leaveEvent(QEvent *) {
  if (Shown.Cursor < 0) return;
  Send(MouseAt(Event::Kind::Leave, Self, 0, 0));
}

void PlotView::keyPressEvent(QKeyEvent *key) {
  const bool pans = key->modifiers() & Qt::ControlModifier;
  const int way = key->key() == Qt::Key_Left || key->key() == Qt::Key_Down ? -1 : 1;
  switch (key->key()) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: return ZoomBy(Notch);
  case Qt::Key_Minus: return ZoomBy(1 / Notch);
  case Qt::Key_0:
  case Qt::Key_Home: return ShowWhole();
  case Qt::Key_Up:
  case Qt::Key_Down:
    if (pans) yAxis->moveRange(way * yAxis->range().size() / 10);
    return;
  case Qt::Key_Left:
  case Qt::Key_Right:
    if (pans) return xAxis->moveRange(way * xAxis->range().size() / 10);
    if (Shown.X.size() < 2) return;
    return Point(Shown.Cursor < 0 ? xAxis->range().center()
                                  : std::clamp(Shown.X[static_cast<std::size_t>(Shown.Cursor)] +
                                                   way * xAxis->range().size() / 100,
                                               xAxis->range().lower, xAxis->range().upper));
  default: QCustomPlot::keyPressEvent(key);
  }
}

void PlotView::CopyToClipboard(const QString &title) {
  if (Shown.X.size() < 2) return;
  constexpr int head = 32;
  const QPixmap plot = toPixmap(width(), height(), 2);
  QPixmap picture(plot.width(), plot.height() + 2 * head);
  picture.fill(Colours->Field);
  QPainter painter(&picture);
  painter.scale(2, 2);
  painter.setFont(TypeFont(Type::Head));
  painter.setPen(Colours->Text);
  painter.drawText(QRect(12, 0, width() - 24, head), Qt::AlignVCenter | Qt::AlignLeft, title);
  painter.drawPixmap(QRectF(0, head, width(), height()), plot, QRectF(plot.rect()));
  painter.end();
  const auto lines = [this](const std::string &name, const std::vector<double> &x,
                            const std::vector<double> &y) {
    QString text = QString::fromStdString(Shown.XTitle + "\t" + name + "\n");
    for (std::size_t i = 0; i < x.size(); ++i)
      text += QString::number(x[i], 'g', 9) + '\t' + QString::number(y[i], 'g', 7) + '\n';
    return text;
  };
  QString figures;
  if (Shown.Filled)
    figures = lines(Shown.YTitle, Shown.X, Shown.Y);
  else
    for (const PlotCurve &curve : Shown.Curve)
      figures += lines(Shown.YTitle + " " + curve.Name, curve.X, curve.Y);
  auto *copied = new QMimeData;
  copied->setImageData(picture.toImage());
  copied->setText(figures);
  QGuiApplication::clipboard()->setMimeData(copied);
}
