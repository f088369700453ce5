#include "desktop/player.h"

#include "desktop/draw_panel.h"
#include "drafting/hot_keys.h"
#include "shell/workbench.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <map>
#include <memory>
#include <optional>

namespace {
constexpr int Beat = 15, Patience = 20000; // ms

QWidget *Front() {
  if (QWidget *modal = QApplication::activeModalWidget()) return modal;
  for (QWidget *window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow *>(window)) return window;
  for (QWidget *window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->isWindow()) return window;
  return nullptr;
}

template <class Kind>
Kind *FindIn(const QString &name) {
  QWidget *front = Front();
  if (!front) return nullptr;
  if (front->objectName() == name) return qobject_cast<Kind *>(front);
  return front->findChild<Kind *>(name);
}

QAction *FindEntry(const QString &name) {
  auto *window = qobject_cast<QMainWindow *>(Front());
  return window ? window->findChild<QAction *>(name) : nullptr;
}

struct Place {
  QWindow *Window;
  QPoint At;
};
Place PlaceOf(QWidget &widget, QPointF share) {
  const QPoint at(static_cast<int>(widget.width() * share.x()),
                  static_cast<int>(widget.height() * share.y()));
  return {widget.window()->windowHandle(), widget.mapTo(widget.window(), at)};
}

void Click(QWidget &widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseClick(widget.window()->windowHandle(), button, {}, widget.mapTo(widget.window(), at));
}

void TypeKeys(QWindow *window, const QString &text) {
  for (const QChar c : text) QTest::keyClick(window, c.toLatin1());
}

// Opens the menu that holds the entry and clicks the entry.
bool ClickEntry(QAction &entry) {
  auto *bar = qobject_cast<QMainWindow *>(Front())->menuBar();
  for (QAction *title : bar->actions()) {
    if (!title->menu()->actions().contains(&entry)) continue;
    Click(*bar, bar->actionGeometry(title).center());
    QMenu &menu = *title->menu();
    if (!QTest::qWaitForWindowExposed(&menu)) return false;
    QTest::mouseMove(menu.windowHandle(), menu.actionGeometry(&entry).center());
    Click(menu, menu.actionGeometry(&entry).center());
    return true;
  }
  return false;
}

QString TextOf(const QWidget &widget) {
  if (widget.isWindow()) return widget.windowTitle();
  if (auto *button = qobject_cast<const QAbstractButton *>(&widget)) return button->text();
  if (auto *label = qobject_cast<const QLabel *>(&widget)) return label->text();
  if (auto *field = qobject_cast<const QLineEdit *>(&widget)) return field->text();
  return {};
}

// One line: Done, or Later when what it names is not there yet; a fault says what was seen instead.
enum class Step { Done, Later, Wrong };
struct Outcome {
  Step What = Step::Done;
  QString Seen;
};

Outcome Compare(const QString &wanted, const QString &seen) {
  if (wanted == seen) return {};
  return {Step::Later, "shows \"" + seen + "\""};
}

Outcome Flag(bool holds) { return {holds ? Step::Done : Step::Later, "it is not so"}; }

// A message that stops nobody stands in a strip; its only answer is OK, a click on it.
QLabel *StripText() {
  auto *words = FindIn<QLabel>("MessageStrip_Text");
  return words && words->isVisible() ? words : nullptr;
}

Outcome ExpectBox(const Player &player, const QString &text) {
  auto *box = qobject_cast<QMessageBox *>(Front());
  QLabel *const strip = StripText();
  if (!box && !strip) return {Step::Later, "no box"};
  const QString seen = box ? box->text() : strip->text();
  if (!seen.contains(text)) return {Step::Wrong, "the box says \"" + seen + "\""};
  const bool answered = player.Next < player.Line.size() && player.Line[player.Next].startsWith("box ");
  if (!answered && strip) Click(*strip, strip->rect().center());
  if (!answered && box) Click(*box->button(QMessageBox::Ok), QPoint(4, 4));
  return {};
}

Outcome AnswerBox(const QString &button, const QString &text) {
  auto *box = qobject_cast<QMessageBox *>(Front());
  if (QLabel *strip = box ? nullptr : StripText(); strip && button == "OK") {
    if (!text.isEmpty() && strip->text() != text)
      return {Step::Wrong, "the strip says \"" + strip->text() + "\""};
    Click(*strip, strip->rect().center());
    return {};
  }
  if (!box) return {Step::Later, "no box"};
  if (!text.isEmpty() && box->text() != text) return {Step::Wrong, "the box says \"" + box->text() + "\""};
  auto *pressed = box->findChild<QAbstractButton *>(button);
  if (!pressed) return {Step::Wrong, "the box has no such button"};
  Click(*pressed, pressed->rect().center());
  return {};
}

Outcome NameFile(const QString &path) {
  auto *dialog = qobject_cast<QFileDialog *>(Front());
  auto *field = dialog ? dialog->findChild<QLineEdit *>() : nullptr;
  if (!field) return {Step::Later, "no file dialog"};
  Click(*field, field->rect().center());
  QTest::keyClick(dialog->windowHandle(), Qt::Key_A, Qt::ControlModifier);
  field->setText(path);
  QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
  return {};
}

void DropFile(QWidget &window, const QString &path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  const QPoint middle = window.rect().center();
  QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&window, &enter);
  if (!enter.isAccepted()) return;
  QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&window, &drop);
}

