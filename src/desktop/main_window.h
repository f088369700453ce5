#pragma once
#include "desktop/bindings.h"
#include "desktop/chart_view.h"
#include "desktop/draw_panel.h"
#include "desktop/run_notice.h"

#include <QMainWindow>

class HelpWindow;
class MessageStrip;
class PepWindow;
class PressureWindow;
class QSplitter;
class SidePane;
class TutorStrip;
class TypingCard;
class View3dPane;
class QStackedWidget;

// frmMain: builds the widgets and shows what the screen holds.
class MainWindow final : public QMainWindow {
public:
  explicit MainWindow(Sender);
  void Copy(const Screen &, const Theme &);
  RunNotice &Notice() { return *Running; }
  void Tell(const QString &text, const char *icon); // without stopping the user
  WindowPlace Place();
  void Restore(const WindowPlace &);
  QString OpenPicture();  // the 3D view is about to be shown: the trouble, or empty
  QImage Picture();       // of the 3D view; empty when there is none
  QWidget *WindowOf(Ctl); // the one of ours that holds it and is open, else this
  QWidget *FocusOn(Ctl);  // brings its window to the front; null: it is in none of them
  Bindings Controls;

protected:
  void closeEvent(QCloseEvent *) override;
  void dragEnterEvent(QDragEnterEvent *) override;
  void dropEvent(QDropEvent *) override;
  void keyPressEvent(QKeyEvent *) override;

private:
  QWidget *BuildDrawing(); // what lies over it too
  QWidget *BuildCharts();
  void FollowHelp(const Screen &);
  void FollowView3d(const Screen &, const Theme &);
  Ctl UnderPointer() const; // the tool there, else the drawing

  DrawPanel *Drawing = nullptr;
  QStackedWidget *Places = nullptr; // the drawing, or the 3D view
  View3dPane *Solids = nullptr;     // from its first opening on
  ChartView *Area = nullptr, *Kn = nullptr;
  QWidget *AreaCell = nullptr, *KnCell = nullptr, *ChartRow = nullptr, *Diagnosis = nullptr;
  SidePane *Side = nullptr;
  TutorStrip *Lessons = nullptr;
  RunNotice *Running = nullptr;
  MessageStrip *Message = nullptr;
  TypingCard *Typing = nullptr;
  HelpWindow *Help = nullptr;
  PressureWindow *Performance = nullptr;
  PepWindow *Propellant = nullptr;
  QSplitter *Rows = nullptr, *Columns = nullptr; // drawing over charts; both beside the side pane
  int SideWidth = 0, ChartHeight = 0;            // as last seen
};
