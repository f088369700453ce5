#include "desktop/scene_view.h"

#include "desktop/event_codes.h"
#include "platform/events.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <tuple>

namespace {
auto PaintedOf(const PictureScene &s) {
  return std::tie(s.Number, s.View, s.Projection, s.Colour, s.Texture, s.TextureSize, s.OwnGround, s.Ground,
                  s.Radius, s.PortRadius, s.LowZ, s.HighZ, s.Plane);
}
bool SameHelps(const PictureScene &a, const PictureScene &b) {
  const auto same = [](const ScenePoint &p, const ScenePoint &q) { return p.X == q.X && p.Y == q.Y; };
  return std::equal(a.Frame.begin(), a.Frame.end(), b.Frame.begin(), b.Frame.end(), same) &&
         same(a.Grip, b.Grip) && a.GripHeld == b.GripHeld && a.Key == b.Key;
}
QColor Mixed(const QColor &a, const QColor &b, double part) {
  const auto blend = [part](double x, double y) { return x + (y - x) * part; };
  return QColor::fromRgbF(static_cast<float>(blend(a.redF(), b.redF())),
                          static_cast<float>(blend(a.greenF(), b.greenF())),
                          static_cast<float>(blend(a.blueF(), b.blueF())));
}
} // namespace

SceneView::SceneView(Sender send) : Send(std::move(send)) {
  constexpr int BeatTime = 25; // ms
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(240, 140);
  Refine.setSingleShot(true);
  connect(&Refine, &QTimer::timeout, this, [this] {
    Picture = {};
    update();
  });
  Beat.setInterval(BeatTime);
  connect(&Beat, &QTimer::timeout, this, [this] {
    Event tick = PressOf(Ctl::Picture1);
    tick.What = Event::Kind::Tick;
    tick.Notches = static_cast<double>(Since.restart()) / 1000;
    Send(tick);
  });
}

QString SceneView::Open() {
  if (!Painter) Painter = std::make_unique<ScenePainter>();
  const QString trouble = Painter->Trouble;
  if (!trouble.isEmpty()) Painter.reset();
  return trouble;
}

void SceneView::Release() {
  Beat.stop();
  Refine.stop();
  Painter.reset();
  Picture = {};
  Shown = {};
}

void SceneView::Copy(const PictureScene &scene, const Theme &theme) {
  const bool repaint = Colours != &theme || PaintedOf(scene) != PaintedOf(Shown);
  if (repaint) Picture = {};
  if (repaint || !SameHelps(scene, Shown)) update();
  Shown = scene;
  Colours = &theme;
  setCursor(scene.GripHeld ? Qt::SizeAllCursor : Qt::ArrowCursor);
  if (scene.Moving == Beat.isActive()) return;
  Since.start();
  scene.Moving ? Beat.start() : Beat.stop();
}

ScenePainter::Ground SceneView::GroundOf() const {
  const QColor base = Shown.OwnGround ? FromRed(Shown.Ground) : Colours->Ground;
  const bool dark = base.lightness() < 110;
  QColor ink = dark ? QColor(6, 8, 10) : QColor(20, 24, 28);
  ink.setAlphaF(dark ? 0.62F : 0.5F);
  if (dark) return {Mixed(base, Qt::white, 0.13), Mixed(base, Qt::black, 0.30), ink, 0.4};
  return {Mixed(base, Qt::white, 0.75), Mixed(base, Qt::black, 0.13), ink, 0.26};
}

QImage SceneView::Shot() {
  constexpr double Wide = 1920;
  if (!Painter || width() < 1) return {};
  const double scale = std::max(devicePixelRatioF(), Wide / width());
  return Painter->Paint(Shown, (QSizeF(size()) * scale).toSize(), GroundOf());
}

// Where smooth pictures take their time, those that follow each other quickly are made without.
void SceneView::PaintPicture() {
  constexpr int Quick = 150; // ms
  constexpr double Slow = 30;
  const bool smooth = SmoothTime < Slow || !LastPaint.isValid() || LastPaint.elapsed() > Quick;
  QElapsedTimer time;
  time.start();
  const bool first = Paints == 0; // it compiles the programs
  Picture = Painter->Paint(Shown, size() * devicePixelRatioF(), GroundOf(), smooth);
  Picture.setDevicePixelRatio(devicePixelRatioF());
  ++Paints;
  if (smooth && !first) SmoothTime = static_cast<double>(time.nsecsElapsed()) / 1e6;
  smooth ? Refine.stop() : Refine.start(Quick + 30);
  LastPaint.start();
}

void SceneView::paintEvent(QPaintEvent *) {
  if (Picture.isNull() && Painter) {
    PaintPicture();
  }
  QPainter painter(this);
  if (Picture.isNull()) return painter.fillRect(rect(), Colours->Ground);
  painter.drawImage(0, 0, Picture);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintFrame(painter);
  PaintAxes(painter);
  PaintKey(painter);
}