Outcome Mouse(const QString &verb, QWidget &widget, const QStringList &word) {
  if (word.size() < 4) return {Step::Wrong, "no place"};
  const Place place = PlaceOf(widget, {word[2].toDouble(), word[3].toDouble()});
  if (verb == "wheel") {
    QWheelEvent wheel(place.At, place.Window->mapToGlobal(place.At), {},
                      QPoint(0, static_cast<int>(word.value(4).toDouble() * 120)), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(place.Window, &wheel);
    return {};
  }
  const Qt::MouseButton button = word.value(4) == "middle"  ? Qt::MiddleButton
                                 : word.value(4) == "right" ? Qt::RightButton
                                                            : Qt::LeftButton;
  if (verb == "move") QTest::mouseMove(place.Window, place.At);
  if (verb == "down") QTest::mousePress(place.Window, button, {}, place.At);
  if (verb == "up") QTest::mouseRelease(place.Window, button, {}, place.At);
  return {};
}

Outcome Picture(const QString &verb, QWidget &widget) {
  static std::map<QString, QImage> kept;
  const QImage now = widget.grab().toImage();
  QImage &before = kept[widget.objectName()];
  if (verb == "keep") {
    before = now;
    return {};
  }
  return Flag((before == now) == (verb == "same"));
}

// No text below the widget is cut: every visible label, button and field has the room it asks for, inside the
// window.
Outcome Uncut(QWidget &whole) {
  const QRect window(QPoint(0, 0), whole.window()->size());
  const QRect screen = whole.screen()->availableGeometry();
  if (!screen.contains(QRect(whole.window()->pos(), window.size())))
    return {Step::Wrong, "larger than the screen"};
  for (QWidget *part : whole.findChildren<QWidget *>()) {
    const auto *label = qobject_cast<QLabel *>(part);
    if (!part->isVisible() || (!label && !qobject_cast<QAbstractButton *>(part))) continue;
    if (part->objectName().startsWith("qt_")) continue;
    const QSize need = label && label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                                  : part->minimumSizeHint().boundedTo(part->sizeHint());
    if (part->width() < need.width() || part->height() < need.height())
      return {Step::Later, QString("%1 \"%2\" has %3 x %4 and needs %5 x %6")
                               .arg(part->objectName(), TextOf(*part))
                               .arg(part->width())
                               .arg(part->height())
                               .arg(need.width())
                               .arg(need.height())};
  }
  return {};
}

// As the wheel over a pane would.
void ScrollTo(QWidget &widget) {
  for (QWidget *around = widget.parentWidget(); around; around = around->parentWidget()) {
    auto *area = qobject_cast<QScrollArea *>(around);
    if (!area || !area->widget()->isAncestorOf(&widget)) continue;
    const QPoint middle = widget.mapTo(area->widget(), widget.rect().center()); // not its caret alone
    area->ensureVisible(middle.x(), middle.y(), widget.width() / 2 + 8, widget.height() / 2 + 8);
  }
}

Outcome Press(const QString &name, Qt::MouseButton mouse = Qt::LeftButton) {
  if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
    auto *entry = menu->findChild<QAction *>(name);
    if (!entry) return {Step::Later, "not in the menu"};
    Click(*menu, menu->actionGeometry(entry).center());
    return {};
  }
  if (auto *button = FindIn<QAbstractButton>(name); button && button->isVisible()) {
    if (!button->isEnabled()) return {Step::Wrong, "disabled"};
    ScrollTo(*button);
    Click(*button, button->rect().center(), mouse);
    return {};
  }
  QAction *entry = FindEntry(name);
  if (!entry) return {Step::Later, "not there"};
  if (!entry->isEnabled()) return {Step::Wrong, "disabled"};
  return Flag(ClickEntry(*entry));
}

