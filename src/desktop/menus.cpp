#include "desktop/menus.h"

#include "desktop/icons.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <span>

namespace {
enum Look : int { Plain = 0, Checkable = 1, Parted = 2 }; // Parted: a line above
struct MenuRow {
  Ctl Control;
  char Mnemonic;
  const char *Keys, *Icon;
  int Form = Plain;
  const char *Name = nullptr; // object name where a button already bears the control's
};

constexpr MenuRow File[] = {{Ctl::mnuFileNew, 'N', "Ctrl+N", "new"},
                            {Ctl::mnuFileOpen, 'O', "Ctrl+O", "open"},
                            {Ctl::mnuFileSave, 'S', "Ctrl+S", "save", Parted},
                            {Ctl::mnuFileSaveAs, 'A', "Ctrl+Shift+S", "save_as"},
                            {Ctl::mnuImport, 'I', "", "import", Parted},
                            {Ctl::ExportDXF, 'E', "", "export"},
                            {Ctl::mnuShot3d, 0, "", ""},
                            {Ctl::mnuMesh3d, 0, "", ""},
                            {Ctl::Save_Results, 'R', "", "", Plain, "mnuSave_Results"},
                            {Ctl::mnuMRU0, 0, "", "", Parted},
                            {Ctl::mnuMRU1, 0, "", ""},
                            {Ctl::mnuMRU2, 0, "", ""},
                            {Ctl::mnuMRU3, 0, "", ""},
                            {Ctl::mnuRecovered, 0, "", ""},
                            {Ctl::mnuFileExit, 'X', "Ctrl+Q", "", Parted}};
constexpr MenuRow Edit[] = {{Ctl::mnuEditUndo, 'U', "Ctrl+Z", "undo"},
                            {Ctl::mnuEditRedo, 'R', "Ctrl+Y", "redo"}};
constexpr MenuRow View[] = {{Ctl::Zoom_Reset, 'Z', "Ctrl+0", "zoom_grain", Plain, "mnuZoom_Reset"},
                            {Ctl::Zoom_x2, 'I', "Ctrl++", "zoom_in", Plain, "mnuZoom_x2"},
                            {Ctl::Zoom_1h, 'O', "Ctrl+-", "zoom_out", Plain, "mnuZoom_1h"},
                            {Ctl::Zoom_Window, 'W', "", "zoom_window", Plain, "mnuZoom_Window"},
                            {Ctl::mnuRefresh, 'R', "F5", "refresh"},
                            {Ctl::mnuViewTools, 'T', "", "", Checkable | Parted},
                            {Ctl::mnuViewReport, 'P', "", "", Checkable},
                            {Ctl::mnuViewSide, 0, "", "", Checkable},
                            {Ctl::mnuLiveBurn, 'B', "", "", Checkable},
                            {Ctl::mnuView3d, '3', "Ctrl+3", "view3d", Checkable | Parted},
                            {Ctl::tb3DConfig, 'U', "", "setup3d", Plain, "mnu3D_Config"},
                            {Ctl::mnuGrid, 'G', "", "grid", Parted},
                            {Ctl::mnuIncrements, 'S', "", ""},
                            {Ctl::mnuThemeLight, 'L', "", "", Checkable | Parted},
                            {Ctl::mnuThemeDark, 'D', "", "", Checkable}};
constexpr MenuRow Tools[] = {{Ctl::mnuFindTool, 'F', "Ctrl+K", ""},
                             {Ctl::mnuOptions, 'O', "", "configure"},
                             {Ctl::mnuDebugMode, 'D', "", "", Checkable | Parted}};
constexpr MenuRow Motor[] = {{Ctl::mnuDims, 'D', "Ctrl+D", "dimensions"},
                             {Ctl::RunSim2, 'R', "Ctrl+R", "", Parted, "mnuRunSim2"},
                             {Ctl::Design_Mode, 'B', "", "design_mode", Plain, "mnuDesign_Mode"},
                             {Ctl::Performance_Sim, 'M', "", "performance", Parted, "mnuPerformance_Sim"},
                             {Ctl::PEP_Simulation, 'P', "", ""}};
constexpr MenuRow Templates[] = {{Ctl::mnuchoosetemplate, 'C', "", "templates"},
                                 {Ctl::mnumaketemplate, 'M', "", ""},
                                 {Ctl::mnuTutor, 'T', "", "tutor", Parted},
                                 {Ctl::MacroRecord, 'R', "", ""},
                                 {Ctl::MacroPause, 'K', "", "", Plain, "mnuMacroPause"},
                                 {Ctl::MacroStop, 'F', "", "", Plain, "mnuMacroStop"}};
constexpr MenuRow Help[] = {{Ctl::mnuHelpTools, 'T', "", ""},
                            {Ctl::mnuIntro, 'I', "", ""},
                            {Ctl::mnuRecord, 'R', "", "", Checkable | Parted},
                            {Ctl::mnuAbout, 'A', "", "", Parted}};

constexpr struct {
  const char *Title;
  std::span<const MenuRow> Rows;
} Menus[] = {{"&File", File},   {"&Edit", Edit},           {"&View", View}, {"&Tools", Tools},
             {"&Motor", Motor}, {"Tem&plates", Templates}, {"&Help", Help}};

constexpr struct {
  Ctl Control;
  const char *Icon;
  bool Parted;
} ToolRow[] = {{Ctl::tbNew, "new", false},
               {Ctl::tbOpen, "open", false},
               {Ctl::tbSave, "save", false},
               {Ctl::tbUndo, "undo", true},
               {Ctl::tbRedo, "redo", false},
               {Ctl::tbBack, "back", true},
               {Ctl::tbEscape, "escape", false},
               {Ctl::tbRotationDraw, "rotation", true},
               {Ctl::RunSim2, "", true},
               {Ctl::Design_Mode, "", false},
               {Ctl::tb2DPlot, "view2d", true},
               {Ctl::tb3DRender, "view3d", false},
               {Ctl::tb3DConfig, "setup3d", false},
               {Ctl::tbTemplates, "templates", true},
               {Ctl::tbTutor, "tutor", false},
               {Ctl::tbConfigure, "configure", false},
               {Ctl::tbRefresh, "refresh", false}};

QAction *AddEntry(QMainWindow &window, Bindings &bindings, const MenuRow &row) {
  auto *action = new QAction(&window);
  action->setShortcut(QKeySequence(row.Keys));
  action->setMenuRole(QAction::NoRole);
  action->setCheckable(row.Form & Checkable);
  if (*row.Icon) action->setIcon(SvgIcon(row.Icon));
  BindAction(bindings, row.Control, action, row.Mnemonic);
  if (row.Name) action->setObjectName(row.Name);
  return action;
}
} // namespace

