#include "desktop/chart_view.h"

#include "desktop/event_codes.h"
#include "desktop/plot_dress.h"
#include "platform/events.h"

#include <tuple>

namespace {
constexpr double TagPart = 0.6; // of the chart's width
auto CurvesOf(const Chart &c) { return std::tie(c.Title, c.XTitle, c.YTitle, c.Stacked, c.X, c.Series); }
} // namespace

ChartView::ChartView(Ctl self, Sender send, QLabel *key) : Self(self), Send(std::move(send)), Key(key) {
  setMouseTracking(true);
  setMinimumSize(200, 96);
  setNoAntialiasingOnDrag(false);
  plotLayout()->setMargins(QMargins(4, 2, 10, 2));
  axisRect()->setMinimumMargins(QMargins(0, 8, 0, 0));
}

void ChartView::Copy(const Chart &chart, const Theme &theme) {
  const bool recolour = Colours != &theme;
  const bool replot = recolour || CurvesOf(chart) != CurvesOf(Shown);
  const bool cursor = chart.CursorStep != Shown.CursorStep || chart.CursorText != Shown.CursorText;
  Colours = &theme;
  if (recolour) DressPlot(*this, *Colours);
  if (replot) {
    Shown = chart;
    Plot();
  }
  if (!cursor) return;
  Shown.CursorStep = chart.CursorStep;
  Shown.CursorText = chart.CursorText;
  ShowKey();
  update();
}

void ChartView::Plot() {
  clearPlottables();
  const auto count = static_cast<qsizetype>(Shown.X.size());
  const QVector<double> x(Shown.X.begin(), Shown.X.end());
  QVector<double> y(count, 0.0);
  std::vector<QVector<double>> curves;
  double top = 0;
  Names.clear();
  QCPGraph *below = nullptr;
  for (const ChartSeries &series : Shown.Series) {
    for (qsizetype i = 0; i < count && i < static_cast<qsizetype>(series.Value.size()); ++i) {
      const double value = series.Value[static_cast<std::size_t>(i)];
      y[i] = Shown.Stacked ? y[i] + value : value;
      top = std::max(top, y[i]);
    }
    QCPGraph *area = addGraph();
    area->setData(x, y, true);
    area->setAdaptiveSampling(false); // it puts teeth on a curve with more steps than the chart has pixels
    area->setAntialiasedFill(false);
    area->setPen(Qt::NoPen);
    area->setBrush(ChartFill(*Colours, series.Fill));
    if (below && Shown.Stacked) area->setChannelFillGraph(below);
    below = area;
    curves.push_back(y);
    Names += QString("<span style='color:%1'>\u25a0</span>&nbsp;%2&nbsp;&nbsp; ")
                 .arg(ChartLine(*Colours, series.Fill).name(),
                      QString::fromStdString(series.Name).toHtmlEscaped());
  }
  // Lines over all areas, or the next area would cover half of each.
  for (std::size_t i = 0; i < curves.size(); ++i) {
    QCPGraph *line = addGraph();
    line->setData(x, curves[i], true);
    line->setAdaptiveSampling(false);
    line->setPen(QPen(ChartLine(*Colours, Shown.Series[i].Fill), 1.75));
  }
  if (Shown.Series.size() < 2) Names.clear();
  ShowKey();
  xAxis->setLabel(QString::fromStdString(Shown.XTitle));
  yAxis->setLabel(QString::fromStdString(Shown.YTitle));
  xAxis->setRange(0, count ? std::max(1e-9, x.last()) : 1);
  yAxis->setRange(0, top > 0 ? top * 1.2 : 1);
  replot(rpQueuedReplot);
}

QRectF ChartView::TagOf(double x, const QFontMetricsF &metrics) const {
  const QRectF area = axisRect()->rect();
  const QSizeF size = metrics.size(0, QString::fromStdString(Shown.CursorText)) + QSizeF(14, 6);
  if (size.width() > TagPart * area.width()) return {};
  const double left = x + 6 + size.width() > area.right() ? x - 6 - size.width() : x + 6;
  return {QPointF(std::max(left, area.left()), area.top() + 4), size};
}

// A chart with no room for a tag tells the cursor's figures in its key's place.
void ChartView::ShowKey() {
  const bool told = Shown.CursorText.empty() || !TagOf(0, QFontMetricsF(TypeFont(Type::Head))).isEmpty();
  Key->setText(told ? Names : QString::fromStdString(Shown.CursorText).toHtmlEscaped());
}

void ChartView::paintEvent(QPaintEvent *event) {
  QCustomPlot::paintEvent(event);
  if (!Colours || Shown.CursorStep < 1 || Shown.CursorStep > static_cast<int>(Shown.X.size())) return;
  const QRect area = axisRect()->rect();
  const double x = xAxis->coordToPixel(Shown.X[static_cast<std::size_t>(Shown.CursorStep - 1)]);
  QPainter painter(this);
  for (const QPen &pen : {QPen(Colours->Field, 3), QPen(Colours->Text, 1)}) { // seen on ground and fill alike
    painter.setPen(pen);
    painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
  }
  const QString text = QString::fromStdString(Shown.CursorText);
  painter.setFont(TypeFont(Type::Head));
  const QRectF tag = TagOf(x, QFontMetricsF(painter.font()));
  if (text.isEmpty() || tag.isEmpty()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Colours->Hairline, 1));
  painter.setBrush(Colours->Field);
  painter.drawRoundedRect(tag.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.setPen(Colours->Text);
  painter.drawText(tag, Qt::AlignCenter, text);
}

void ChartView::resizeEvent(QResizeEvent *event) {
  constexpr int RoomPerTick = 30; // pixels
  yAxis->ticker()->setTickCount(std::clamp(height() / RoomPerTick - 1, 2, 6));
  QCustomPlot::resizeEvent(event);
}

void ChartView::SendMouse(Event::Kind what, const QMouseEvent &mouse) {
  const QRect area = axisRect()->rect();
  const auto part = [](double pixels, int whole) {
    return std::clamp(pixels / std::max(1, whole), 0.0, 1.0);
  };
  const auto held = what == Event::Kind::MouseMove ? mouse.buttons() : Qt::MouseButtons(mouse.button());
  Send(MouseAt(what, Self, part(mouse.position().x() - area.left(), area.width()),
               part(area.bottom() - mouse.position().y(), area.height()), ButtonCode(held),
               ShiftCode(mouse.modifiers())));
}

void ChartView::mouseMoveEvent(QMouseEvent *e) { SendMouse(Event::Kind::MouseMove, *e); }
void ChartView::mousePressEvent(QMouseEvent *e) { SendMouse(Event::Kind::MouseDown, *e); }