// At a place of the drawing, to the last bit: the window system's whole pixels would make other numbers.
void MouseInDrawing(const Player &player, QEvent::Type what, Qt::MouseButton button, Qt::MouseButtons held,
                    double x, double y) {
  QWidget &panel = *FindIn<QWidget>("DrawPanel");
  const QPointF at = FitView(player.Bench.Out.Panel, panel.size()).ToPixels(x, y);
  QMouseEvent event(what, at, panel.mapToGlobal(at), button, held, {});
  QApplication::sendEvent(&panel, &event);
}

bool Covered(const Player &player, double x, double y) {
  QWidget &panel = *FindIn<QWidget>("DrawPanel");
  const QPointF at = FitView(player.Bench.Out.Panel, panel.size()).ToPixels(x, y);
  return panel.window()->childAt(panel.mapTo(panel.window(), at.toPoint())) != &panel;
}

void ClickInDrawing(const Player &player, Qt::MouseButton button, const QList<double> &at) {
  const auto mouse = [&](QEvent::Type what, Qt::MouseButton b, Qt::MouseButtons held, qsizetype i) {
    MouseInDrawing(player, what, b, held, at[i], at[i + 1]);
  };
  mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, 0);
  mouse(QEvent::MouseButtonPress, button, button, 0);
  if (at.size() > 2) mouse(QEvent::MouseMove, Qt::NoButton, button, 2);
  mouse(QEvent::MouseButtonRelease, button, Qt::NoButton, at.size() - 2);
}

Outcome TypeText(Player &player, const QString &name, const QString &value) {
  auto *field = FindIn<QLineEdit>(name);
  if (!field || !field->isVisible()) return {Step::Later, "not there"};
  ScrollTo(*field);
  const QPoint middle = field->mapTo(field->window(), field->rect().center());
  if (field->window()->childAt(middle) != field) return {Step::Later, "not in its place yet"};
  Click(*field, field->rect().center());
  if (!field->hasFocus()) return {Step::Later, "has not the keys"};
  QWindow *window = field->window()->windowHandle();
  player.Typing = true; // the events let through between two letters play no other line
  QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
  TypeKeys(window, value);
  player.Typing = false;
  return {};
}

Outcome State(const QString &verb, const QString &name) {
  auto *widget = FindIn<QWidget>(name);
  QAction *entry = widget ? nullptr : FindEntry(name);
  if (!widget && !entry) return {verb == "hidden" ? Step::Done : Step::Later, "not there"};
  auto *button = qobject_cast<QAbstractButton *>(widget);
  const bool checked = button ? button->isChecked() : entry && entry->isChecked();
  if (verb == "checked" || verb == "unchecked") return Flag(checked == (verb == "checked"));
  const bool enabled = widget ? widget->isEnabled() : entry->isEnabled();
  if (verb == "enabled" || verb == "disabled") return Flag(enabled == (verb == "enabled"));
  return Flag((widget ? widget->isVisible() : entry->isVisible()) == (verb == "visible"));
}

