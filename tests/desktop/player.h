#pragma once
#include <QObject>
#include <QString>
#include <string>
#include <vector>

class QApplication;
class QWidget;
struct Workbench;

// Plays script lines on the running windows as mouse and key events of the window system; a line waits until
// what it names is there. Widgets are found by object name, in the foremost modal window first.
//   press NAME             a click on a button, or through the menu bar on an entry
//   ask NAME               the same with the right button
//   text NAME VALUE        clicks a field and types over what it holds
//   key SEQUENCE           to the window in front: Return, Escape, Ctrl+S ...
//   move|down|up NAME X Y [BUTTON]   X, Y: shares of the widget's width and height from its top left
//   wheel NAME X Y NOTCHES
//   file PATH              types PATH into the file dialog and accepts it
//   box BUTTON TEXT        a message box or strip with exactly this text is open; presses its button
//   expect box TEXT        one with this text in it; answered OK unless the next line answers it
//   drop PATH              drops the file on the main window
//   close NAME
//   place NAME X Y W H     moves the window
//   whole NAME             no text in it is cut, and it fits the screen
//   shows NAME TEXT        the widget's text, or the window's title
//   checked|unchecked|visible|hidden|enabled|disabled NAME
//   cmd N, click X Y, back X Y, drag X1 Y1 X2 Y2, answer TEXT, type FIELD TEXT, expect count N
//                          as in drafting scripts, in mm
//   hover X Y              moves the pointer there, in mm
//   focus NAME             it has the keys
//   letters N              letters typed into every field of the running tool N stay there
//   painted, unpainted, repainted   counts what is painted below the drawing's overlay, and compares
//   keep NAME, changed NAME, same NAME   the widget's picture, and a comparison with the one kept
struct Player {
  QApplication &App;
  const Workbench &Bench;
  std::vector<QString> Line;
  std::size_t Next = 0;
  std::string Fault;
  bool Typing = false;
  QObject Life{nullptr}; // the beats still due end with it
};
void Play(
    Player &); // from the event loop, to the end of the lines or the first fault; then every window is closed
QWidget *FindShown(const QString &name);
