#include "desktop/draw_panel.h"

#include "desktop/event_codes.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <tuple>

namespace {
auto FrameOf(const DrawSurface &s) {
  return std::tie(s.Left, s.Top, s.Width, s.Height, s.GrainRadius, s.Ground, s.ContourFrom, s.ContourTo,
                  s.Core);
}
bool SameFrame(const DrawSurface &a, const DrawSurface &b) { return FrameOf(a) == FrameOf(b); }

void CopyFrame(const DrawSurface &from, DrawSurface &to) {
  std::tie(to.Left, to.Top, to.Width, to.Height, to.GrainRadius, to.Ground, to.ContourFrom, to.ContourTo,
           to.Core) = FrameOf(from);
}
} // namespace

DrawPanel::DrawPanel(Sender send) : Send(std::move(send)) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(320, 140);
  setCursor(Qt::CrossCursor);
}

void DrawPanel::Copy(const DrawSurface &surface, const Theme &theme) {
  auto &shown = Shown.Item;
  const auto &wanted = surface.Item;
  const auto parting = std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end());
  const auto same = static_cast<std::size_t>(parting.first - shown.begin());
  const bool sameGround = Colours == &theme && SameFrame(Shown, surface);
  if (sameGround && same == shown.size() && same == wanted.size()) return;
  if (!sameGround || same < StillCount) Still = {};
  Colours = &theme;
  shown.erase(parting.first, shown.end());
  shown.insert(shown.end(), parting.second, wanted.end());
  CopyFrame(surface, Shown);
  // What has just changed will likely change again: the picture kept holds the rest.
  if (Still.isNull()) StillCount = sameGround ? same : shown.size();
  update();
}

void DrawPanel::paintEvent(QPaintEvent *) {
  const QSizeF pixels = size();
  const SurfaceView view = FitView(Shown, pixels);
  if (Still.isNull()) {
    Still = QPixmap(size() * devicePixelRatioF());
    Still.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&Still);
    painter.setFont(TypeFont(Type::Small));
    PaintGround(painter, Shown, view, pixels, *Colours);
    PaintItems(painter, Shown, 0, StillCount, view, *Colours);
  }
  QPainter painter(this);
  painter.setFont(TypeFont(Type::Small));
  painter.drawPixmap(0, 0, Still);
  PaintItems(painter, Shown, StillCount, Shown.Item.size(), view, *Colours);
  PaintContourScale(painter, Shown, pixels, *Colours);
}

void DrawPanel::resizeEvent(QResizeEvent *) {
  Still = {};
  Event e;
  e.What = Event::Kind::Resize;
  e.Target = Ctl::DrawPanel;
  e.X = width();
  e.Y = height();
  Send(e);
}

Event DrawPanel::At(Event::Kind what, QPointF pixel, Qt::KeyboardModifiers modifiers) const {
  const QPointF p = FitView(Shown, size()).ToUnits(pixel);
  Event e;
  e.What = what;
  e.Target = Ctl::DrawPanel;
  e.X = p.x();
  e.Y = p.y();
  e.Shift = ShiftCode(modifiers);
  return e;
}

void DrawPanel::SendMouse(Event::Kind what, const QMouseEvent &mouse, int button) {
  Event e = At(what, mouse.position(), mouse.modifiers());
  e.Button = button;
  Send(e);
}

void DrawPanel::mousePressEvent(QMouseEvent *e) {
  setFocus();
  SendMouse(Event::Kind::MouseDown, *e, ButtonCode(e->button()));
}
void DrawPanel::mouseDoubleClickEvent(QMouseEvent *e) { mousePressEvent(e); }
void DrawPanel::mouseMoveEvent(QMouseEvent *e) {
  SendMouse(Event::Kind::MouseMove, *e, ButtonCode(e->buttons()));
}
void DrawPanel::mouseReleaseEvent(QMouseEvent *e) {
  SendMouse(Event::Kind::MouseUp, *e, ButtonCode(e->button()));
}

void DrawPanel::wheelEvent(QWheelEvent *wheel) {
  Event e = At(Event::Kind::Wheel, wheel->position(), wheel->modifiers());
  e.Notches = wheel->angleDelta().y() / 120.0;
  if (e.Notches != 0) Send(e);
}

void DrawPanel::keyPressEvent(QKeyEvent *key) {
  Event e;
  e.What = Event::Kind::Key;
  e.Target = Ctl::DrawPanel;
  e.KeyCode = KeyCode(*key);
  e.Shift = ShiftCode(key->modifiers());
  if (e.KeyCode != 0) Send(e);
}