// Letters and digits into each field the tool shows; then they stand there and the tool still runs.
Outcome Letters(Player &player, int tool) {
  const QString letters = "az09";
  for (const char *name :
       {"Answer", "X_Input", "Y_Input", "BoxWidth", "BoxHeight", "PolySides", "PolyRadius", "PolyRotate"}) {
    const auto *field = FindIn<QLineEdit>(name);
    if (!field || !field->isVisible()) continue;
    if (const Outcome typed = TypeText(player, name, letters); typed.What != Step::Done) return typed;
    if (player.Bench.Draft.Cmd.CmdNo != tool) return {Step::Wrong, QString(name) + " lets keys through"};
    if (field->text() != letters) return {Step::Later, QString(name) + " holds " + field->text()};
    if (name != QString("Answer")) continue;
    TypeText(player, name, "2");
    QTest::keyClick(Front()->windowHandle(), Qt::Key_Return);
    return {Step::Later, "a question"};
  }
  return {};
}

// How often what lies below the overlay has been painted, against the count kept by `painted`.
Outcome Painted(const QString &verb) {
  static int kept = 0;
  const int now = dynamic_cast<DrawPanel &>(*FindIn<QWidget>("DrawPanel")).TimesPainted();
  if (verb == "painted") kept = now;
  return Flag(verb == "painted" || (now == kept) == (verb == "unpainted"));
}

// The lines of drafting scripts.
std::optional<Outcome> Draft(Player &player, const QStringList &word) {
  const QString &verb = word[0], name = word.value(1);
  if (verb == "cmd") {
    const std::string_view tool = RowOf(HotKeyControl(name.toInt())).Name;
    return Press(QString::fromUtf8(tool.data(), static_cast<qsizetype>(tool.size())));
  }
  if (verb == "click" || verb == "back" || verb == "drag") {
    if (QApplication::activeModalWidget()) return Outcome{Step::Later, "a dialog is open"};
    QList<double> at;
    for (const QString &number : word.mid(1)) at += number.toDouble();
    if (at.size() < 2 || at.size() % 2) return Outcome{Step::Wrong, "no place"};
    if (Covered(player, at[0], at[1])) return Outcome{Step::Later, "something else lies there"};
    ClickInDrawing(player, verb == "back" ? Qt::RightButton : Qt::LeftButton, at);
    return Outcome{};
  }
  if (verb == "answer") {
    const Outcome typed = TypeText(player, "Answer", name);
    if (typed.What == Step::Done) QTest::keyClick(Front()->windowHandle(), Qt::Key_Return);
    return typed;
  }
  if (verb == "letters") return Letters(player, name.toInt());
  if (verb == "hover") {
    if (QApplication::activeModalWidget()) return Outcome{Step::Later, "a dialog is open"};
    MouseInDrawing(player, QEvent::MouseMove, Qt::NoButton, Qt::NoButton, name.toDouble(),
                   word.value(2).toDouble());
    return Outcome{};
  }
  if (verb == "expect" && name == "box") return ExpectBox(player, word.mid(2).join(' '));
  if (verb == "type") return TypeText(player, name, word.value(2));
  if (verb != "expect" || name != "count") return std::nullopt;
  const int count = player.Bench.Grain.Table.EntCount + 1;
  return Compare(word.value(2), QString::number(count));
}

