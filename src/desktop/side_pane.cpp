#include "desktop/side_pane.h"

#include "desktop/command_frames.h"
#include "desktop/figure_label.h"
#include "desktop/live_burn_pane.h"
#include "desktop/panes.h"
#include "desktop/property_pane.h"
#include "desktop/tools_pane.h"
#include "platform/events.h"

#include <QGridLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {
constexpr int RoomForUse = 320; // pixels: a lower pane has only what a tool asks for

QWidget *BuildGrain(Bindings &bindings) {
  auto *group = new QWidget;
  group->setObjectName("Motor_Dimensions"); // there is room for it beside any running tool
  auto *column = new QVBoxLayout(group);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  auto *edit = new QPushButton;
  edit->setObjectName("Grain_Edit");
  bindings.List.push_back({Ctl::mnuDims, edit, {}, true});
  QObject::connect(edit, &QPushButton::clicked, edit, [&bindings] { bindings.Send(PressOf(Ctl::mnuDims)); });
  edit->setProperty("slim", true);
  auto *head = new QHBoxLayout;
  head->addWidget(Head("Grain"), 1);
  head->addWidget(edit);
  column->addLayout(head);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  int place = 0;
  for (const Ctl control : {Ctl::Grain_Diam_Label, Ctl::Grain_Length_Label, Ctl::Throat_Diam_Label}) {
    grid->addWidget(Bind(bindings, control, new FigureLabel({}, "mm")), place / 2, place % 2);
    ++place;
  }
  auto *ends = Bind(bindings, Ctl::Ends_Exposed_Label, new QLabel);
  ends->setWordWrap(true); // one end below the other, as there is room for one of them only
  ends->setMaximumWidth(ends->fontMetrics().horizontalAdvance("End A: Yes  "));
  grid->addWidget(ends, 1, 1, Qt::AlignBottom);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  column->addLayout(grid);
  return group;
}
} // namespace

SidePane::SidePane(Bindings &bindings) {
  constexpr int Width = 248;
  setObjectName("SidePane");
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  auto *pane = new QWidget;
  auto *outer = new QVBoxLayout(pane);
  outer->setContentsMargins(12, 12, 12, 8);
  outer->setSpacing(12);

  Card = Frame("ToolCard");
  auto *column = new QVBoxLayout(Card);
  column->setContentsMargins(12, 10, 12, 12);
  column->setSpacing(10);
  Name = new QLabel;
  Name->setFont(TypeFont(Type::Prompt));
  Name->setWordWrap(true);
  column->addWidget(Name);
  Use = Quiet(new QLabel);
  Use->setWordWrap(true);
  column->addWidget(Use);
  AddCommandFrames(bindings, *column);
  outer->addWidget(Card);

  auto *grain = BuildGrain(bindings);
  grain->setContentsMargins(4, 0, 4, 0);
  outer->addWidget(grain);
  outer->addWidget(BuildPropertyPane(bindings));
  Live = new LiveBurnPane(bindings);
  outer->addWidget(Live);
  outer->addStretch();
  setWidget(pane);
  setMinimumWidth(std::max(Width, pane->minimumSizeHint().width()) + verticalScrollBar()->sizeHint().width());
  setMaximumWidth(2 * minimumWidth());
  // The pane keeps its place while a tool hides the grain's figures: the drawing must not jump.
  bindings.List.push_back({Ctl::Side_Pane, this, {}, true});
}

// Hints begin with the tool's name, which stands above already.
void SidePane::Follow(const Screen &screen, const Theme &theme) {
  Live->Copy(screen, theme);
  const Ctl tool = RunningTool(screen);
  Card->setVisible(tool != Ctl::Count);
  if (tool == Ctl::Count) return;
  QString hint = QString::fromStdString(screen[tool].Hint);
  const QString name = QString::fromStdString(screen[tool].Text);
  if (hint.startsWith(name + ": ")) hint.remove(0, name.size() + 2);
  if (!hint.isEmpty()) hint[0] = hint[0].toUpper();
  Name->setText(name);
  Use->setText(hint);
  Use->setVisible(!hint.isEmpty() && viewport()->height() >= RoomForUse);
}
