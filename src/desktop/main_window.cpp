#include "desktop/main_window.h"

#include "desktop/event_codes.h"
#include "desktop/help_window.h"
#include "desktop/icons.h"
#include "desktop/menus.h"
#include "desktop/message_strip.h"
#include "desktop/panes.h"
#include "desktop/pep_window.h"
#include "desktop/point_strip.h"
#include "desktop/pressure_window.h"
#include "desktop/property_pane.h"
#include "desktop/scene_view.h"
#include "desktop/side_pane.h"
#include "desktop/template_strip.h"
#include "desktop/tools_pane.h"
#include "desktop/tutor_strip.h"
#include "desktop/typing_card.h"
#include "desktop/view3d_pane.h"
#include "platform/events.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QUrl>

MainWindow::MainWindow(Sender send) {
  Controls.Send = send;
  Bind(Controls, Ctl::frmMain, this);
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::PreventContextMenu);
  BuildMenus(*this, Controls);
  BuildToolBar(*this, Controls);

  Rows = new QSplitter(Qt::Vertical);
  Columns = new QSplitter(Qt::Horizontal);
  for (QSplitter *splitter : {Rows, Columns}) {
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
  }
  Places = new QStackedWidget;
  Places->addWidget(BuildDrawing());
  Rows->addWidget(Places);
  Rows->addWidget(BuildCharts());
  Rows->setStretchFactor(0, 5);
  Rows->setStretchFactor(1, 3);
  Rows->setSizes({500, 300});
  Side = new SidePane(Controls);
  Columns->addWidget(Rows);
  Columns->addWidget(Side);
  Columns->setStretchFactor(0, 1);
  Columns->setStretchFactor(1, 0);

  auto *row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(BuildToolsPane(Controls));
  row->addWidget(BuildReportPane(Controls));
  row->addWidget(Columns, 1);
  auto *whole = new QWidget;
  auto *column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(BuildRecoveryBar(Controls));
  Lessons = new TutorStrip(Controls);
  column->addWidget(Lessons);
  column->addWidget(BuildTemplateStrip(Controls));
  column->addLayout(row, 1);
  auto *points = new PointStrip(Controls);
  column->addWidget(points);
  column->addWidget(BuildStatusStrip(Controls));
  setCentralWidget(whole);
  BindPopUp(Controls, Ctl::HotKeyList, Ctl::HotKeyPrompt, this);
  Typing = new TypingCard(*Drawing, *points);
  Help = new HelpWindow(Controls.Send, this);
  Performance = new PressureWindow(Controls.Send, this);
  Propellant = new PepWindow(Controls.Send, this);
  Drawing->setFocus();
}

QWidget *MainWindow::BuildDrawing() {
  Drawing = Bind(Controls, Ctl::DrawPanel, new DrawPanel(Controls.Send));
  auto *over = new QGridLayout(Drawing);
  over->addWidget(BuildEmptyCard(Controls), 0, 0, Qt::AlignCenter);
  Running = new RunNotice;
  Controls.List.push_back({Ctl::SimMsg, Running->Text(), {}, true});
  Controls.List.push_back({Ctl::SimMsg, Running, {}, true});
  over->addWidget(Running, 0, 0, Qt::AlignCenter);
  Diagnosis = BuildDiagnosisLine(Controls); // in a corner, which the grain leaves free
  over->addWidget(Diagnosis, 0, 0, Qt::AlignTop | Qt::AlignLeft);
  Message = new MessageStrip(*Drawing);
  over->addWidget(Message, 0, 0, Qt::AlignBottom | Qt::AlignHCenter);
  return Drawing;
}

QWidget *MainWindow::BuildCharts() {
  ChartRow = new QWidget;
  auto *charts = new QHBoxLayout(ChartRow);
  charts->setContentsMargins(0, 0, 0, 0);
  charts->setSpacing(1);
  AreaCell = BuildChartCell(Controls, Ctl::MyChart1_Frame, Ctl::MyChart1, Area);
  KnCell = BuildChartCell(Controls, Ctl::MyChart2_Frame, Ctl::MyChart2, Kn);
  charts->addWidget(AreaCell, 1);
  charts->addWidget(KnCell, 1);
  return ChartRow;
}

void MainWindow::Tell(const QString &text, const char *icon) { Message->Tell(text, icon); }

void MainWindow::FollowHelp(const Screen &shown) {
  const bool wanted = shown[Ctl::Help_Window].Visible;
  if (wanted || Help->isVisible()) Help->Copy(shown);
  if (wanted == Help->isVisible()) return;
  if (!wanted) return Help->hide();
  const QRect room = screen()->availableGeometry();
  Help->move(std::min(geometry().right(), room.right()) - Help->width() - 24,
             std::max(geometry().top(), 0) + 96);
  Help->show();
  Help->activateWindow();
}

QString MainWindow::OpenPicture() {
  if (!Solids) {
    Solids = new View3dPane(Controls);
    Places->addWidget(Solids);
  }
  return Solids->View->Open();
}

QImage MainWindow::Picture() { return Solids ? Solids->View->Shot() : QImage(); }

// What lies over the drawing goes along with the view.
void MainWindow::FollowView3d(const Screen &shown, const Theme &theme) {
  if (!Solids) return;
  const bool open = shown[Ctl::View_3D].Visible, was = Places->currentWidget() == Solids;
  if (open != was) {
    Places->setCurrentWidget(open ? static_cast<QWidget *>(Solids) : Drawing);
    auto *over = open ? Solids->Over : static_cast<QGridLayout *>(Drawing->layout());
    over->addWidget(Running, 0, 0, Qt::AlignCenter);
    over->addWidget(Message, 0, 0, Qt::AlignBottom | Qt::AlignHCenter);
    if (open) Solids->View->setFocus();
  }
  open ? Solids->Copy(shown, theme) : Solids->View->Release();
}