Outcome Perform(Player &player, const QString &line) {
  const QStringList word = line.split(' ');
  if (const auto drafted = Draft(player, word)) return *drafted;
  const QString verb = word[0], name = word.value(1), rest = line.section(' ', 2);
  if (verb == "press") return Press(line.section(' ', 1));
  if (verb.endsWith("painted")) return Painted(verb);
  if (verb == "focus") {
    const auto *named = FindIn<QWidget>(name);
    const QWidget *held = (named ? named->window() : Front())->focusWidget();
    return Compare(name, held ? held->objectName() : QString("nothing"));
  }
  if (verb == "ask") return Press(name, Qt::RightButton);
  if (verb == "text") return TypeText(player, name, rest);
  if (verb == "file") return NameFile(line.section(' ', 1));
  if (verb == "box") return AnswerBox(name, rest);
  if (QStringList{"checked", "unchecked", "visible", "hidden", "enabled", "disabled"}.contains(verb))
    return State(verb, name);
  if (verb == "key") {
    QWidget *front = QApplication::activeModalWidget() ? Front() : QApplication::activeWindow();
    if (const QWidget *focus = QApplication::focusWidget(); !front && focus) front = focus->window();
    for (QWidget *window : QApplication::topLevelWidgets()) // without a window manager none may be active
      if (!front && window->isVisible() && window->parentWidget() && window->windowType() == Qt::Window)
        front = window;
    if (!front) front = Front();
    if (!front) return {Step::Later, "no window"};
    QTest::keySequence(front->windowHandle(), QKeySequence(line.section(' ', 1)));
    return {};
  }
  if (verb == "drop") {
    auto *window = qobject_cast<QMainWindow *>(Front());
    if (!window) return {Step::Later, "no window"};
    DropFile(*window, line.section(' ', 1));
    return {};
  }
  auto *widget = FindIn<QWidget>(name);
  if (!widget || !widget->isVisible()) return {Step::Later, "not there"};
  if (verb == "place") {
    widget->setGeometry(word.value(2).toInt(), word.value(3).toInt(), word.value(4).toInt(),
                        word.value(5).toInt());
    return {};
  }
  if (verb == "whole") return Uncut(*widget);
  if (verb == "close") {
    widget->close();
    return {};
  }
  if (verb == "shows") return Compare(rest, TextOf(*widget));
  if (QStringList{"keep", "changed", "same"}.contains(verb)) return Picture(verb, *widget);
  if (QStringList{"move", "down", "up", "wheel"}.contains(verb)) return Mouse(verb, *widget, word);
  return {Step::Wrong, "no such verb"};
}

void CloseAll(Player &player) {
  QWidget *front = Front();
  if (!front || !QApplication::activeModalWidget()) return player.App.exit(); // windows are not asked
  if (auto *box = qobject_cast<QMessageBox *>(front))
    box->done(QMessageBox::Cancel);
  else
    front->close();
  QTimer::singleShot(Beat, &player.Life, [&player] { CloseAll(player); });
}

void Tick(Player &, std::shared_ptr<QElapsedTimer> waited, std::size_t line);

// Plays the line at the next beat, unless the one before it has put itself off by then.
void Follow(Player &player, std::shared_ptr<QElapsedTimer> fresh, std::size_t line,
            std::shared_ptr<bool> putOff) {
  QTimer::singleShot(Beat, &player.Life, [&player, fresh, line, putOff] {
    if (player.Typing)
      Follow(player, fresh, line, putOff);
    else if (!*putOff)
      Tick(player, fresh, line);
  });
}

// The next beat is set before the line is played: a line may open a modal loop, whose answers are the next
// lines.
void Tick(Player &player, std::shared_ptr<QElapsedTimer> waited, std::size_t line) {
  if (line < player.Next || !player.Fault.empty()) return;
  if (player.Typing) {
    QTimer::singleShot(Beat, &player.Life, [&player, waited, line] { Tick(player, waited, line); });
    return;
  }
  if (line >= player.Line.size()) return CloseAll(player);
  player.Next = line + 1;
  auto fresh = std::make_shared<QElapsedTimer>();
  fresh->start();
  auto later = std::make_shared<bool>(false);
  Follow(player, fresh, line + 1, later);
  const Outcome outcome = Perform(player, player.Line[line]);
  if (outcome.What == Step::Done) return;
  *later = true;
  player.Next = line;
  if (outcome.What == Step::Later && waited->elapsed() < Patience) {
    QTimer::singleShot(Beat, &player.Life, [&player, waited, line] { Tick(player, waited, line); });
    return;
  }
  player.Fault = (player.Line[line] + ": " + outcome.Seen).toStdString();
  CloseAll(player);
}
} // namespace

QWidget *FindShown(const QString &name) { return FindIn<QWidget>(name); }

void Play(Player &player) {
  auto waited = std::make_shared<QElapsedTimer>();
  waited->start();
  QTimer::singleShot(Beat, &player.Life, [&player, waited] { Tick(player, waited, 0); });
}
