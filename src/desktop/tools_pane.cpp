#include "desktop/tools_pane.h"

#include "desktop/menus.h"
#include "desktop/panes.h"

#include <QFrame>
#include <QGridLayout>
#include <QScrollArea>
#include <QToolButton>

namespace {
constexpr int Columns = 2, WideTool = 2; // cells
constexpr int Side = 34;                 // of a button, pixels
constexpr Ctl Groups[] = {Ctl::Tools_Lines,   Ctl::Tools_Circles, Ctl::Tools_Arcs,      Ctl::Tools_Boxes,
                          Ctl::Tools_Corners, Ctl::Tools_Trim,    Ctl::Tools_Transform, Ctl::Tools_Measure};
constexpr struct {
  Ctl Control;
  const char *Icon;
} ViewTools[] = {{Ctl::Zoom_Reset, "zoom_grain"},
                 {Ctl::Zoom_Window, "zoom_window"},
                 {Ctl::Zoom_x2, "zoom_in"},
                 {Ctl::Zoom_1h, "zoom_out"}};

Ctl After(Ctl control) { return static_cast<Ctl>(static_cast<int>(control) + 1); }
bool IsGroup(Ctl control) { return RowOf(control).Name.starts_with("Tools_"); }
constexpr Ctl PastTools = Ctl::End_Frame; // the first control behind the last tool

void AddHead(QGridLayout &grid, QLabel *head) {
  head->setContentsMargins(4, grid.rowCount() > 1 ? 8 : 0, 0, 3);
  head->setWordWrap(true);
  grid.addWidget(head, grid.rowCount(), 0, 1, Columns);
}

void AddTools(QGridLayout &grid, const std::vector<QToolButton *> &tools) {
  const int first = grid.rowCount();
  int place = 0;
  for (QToolButton *tool : tools) {
    const bool wide = tool->toolButtonStyle() != Qt::ToolButtonIconOnly;
    const int cells = wide ? WideTool : 1;
    if (place % Columns + cells > Columns) place = (place + Columns - 1) / Columns * Columns;
    grid.addWidget(tool, first + place / Columns, place % Columns, 1, cells);
    place += cells;
  }
}

QToolButton *SmallTool(Bindings &bindings, Ctl control, const QString &icon) {
  QToolButton *tool = ToolButton(bindings, control, icon);
  tool->setProperty("small", true);
  tool->setFixedSize(Side, Side);
  return tool;
}

QToolButton *DrawingTool(Bindings &bindings, Ctl control) {
  const std::string_view name = RowOf(control).Name;
  const QString own = "tools/" + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
  if (control != Ctl::RotateDraw) return SmallTool(bindings, control, own);
  QToolButton *tool = ToolButton(bindings, control, "rotation");
  tool->setProperty("small", true);
  tool->setFixedHeight(Side);
  tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon); // its words hold the number of rotations
  tool->setFont(TypeFont(Type::Small));
  tool->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  tool->setMinimumWidth(QFontMetrics(tool->font()).horizontalAdvance("R=301") + 42);
  return tool;
}
} // namespace

QWidget *BuildToolsPane(Bindings &bindings) {
  auto *group = Bind(bindings, Ctl::Tools_Frame, new QWidget);
  auto *grid = new QGridLayout(group);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(1);
  for (const Ctl head : Groups) {
    AddHead(*grid, Bind(bindings, head, Head({})));
    std::vector<QToolButton *> tools;
    for (Ctl tool = After(head); tool != PastTools && !IsGroup(tool); tool = After(tool))
      tools.push_back(DrawingTool(bindings, tool));
    AddTools(*grid, tools);
  }
  AddHead(*grid, Head("View"));
  std::vector<QToolButton *> tools;
  for (const auto &[control, icon] : ViewTools) tools.push_back(SmallTool(bindings, control, icon));
  AddTools(*grid, tools);

  auto *inner = new QWidget;
  auto *outer = new QVBoxLayout(inner);
  outer->setContentsMargins(8, 12, 4, 12);
  outer->addWidget(group);
  outer->addStretch();
  QScrollArea *area = Scrolled(inner, 0);
  area->setObjectName("ToolsPane");
  bindings.List.push_back({Ctl::Tools_Frame, area, {}, true});
  return area;
}

Ctl RunningTool(const Screen &screen) {
  if (screen[Ctl::Zoom_Window].Checked) return Ctl::Zoom_Window;
  for (Ctl tool = Ctl::Tools_Lines; tool != PastTools; tool = After(tool))
    if (tool != Ctl::RotateDraw && screen[tool].Checked) return tool;
  return Ctl::Count;
}
