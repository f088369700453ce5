#pragma once
#include "desktop/side_window.h"

class PlotView;
class QBoxLayout;
class QComboBox;
class QPushButton;
class QTreeWidget;

// Pressure_Results, beside the drawing: charts of the burn over time, its inputs, figures and comparison.
class PressureWindow final : public SideWindow {
public:
  PressureWindow(Sender, QWidget *parent);
  void Copy(const Screen &, const Theme &);
  void Place(const QRect &room); // at its first opening

protected:
  void CopyOut() override;
  void resizeEvent(QResizeEvent *) override;

private:
  QWidget *BuildInputs();
  QWidget *BuildChart();
  QWidget *BuildStrip();
  QWidget *BuildTable();
  QWidget *BuildFoot();
  void CopyChoice(const Control &);
  void CopyTable(const TextTable &, const Control &, const Theme &);
  bool LowScreen() const; // has room for the least only

  PlotView *Chart = nullptr;
  QLabel *InputsHead = nullptr;
  QComboBox *Choice = nullptr;
  QTreeWidget *Table = nullptr;
  QPushButton *Reset = nullptr;
  QBoxLayout *Foot = nullptr;
  TextTable TableShown;
  const Theme *TableTheme = nullptr;
};