void BuildMenus(QMainWindow &window, Bindings &bindings) {
  for (const auto &[title, rows] : Menus) {
    QMenu *menu = window.menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    for (const MenuRow &row : rows) {
      if (row.Form & Parted) menu->addSeparator();
      menu->addAction(AddEntry(window, bindings, row));
    }
  }
}

QToolButton *ToolButton(Bindings &bindings, Ctl control, const QString &icon) {
  auto *button = new QToolButton;
  button->setIcon(SvgIcon(icon));
  button->setIconSize(QSize(24, 24));
  button->setFocusPolicy(Qt::TabFocus);
  BindTool(bindings, control, button);
  return button;
}

void BuildToolBar(QMainWindow &window, Bindings &bindings) {
  auto *bar = new QToolBar;
  Bind(bindings, Ctl::tbToolBar, bar);
  bar->setMovable(false);
  bar->setFloatable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  window.addToolBar(bar);
  for (const auto &row : ToolRow) {
    if (row.Parted) bar->addSeparator();
    QAbstractButton *button = nullptr;
    if (row.Control == Ctl::RunSim2 || row.Control == Ctl::Design_Mode) {
      button = new QPushButton;
      button->setFocusPolicy(Qt::TabFocus);
      BindTool(bindings, row.Control, button);
    } else {
      button = ToolButton(bindings, row.Control, row.Icon);
    }
    // A widget in a tool bar is shown and hidden through its action.
    QAction *place = bar->addWidget(button);
    bindings.List.push_back({row.Control, place, {}, true});
  }
}
