#include "desktop/tools_pane.h"

#include "desktop/menus.h"
#include "desktop/panes.h"
#include "desktop/tool_flow.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

namespace {
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

QToolButton *SmallTool(Bindings &bindings, Ctl control, const QString &icon) {
  QToolButton *tool = ToolButton(bindings, control, icon);
  tool->setProperty("small", true);
  return tool;
}

QToolButton *DrawingTool(Bindings &bindings, Ctl control) {
  const std::string_view name = RowOf(control).Name;
  const QString own = "tools/" + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
  if (control != Ctl::RotateDraw) return SmallTool(bindings, control, own);
  QToolButton *tool = SmallTool(bindings, control, "rotation");
  tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon); // its words hold the number of rotations
  tool->setFont(TypeFont(Type::Small));
  return tool;
}

// Scrolls only what no grid can show, on a very low window.
class ToolsArea final : public QScrollArea {
public:
  explicit ToolsArea(ToolFlow *flow) : Flow(flow) {
    setObjectName("ToolsPane");
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(flow);
    setMinimumHeight(120);
  }

protected:
  void resizeEvent(QResizeEvent *event) override {
    QScrollArea::resizeEvent(event);
    constexpr double Part = 0.3; // of the window's width, at most
    const int wide = Flow->Fit(height(), static_cast<int>(Part * window()->width()));
    const bool scrolls = Flow->height() > height();
    setFixedWidth(wide + 1 + (scrolls ? verticalScrollBar()->sizeHint().width() : 0));
  }

private:
  ToolFlow *Flow;
};
} // namespace

QWidget *BuildToolsPane(Bindings &bindings) {
  std::vector<ToolGroup> groups;
  for (const Ctl head : Groups) {
    ToolGroup group{Bind(bindings, head, Head({})), {}};
    for (Ctl tool = After(head); tool != PastTools && !IsGroup(tool); tool = After(tool))
      group.Tool.push_back(DrawingTool(bindings, tool));
    groups.push_back(std::move(group));
  }
  ToolGroup view{Head("View"), {}};
  for (const auto &[control, icon] : ViewTools) view.Tool.push_back(SmallTool(bindings, control, icon));
  groups.push_back(std::move(view));
  auto *flow = Bind(bindings, Ctl::Tools_Frame, new ToolFlow(std::move(groups)));
  auto *area = new ToolsArea(flow);
  bindings.List.push_back({Ctl::Tools_Frame, area, {}, true});
  return area;
}

Ctl RunningTool(const Screen &screen) {
  if (screen[Ctl::Zoom_Window].Checked) return Ctl::Zoom_Window;
  for (Ctl tool = Ctl::Tools_Lines; tool != PastTools; tool = After(tool))
    if (tool != Ctl::RotateDraw && screen[tool].Checked) return tool;
  return Ctl::Count;
}
