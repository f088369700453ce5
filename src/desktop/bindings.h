#pragma once
#include "desktop/draw_panel.h"
#include "platform/screen.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <vector>

class QAbstractButton;
class QListWidget;
class QSlider;

constexpr QSize SampleSize(24, 18); // of a colour on its button, with room before the words

// Which widget or menu entry shows which control, and what it last showed.
struct Binding {
  Ctl Control = Ctl::Count;
  QObject *Shown = nullptr;
  struct Control Last;
  bool Stale = true;
};

// Every bound object bears its control's name and sends its events through Send.
struct Bindings {
  std::vector<Binding> List;
  Sender Send;
  QWidget *Asked = nullptr; // the tool last clicked with the right button
};
QWidget *Find(const Bindings &, Ctl); // null: none, or a menu entry

template <class Widget>
Widget *Bind(Bindings &bindings, Ctl control, Widget *widget) {
  widget->setObjectName(
      QString::fromUtf8(RowOf(control).Name.data(), static_cast<int>(RowOf(control).Name.size())));
  bindings.List.push_back({control, widget, {}, true});
  return widget;
}
QAction *BindAction(Bindings &, Ctl, QAction *, char mnemonic);  // sends Press
QAbstractButton *BindButton(Bindings &, Ctl, QAbstractButton *); // sends Press
QAbstractButton *BindTool(Bindings &, Ctl, QAbstractButton *);   // and a press with the right button
QListWidget *BindList(Bindings &, Ctl, QListWidget *);           // sends Press with the item
QSlider *BindSlider(Bindings &, Ctl, QSlider *);                 // sends Text
QWidget *BindChoices(Bindings &, Ctl);                           // a list as a row of buttons
QWidget *BindPopUp(Bindings &, Ctl, Ctl title, QWidget *parent); // a list that opens at the tool asked about
QLineEdit *BindField(Bindings &, Ctl, QLineEdit *);              // sends Text, Enter and Escape

void Mirror(Bindings &, const Screen &); // copies what differs
void Touch(Bindings &, Ctl);             // the widget changed by itself: copy it at the next Mirror
