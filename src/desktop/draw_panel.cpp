#include "desktop/draw_panel.h"

#include "desktop/event_codes.h"
#include "platform/events.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <tuple>

namespace {
auto FrameOf(const DrawSurface &s) {
  return std::tie(s.Left, s.Top, s.Width, s.Height, s.GrainRadius, s.Ground, s.ContourFrom, s.ContourTo,
                  s.Core);
}
constexpr int SnapNameTime = 450;            // ms
constexpr double SnapNameRest = 300.0 / 450; // of it, before anything is seen

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
  setMinimumSize(240, 140);
  setCursor(Qt::CrossCursor);
  NameSeen.setKeyValues({{0, 0.0}, {SnapNameRest, 0.0}, {1, 1.0}});
  NameSeen.setDuration(SnapNameTime);
  connect(&NameSeen, &QVariantAnimation::valueChanged, this, [this](const QVariant &seen) {
    if (seen.toDouble() > 0)
      update(PixelBounds(Shown.Overlay, FitView(Shown, size()), size()).toAlignedRect());
  });
}

void DrawPanel::Copy(const DrawSurface &surface, const Theme &theme) {
  const bool whole = CopyStill(surface, theme);
  CopyFlash(surface);
  CopyOverlay(surface);
  if (whole) update();
}

bool DrawPanel::CopyStill(const DrawSurface &surface, const Theme &theme) {
  auto &shown = Shown.Item;
  const auto &wanted = surface.Item;
  const auto parting = std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end());
  const auto same = static_cast<std::size_t>(parting.first - shown.begin());
  const bool sameGround = Colours == &theme && SameFrame(Shown, surface);
  if (sameGround && same == shown.size() && same == wanted.size()) return false;
  if (!sameGround || same < StillCount) Still = {};
  Colours = &theme;
  shown.erase(parting.first, shown.end());
  shown.insert(shown.end(), parting.second, wanted.end());
  CopyFrame(surface, Shown);
  // What has just changed will likely change again: the picture kept holds the rest.
  if (Still.isNull()) StillCount = sameGround ? same : shown.size();
  return true;
}

void DrawPanel::CopyOverlay(const DrawSurface &surface) {
  if (surface.Overlay == Shown.Overlay) return;
  const SurfaceView view = FitView(Shown, size());
  QRegion touched;
  const auto touch = [&](const std::vector<DrawItem> &items) {
    touched += (PixelBounds(items, view, size()) & QRectF(rect())).toAlignedRect();
  };
  touch(Shown.Overlay);
  Shown.Overlay = surface.Overlay;
  touch(Shown.Overlay);
  RestSnapName();
  // While only the overlay moves, the rest has come to stay.
  if (!Still.isNull() && StillCount < Shown.Item.size()) {
    PaintStill(StillCount, Shown.Item.size());
    StillCount = Shown.Item.size();
  }
  update(touched);
}

// A name that was not there before rests anew.
void DrawPanel::RestSnapName() {
  const auto found = std::find_if(Shown.Overlay.begin(), Shown.Overlay.end(), IsSnapName);
  const DrawItem name = found == Shown.Overlay.end() ? DrawItem{} : *found;
  if (name == SnapName) return;
  SnapName = name;
  NameSeen.stop();
  if (!name.Text.empty()) NameSeen.start();
}

void DrawPanel::CopyFlash(const DrawSurface &surface) {
  if (surface.FlashNo == Shown.FlashNo) return;
  constexpr int FlashTime = 100; // ms
  Shown.FlashNo = surface.FlashNo;
  Shown.Flash = surface.Flash;
  update();
  QTimer::singleShot(FlashTime, this, [this, no = Shown.FlashNo] {
    if (no != Shown.FlashNo) return;
    Shown.Flash.clear();
    update();
  });
}

void DrawPanel::PaintStill(std::size_t from, std::size_t end) {
  ++StillPaints;
  QPainter painter(&Still);
  const SurfaceView view = FitView(Shown, size());
  if (from == 0) PaintGround(painter, Shown, view, size(), *Colours);
  PaintItems(painter, std::span(Shown.Item).subspan(from, end - from), Shown, view, size(), *Colours);
}

void DrawPanel::paintEvent(QPaintEvent *) {
  const SurfaceView view = FitView(Shown, size());
  if (Still.isNull()) {
    Still = QPixmap(size() * devicePixelRatioF());
    Still.setDevicePixelRatio(devicePixelRatioF());
    PaintStill(0, StillCount);
  }
  QPainter painter(this);
  painter.drawPixmap(0, 0, Still);
  PaintItems(painter, std::span(Shown.Item).subspan(StillCount), Shown, view, size(), *Colours);
  PaintContourScale(painter, Shown, size(), *Colours);
  PaintItems(painter, Shown.Overlay, Shown, view, size(), *Colours, NameSeen.currentValue().toDouble());
  PaintItems(painter, Shown.Flash, Shown, view, size(), *Colours);
}

void DrawPanel::resizeEvent(QResizeEvent *) {
  Still = {};
  Send(MouseAt(Event::Kind::Resize, Ctl::DrawPanel, width(), height()));
}

Event DrawPanel::At(Event::Kind what, QPointF pixel, Qt::KeyboardModifiers modifiers) const {
  const QPointF p = FitView(Shown, size()).ToUnits(pixel);
  return MouseAt(what, Ctl::DrawPanel, p.x(), p.y(), 0, ShiftCode(modifiers));
}

void DrawPanel::SendMouse(Event::Kind what, const QMouseEvent &mouse, int button) {
  Event e = At(what, mouse.position(), mouse.modifiers());
  e.Button = button;
  Send(e);
}

void DrawPanel::mousePressEvent(QMouseEvent *e) {
  setFocus();
  Pointer = e->position().toPoint();
  SendMouse(Event::Kind::MouseDown, *e, ButtonCode(e->button()));
}
void DrawPanel::mouseDoubleClickEvent(QMouseEvent *e) { mousePressEvent(e); }
void DrawPanel::mouseMoveEvent(QMouseEvent *e) {
  Pointer = e->position().toPoint();
  SendMouse(Event::Kind::MouseMove, *e, ButtonCode(e->buttons()));
}
void DrawPanel::mouseReleaseEvent(QMouseEvent *e) {
  SendMouse(Event::Kind::MouseUp, *e, ButtonCode(e->button()));
  SendMouse(Event::Kind::MouseMove, *e, ButtonCode(e->buttons())); // what a click would do now
}

void DrawPanel::wheelEvent(QWheelEvent *wheel) {
  Event e = At(Event::Kind::Wheel, wheel->position(), wheel->modifiers());
  e.Notches = wheel->angleDelta().y() / 120.0;
  if (e.Notches == 0) return;
  Send(e);
  Send(At(Event::Kind::MouseMove, wheel->position(), wheel->modifiers())); // where it is in the new view
}

void DrawPanel::keyPressEvent(QKeyEvent *key) {
  constexpr int F1 = 112; // which the window answers, as it may be about a tool
  if (KeyCode(*key) == F1) return key->ignore();
  Event e = KeyIn(Ctl::DrawPanel, KeyCode(*key), ShiftCode(key->modifiers()));
  e.Text = key->text().toStdString();
  if (e.KeyCode != 0) Send(e);
}

// A key of the drawing comes before the menu's entry of that key.
bool DrawPanel::event(QEvent *event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (Claims && Claims(KeyCode(key), ShiftCode(key.modifiers()))) event->accept();
  }
  return QWidget::event(event);
}
