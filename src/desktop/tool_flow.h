#pragma once
#include <QWidget>
#include <span>
#include <vector>

class QLabel;
class QToolButton;

// A head and the tools below it.
struct ToolGroup {
  QLabel *Head = nullptr;
  std::vector<QToolButton *> Tool;
  int HeadHeight(int width) const;
};

// How the groups flow: as many stacks of groups beside each other, each so many tools wide.
struct ToolGrid {
  int Stacks = 1, Columns = 2, Side = 32; // of a button, pixels
  int StackWidth() const { return Columns * Side + (Columns - 1); }
};

// Tools in groups, every one in sight: the narrowest grid that fits the height there is, or else the lowest
// one that is not too wide.
class ToolFlow final : public QWidget {
public:
  explicit ToolFlow(std::vector<ToolGroup>);
  int Fit(int height, int width); // lays the tools out for it; the width they take

protected:
  bool event(QEvent *) override;

private:
  int Place(const ToolGrid &, bool move); // the height they take

  std::vector<ToolGroup> Group;
  ToolGrid Now;
};
