#pragma once
#include "desktop/side_window.h"

class CurveKey;
class IngredientPicker;
class NozzleSketch;
class PlotView;
class QComboBox;
class QPlainTextEdit;
class QProgressBar;
class QTreeWidget;

// PEP_SimA, beside the drawing: a propellant's ingredients at the left, what they give at the right.
class PepWindow final : public SideWindow {
public:
  PepWindow(Sender, QWidget *parent);
  void Copy(const Screen &, const Theme &);
  void Place(const QRect &room); // at its first opening

protected:
  void CopyOut() override;

private:
  QWidget *BuildMix();
  QWidget *BuildRun();
  QWidget *BuildLook();
  QWidget *BuildStrip();
  QWidget *BuildGrid();
  QWidget *BuildChart();
  QWidget *BuildSweep();
  QWidget *BuildFoot();
  void CopyGrid(const TextTable &, int chosen);
  void CopyKey(const Plot &, const Theme &); // what the curves are

  std::vector<IngredientPicker *> Pickers;
  QProgressBar *Progress = nullptr;
  NozzleSketch *Sketch = nullptr;
  QTreeWidget *Grid = nullptr;
  PlotView *Chart = nullptr;
  CurveKey *Key = nullptr;
  QPlainTextEdit *Words = nullptr;
  QWidget *ChartCell = nullptr, *ReportCell = nullptr, *SweepRow = nullptr;
  QComboBox *Raised = nullptr, *Lowered = nullptr;
  TextTable GridShown;
  unsigned KeyShown = 0;
  const Theme *Colours = nullptr;
};
