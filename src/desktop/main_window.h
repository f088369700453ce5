#pragma once
#include "desktop/bindings.h"
#include "desktop/chart_view.h"
#include "desktop/draw_panel.h"
#include "desktop/run_notice.h"

#include <QMainWindow>

class SidePane;

// frmMain: builds the widgets and shows what the screen holds.
class MainWindow final : public QMainWindow {
public:
  explicit MainWindow(Sender);
  void Copy(const Screen &, const Theme &);
  RunNotice &Notice() { return *Running; }
  WindowPlace Place() const;
  void Restore(const WindowPlace &);
  Bindings Controls;

protected:
  void closeEvent(QCloseEvent *) override;
  void dragEnterEvent(QDragEnterEvent *) override;
  void dropEvent(QDropEvent *) override;
  void keyPressEvent(QKeyEvent *) override;

private:
  DrawPanel *Drawing = nullptr;
  ChartView *Area = nullptr, *Kn = nullptr;
  QWidget *AreaCell = nullptr, *KnCell = nullptr, *ChartRow = nullptr;
  SidePane *Side = nullptr;
  RunNotice *Running = nullptr;
};
