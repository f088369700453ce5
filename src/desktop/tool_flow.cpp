#include "desktop/tool_flow.h"

#include <QEvent>
#include <QLabel>
#include <QToolButton>
#include <algorithm>
#include <limits>

namespace {
constexpr int Gap = 1, GroupGap = 7, StackGap = 12, Left = 8, Right = 12, Edge = 8; // pixels
constexpr ToolGrid Grids[] = {{1, 2, 32}, {1, 3, 32}, {2, 2, 32}, {2, 3, 32},
                              {2, 2, 28}, {2, 3, 28}, {2, 4, 28}, {3, 3, 26}};
constexpr int IconRoom = 8;                 // of a button beside its icon
constexpr int WordIcon = 16, WordRoom = 23; // of a button with words

int HeadRoom(const ToolGrid &grid) { return grid.StackWidth() + StackGap - 2; }

int WidthOf(const ToolGrid &grid) {
  return Left + Right + grid.Stacks * grid.StackWidth() + (grid.Stacks - 1) * StackGap;
}

bool Wide(const QToolButton &tool) { return tool.toolButtonStyle() != Qt::ToolButtonIconOnly; }

// Row and column of each tool; a tool with words takes two columns.
struct Cell {
  int Row = 0, Column = 0, Span = 1;
};
std::vector<Cell> CellsOf(const ToolGroup &group, int columns) {
  std::vector<Cell> cells;
  int place = 0;
  for (const QToolButton *tool : group.Tool) {
    const int span = Wide(*tool) ? 2 : 1;
    if (place % columns + span > columns) place = (place / columns + 1) * columns;
    cells.push_back({place / columns, place % columns, span});
    place += span;
  }
  return cells;
}

int HeightOf(const ToolGroup &group, const ToolGrid &grid) {
  const auto cells = CellsOf(group, grid.Columns);
  const int rows = cells.empty() ? 0 : cells.back().Row + 1;
  return group.HeadHeight(HeadRoom(grid)) + rows * (grid.Side + Gap);
}

// The first group of each stack, so that the highest stack is as low as can be.
std::vector<std::size_t> BreaksOf(const std::vector<int> &height, int stacks) {
  std::vector<std::size_t> best;
  int lowest = std::numeric_limits<int>::max();
  const int most = std::min(stacks, static_cast<int>(height.size()));
  const auto cut = [&](auto &&self, std::vector<std::size_t> &first, int highest) -> void {
    const std::size_t from = first.back();
    int sum = 0;
    for (std::size_t i = from; i < height.size(); ++i) {
      sum += height[i] + (i > from ? GroupGap : 0);
      const bool last = static_cast<int>(first.size()) == most;
      if (last ? i + 1 < height.size() : i + 1 == height.size()) continue;
      const int now = std::max(highest, sum);
      if (last && now < lowest) {
        lowest = now;
        best = first;
      } else if (!last && now < lowest) {
        first.push_back(i + 1);
        self(self, first, now);
        first.pop_back();
      }
    }
  };
  std::vector<std::size_t> first{0};
  cut(cut, first, 0);
  return best;
}
} // namespace

int ToolGroup::HeadHeight(int width) const { return Head->heightForWidth(width) + 3; }

ToolFlow::ToolFlow(std::vector<ToolGroup> groups) : Group(std::move(groups)) {
  for (const ToolGroup &group : Group) {
    group.Head->setParent(this);
    group.Head->setWordWrap(true);
    for (QToolButton *tool : group.Tool) tool->setParent(this);
  }
}

int ToolFlow::Fit(int height, int width) {
  const ToolGrid *chosen = nullptr;
  int lowest = std::numeric_limits<int>::max();
  for (const ToolGrid &grid : Grids) {
    if (chosen && WidthOf(grid) > width) continue;
    const int needed = Place(grid, false);
    if (needed >= lowest) continue;
    chosen = &grid;
    lowest = needed;
    if (needed <= height) break;
  }
  Now = *chosen;
  setFixedSize(WidthOf(Now), std::max(lowest, height));
  Place(Now, true);
  return WidthOf(Now);
}

// The words of a tool have changed.
bool ToolFlow::event(QEvent *event) {
  if (event->type() == QEvent::LayoutRequest) Place(Now, true);
  return QWidget::event(event);
}

int ToolFlow::Place(const ToolGrid &grid, bool move) {
  std::vector<int> heights;
  for (const ToolGroup &group : Group) heights.push_back(HeightOf(group, grid));
  const auto breaks = BreaksOf(heights, grid.Stacks);
  const int step = grid.Side + Gap;
  int stack = -1, top = Edge, lowest = 0;
  for (std::size_t i = 0; i < Group.size(); ++i) {
    if (std::find(breaks.begin(), breaks.end(), i) != breaks.end()) {
      ++stack;
      top = Edge;
    }
    const ToolGroup &group = Group[i];
    const int left = Left + stack * (grid.StackWidth() + StackGap), head = group.HeadHeight(HeadRoom(grid));
    if (move) {
      group.Head->setGeometry(left, top, HeadRoom(grid), head);
      const auto cells = CellsOf(group, grid.Columns);
      for (std::size_t t = 0; t < cells.size(); ++t) {
        QToolButton &tool = *group.Tool[t];
        const int wide = cells[t].Span * step - Gap;
        const int icon = cells[t].Span > 1 ? WordIcon : std::min(24, grid.Side - IconRoom);
        tool.setIconSize(QSize(icon, icon));
        if (cells[t].Span > 1) { // its words come before its icon
          const int needed = WordIcon + tool.fontMetrics().horizontalAdvance(tool.text()) + WordRoom;
          const auto style = needed > wide ? Qt::ToolButtonTextOnly : Qt::ToolButtonTextBesideIcon;
          if (tool.toolButtonStyle() != style) tool.setToolButtonStyle(style);
        }
        tool.setGeometry(left + cells[t].Column * step, top + head + cells[t].Row * step, wide, grid.Side);
      }
    }
    top += heights[i] + GroupGap;
    lowest = std::max(lowest, top - GroupGap + Edge);
  }
  return lowest;
}
