#include "desktop/main_window.h"

#include "desktop/event_codes.h"
#include "desktop/icons.h"
#include "desktop/menus.h"
#include "desktop/panes.h"
#include "desktop/point_strip.h"
#include "desktop/side_pane.h"
#include "desktop/tools_pane.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QUrl>

MainWindow::MainWindow(Sender send) {
  Controls.Send = send;
  Bind(Controls, Ctl::frmMain, this);
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::PreventContextMenu);
  BuildMenus(*this, Controls);
  BuildToolBar(*this, Controls);

  Drawing = Bind(Controls, Ctl::DrawPanel, new DrawPanel(send));
  auto *over = new QGridLayout(Drawing);
  over->addWidget(BuildEmptyCard(Controls), 0, 0, Qt::AlignCenter);
  Running = new RunNotice;
  Controls.List.push_back({Ctl::SimMsg, Running->Text(), {}, true});
  Controls.List.push_back({Ctl::SimMsg, Running, {}, true});
  over->addWidget(Running, 0, 0, Qt::AlignCenter);

  ChartRow = new QWidget;
  auto *charts = new QHBoxLayout(ChartRow);
  charts->setContentsMargins(0, 0, 0, 0);
  charts->setSpacing(1);
  AreaCell = BuildChartCell(Controls, Ctl::MyChart1_Frame, Ctl::MyChart1, Area);
  KnCell = BuildChartCell(Controls, Ctl::MyChart2_Frame, Ctl::MyChart2, Kn);
  charts->addWidget(AreaCell, 1);
  charts->addWidget(KnCell, 1);

  auto *middle = new QSplitter(Qt::Vertical);
  middle->setHandleWidth(1);
  middle->setChildrenCollapsible(false);
  middle->addWidget(Drawing);
  middle->addWidget(ChartRow);
  middle->setStretchFactor(0, 5);
  middle->setStretchFactor(1, 3);
  middle->setSizes({500, 300});

  auto *row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(BuildToolsPane(Controls));
  row->addWidget(BuildReportPane(Controls));
  row->addWidget(middle, 1);
  Side = new SidePane(Controls);
  row->addWidget(Side);
  auto *whole = new QWidget;
  auto *column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(BuildRecoveryBar(Controls));
  column->addLayout(row, 1);
  column->addWidget(new PointStrip(Controls));
  column->addWidget(BuildStatusStrip(Controls));
  setCentralWidget(whole);
  BindPopUp(Controls, Ctl::HotKeyList, Ctl::HotKeyPrompt, this);
  Drawing->setFocus();
}

void MainWindow::Copy(const Screen &screen, const Theme &theme) {
  const QPointer<QWidget> held = focusWidget();
  Mirror(Controls, screen);
  Side->Follow(screen, theme);
  // What has the keys and goes gives them back to the drawing, not to whatever stands next to it.
  if (held && !held->isVisible() && isVisible()) Drawing->setFocus();
  ChartRow->setVisible(!AreaCell->isHidden() || !KnCell->isHidden());
  Drawing->Copy(screen.Panel, theme);
  Area->Copy(screen.MyChart1, theme);
  Kn->Copy(screen.MyChart2, theme);
}

WindowPlace MainWindow::Place() const {
  const QRect r = isMaximized() ? normalGeometry() : QRect(pos(), size());
  return {r.left(), r.top(), r.width(), r.height(), isMinimized()};
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
}

void MainWindow::closeEvent(QCloseEvent *close) {
  close->ignore();
  Event e;
  e.What = Event::Kind::Close;
  e.Target = Ctl::frmMain;
  Controls.Send(e);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *drag) {
  if (drag->mimeData()->hasUrls()) drag->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *drop) {
  for (const QUrl &url : drop->mimeData()->urls()) {
    if (!url.isLocalFile()) continue;
    drop->acceptProposedAction();
    Event e;
    e.What = Event::Kind::Drop;
    e.Target = Ctl::frmMain;
    e.Text = url.toLocalFile().toStdString();
    Controls.Send(e);
    return;
  }
}

void MainWindow::keyPressEvent(QKeyEvent *key) {
  if (KeyCode(*key) == 27) {
    Event e;
    e.What = Event::Kind::Key;
    e.Target = Ctl::DrawPanel;
    e.KeyCode = 27;
    Controls.Send(e);
  } else {
    QMainWindow::keyPressEvent(key);
  }
}