// A window beside this one, shown and hidden as the core has it.
template <class Beside>
static void Follow(Beside &window, const Screen &shown, bool wanted, const Theme &theme) {
  if (wanted || window.isVisible()) window.Copy(shown, theme);
  if (wanted == window.isVisible()) return;
  if (!wanted) return window.hide();
  if (!window.testAttribute(Qt::WA_WState_Created)) window.Place(window.screen()->availableGeometry());
  window.show();
  window.activateWindow();
}

QWidget *MainWindow::WindowOf(Ctl control) {
  for (const Bindings *bindings : {&Performance->Controls, &Propellant->Controls})
    if (QWidget *widget = Find(*bindings, control); widget && widget->window()->isVisible())
      return widget->window();
  return this;
}

QWidget *MainWindow::FocusOn(Ctl control) {
  for (const Bindings *bindings : {&Controls, &Performance->Controls, &Propellant->Controls}) {
    QWidget *widget = Find(*bindings, control);
    if (!widget) continue;
    if (widget->window() != this) widget->window()->activateWindow();
    widget->setFocus();
    return widget;
  }
  return nullptr;
}

void MainWindow::Copy(const Screen &screen, const Theme &theme) {
  const QPointer<QWidget> held = focusWidget();
  if (!Drawing->Claims)
    Drawing->Claims = [&screen](int key, int shift) {
      return screen.TakesKey && screen.TakesKey(key, shift);
    };
  Mirror(Controls, screen);
  FollowView3d(screen, theme);
  // A closed outline is told by its tint.
  Diagnosis->setVisible(screen[Ctl::Diagnosis_Text].Visible && screen[Ctl::Diagnosis_Next].Enabled);
  Typing->Follow(screen[Ctl::Typing_Card].Visible);
  Side->Follow(screen, theme);
  Lessons->Copy(screen);
  FollowHelp(screen);
  ::Follow(*Performance, screen, screen[Ctl::Pressure_Results].Visible, theme);
  ::Follow(*Propellant, screen, screen[Ctl::PEP_SimA].Visible, theme);
  // What has the keys and goes gives them back to the drawing, not to whatever stands next to it.
  if (held && !held->isVisible() && isVisible()) Drawing->setFocus();
  ChartRow->setVisible(!AreaCell->isHidden() || !KnCell->isHidden());
  Drawing->Copy(screen.Panel, theme);
  Area->Copy(screen.MyChart1, theme);
  Kn->Copy(screen.MyChart2, theme);
}

WindowPlace MainWindow::Place() {
  const QRect r = isMaximized() ? normalGeometry() : QRect(pos(), size());
  if (Side->isVisible()) SideWidth = Side->width();
  if (ChartRow->isVisible()) ChartHeight = ChartRow->height();
  return {r.left(), r.top(), r.width(), r.height(), isMinimized(), SideWidth, ChartHeight};
}

void MainWindow::Restore(const WindowPlace &place) {
  const QRect room = screen()->availableGeometry();
  QRect wanted(place.Left, place.Top, place.Width, place.Height);
  if (place.Width <= 0 || !room.intersects(wanted.adjusted(40, 0, -40, -40))) {
    wanted.setSize(QSize(1440, 900).boundedTo(room.size()));
    wanted.moveCenter(room.center());
  }
  resize(wanted.size().boundedTo(room.size()));
  move(wanted.topLeft());
  SideWidth = place.SideWidth > 0 ? place.SideWidth : Side->minimumWidth();
  Columns->setSizes({std::max(1, width() - SideWidth), SideWidth});
  ChartHeight = place.ChartHeight;
  if (ChartHeight > 0) Rows->setSizes({std::max(1, height() - ChartHeight), ChartHeight});
}

void MainWindow::closeEvent(QCloseEvent *close) {
  close->ignore();
  Controls.Send(CloseOf(Ctl::frmMain));
}

void MainWindow::dragEnterEvent(QDragEnterEvent *drag) {
  if (drag->mimeData()->hasUrls()) drag->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *drop) {
  for (const QUrl &url : drop->mimeData()->urls()) {
    if (!url.isLocalFile()) continue;
    drop->acceptProposedAction();
    Event e = PressOf(Ctl::frmMain, url.toLocalFile().toStdString());
    e.What = Event::Kind::Drop;
    Controls.Send(e);
    return;
  }
}

// Keys that nothing in the window has use for are the drawing's; of a field only Escape and F1.
void MainWindow::keyPressEvent(QKeyEvent *key) {
  constexpr int Escape = 27, F1 = 112;
  Event e = KeyIn(Ctl::DrawPanel, KeyCode(*key), ShiftCode(key->modifiers()));
  if (e.KeyCode == F1) e.Target = UnderPointer();
  const bool field = qobject_cast<QLineEdit *>(focusWidget()) != nullptr;
  if (e.KeyCode == 0 || (field && e.KeyCode != Escape && e.KeyCode != F1))
    return QMainWindow::keyPressEvent(key);
  if (!field) e.Text = key->text().toStdString();
  Controls.Send(e);
}

Ctl MainWindow::UnderPointer() const {
  QWidget *const there = childAt(mapFromGlobal(QCursor::pos()));
  for (const Binding &b : Controls.List)
    if (there && b.Shown == there && there->property("tool").toBool()) return b.Control;
  return Ctl::DrawPanel;
}