void SceneView::PaintFrame(QPainter &painter) const {
  if (Shown.Frame.empty()) return;
  QPolygonF frame;
  for (const ScenePoint &p : Shown.Frame) frame << QPointF(p.X, p.Y);
  QColor line = Colours->Accent;
  line.setAlphaF(Shown.GripHeld ? 0.9F : 0.45F);
  painter.setPen(QPen(line, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(frame);
  const QPointF at(Shown.Grip.X, Shown.Grip.Y);
  const double r = Shown.GripHeld ? 10 : 8;
  painter.setPen(QPen(Colours->Accent, 1.75));
  painter.setBrush(Shown.GripHeld ? Colours->Accent : Colours->Field);
  painter.drawEllipse(at, r, r);
  painter.setPen(
      QPen(Shown.GripHeld ? Colours->AccentText : Colours->Accent, 1.5, Qt::SolidLine, Qt::RoundCap));
  for (const double side : {-1.0, 1.0}) // two arrowheads, away from each other
    painter.drawPolyline(
        QPolygonF{at + QPointF(side * 2, -3), at + QPointF(side * 5, 0), at + QPointF(side * 2, 3)});
}

// X, Y of the drawing and Z along the motor, from a corner.
void SceneView::PaintAxes(QPainter &painter) const {
  if (Shown.Solid.empty()) return;
  constexpr double Length = 26;
  const QPointF from(44, height() - 44);
  const QColor colour[] = {QColor("#D9480F"), QColor("#2B8A3E"), QColor("#1C7ED6")};
  painter.setFont(TypeFont(Type::Head));
  int order[] = {0, 1, 2}; // the farther ones first
  const auto away = [this](int i) { return Shown.View[static_cast<std::size_t>(4 * i + 2)]; };
  std::sort(order, order + 3, [&](int a, int b) { return away(a) < away(b); });
  for (const int i : order) {
    const auto column = static_cast<std::size_t>(4 * i);
    const QPointF way(Shown.View[column], -Shown.View[column + 1]);
    const QPointF end = from + way * Length;
    painter.setPen(QPen(colour[i], 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from, end);
    if (std::hypot(way.x(), way.y()) < 0.2) continue; // it points to the eye
    painter.setPen(Colours->Quiet);
    painter.drawText(QRectF(from + way * (Length + 11) - QPointF(8, 8), QSizeF(16, 16)), Qt::AlignCenter,
                     QString(QChar('X' + i)));
  }
}

void SceneView::PaintKey(QPainter &painter) const {
  constexpr double Row = 21, Side = 11;
  painter.setFont(TypeFont(Type::Small));
  double y = 16;
  for (const auto &[name, fill] : Shown.Key) {
    painter.setPen(QPen(Colours->Edge, 1));
    painter.setBrush(FromRed(fill));
    painter.drawRoundedRect(QRectF(18.5, y + 0.5, Side, Side), 3, 3);
    painter.setPen(Colours->Text);
    painter.drawText(QRectF(18 + Side + 9, y - 5, width(), Row), Qt::AlignVCenter | Qt::AlignLeft,
                     QString::fromStdString(name));
    y += Row;
  }
}

void SceneView::resizeEvent(QResizeEvent *) {
  Picture = {};
  Send(MouseAt(Event::Kind::Resize, Ctl::Picture1, width(), height()));
}

void SceneView::SendMouse(Event::Kind what, const QMouseEvent &mouse, int button) {
  Send(MouseAt(what, Ctl::Picture1, mouse.position().x(), mouse.position().y(), button,
               ShiftCode(mouse.modifiers())));
}

void SceneView::mousePressEvent(QMouseEvent *e) {
  setFocus();
  SendMouse(Event::Kind::MouseDown, *e, ButtonCode(e->button()));
}
void SceneView::mouseDoubleClickEvent(QMouseEvent *e) { mousePressEvent(e); }
void SceneView::mouseMoveEvent(QMouseEvent *e) {
  SendMouse(Event::Kind::MouseMove, *e, ButtonCode(e->buttons()));
}
void SceneView::mouseReleaseEvent(QMouseEvent *e) {
  SendMouse(Event::Kind::MouseUp, *e, ButtonCode(e->button()));
}
void SceneView::leaveEvent(QEvent *) { Send(MouseAt(Event::Kind::Leave, Ctl::Picture1, 0, 0)); }

void SceneView::wheelEvent(QWheelEvent *wheel) {
  const double notches = wheel->angleDelta().y() / 120.0;
  if (notches != 0) Send(WheelAt(Ctl::Picture1, wheel->position().x(), wheel->position().y(), notches));
}

void SceneView::keyPressEvent(QKeyEvent *key) {
  constexpr int F1 = 112; // the window's
  const int code = KeyCode(*key);
  if (code == 0 || code == F1 || ShiftCode(key->modifiers()) > 1) return key->ignore();
  Send(KeyIn(Ctl::Picture1, code, ShiftCode(key->modifiers())));
}
