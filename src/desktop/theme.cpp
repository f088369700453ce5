#include "desktop/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QToolTip>

namespace {
QColor Mix(const QColor &a, const QColor &b, double part) {
  const auto blend = [part](int x, int y) { return static_cast<int>(x + (y - x) * part + 0.5); };
  return {blend(a.red(), b.red()), blend(a.green(), b.green()), blend(a.blue(), b.blue())};
}

void MixIn(Theme &t, const QColor &warning) {
  t.Faint = Mix(t.Quiet, t.Window, 0.45);
  t.Lit = Mix(t.Window, t.Accent, 0.2);
  t.Glow = Mix(t.Window, t.Accent, 0.12);
  t.Notice = Mix(t.Window, warning, 0.16);
}

Theme MakeLight() {
  Theme t;
  t.Window = "#F6F7F9", t.Pane = "#F6F7F9", t.Field = "#FFFFFF", t.Hairline = "#D5DBE1", t.Edge = "#808B95",
  t.Text = "#1B232B";
  t.Quiet = "#5A6672", t.Hover = "#E6EBEF", t.Pressed = "#D6DEE4";
  t.Ground = "#E9EDF1", t.Disc = "#F8FAFB", t.Propellant = "#F2E2C4", t.Core = "#FFFFFF";
  t.GrainCircle = "#33414E", t.Geometry = "#1B4F8F", t.Picked = "#D9480F", t.Guide = "#0B7285";
  t.New = "#2B8A3E", t.Gone = "#E03131", t.Grid = "#DDE3E8", t.GridFifth = "#C6CFD7";
  t.Accent = "#0B7285", t.AccentHover = "#095F6F", t.AccentText = "#FFFFFF";
  MixIn(t, "#F08C00");
  return t;
}

Theme MakeDark() {
  Theme t;
  t.Dark = true;
  t.Window = "#1E2227", t.Pane = "#1E2227", t.Field = "#15191D", t.Hairline = "#343B43", t.Edge = "#66717C",
  t.Text = "#E4E9EE";
  t.Quiet = "#98A4B0", t.Hover = "#2B3138", t.Pressed = "#363E47";
  t.Ground = "#14181C", t.Disc = "#191E23", t.Propellant = "#3B3325", t.Core = "#0F1215";
  t.GrainCircle = "#9FB0BF", t.Geometry = "#8CC2FF", t.Picked = "#FFA94D", t.Guide = "#3BC9DB";
  t.New = "#69DB7C", t.Gone = "#FF6B6B", t.Grid = "#232A31", t.GridFifth = "#2F3841";
  t.Accent = "#3BC9DB", t.AccentHover = "#66D9E8", t.AccentText = "#08262B";
  MixIn(t, "#FFA94D");
  return t;
}

// Rules in one sheet; @Name stands for the theme's colour of that name.
constexpr const char *Sheet = R"(
QMainWindow, QDialog { background: @Window; }
QToolTip { color: @Text; background: @Field; border: 1px solid @Hairline; padding: 5px 7px; }
QMenuBar { background: @Window; padding: 2px 6px; border-bottom: 1px solid @Hairline; }
QMenuBar::item { padding: 5px 10px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: @Hover; }
QMenu { background: @Field; border: 1px solid @Hairline; padding: 6px 0; }
QMenu::item { padding: 6px 30px 6px 12px; margin: 0 5px; border-radius: 4px; }
QMenu::item:selected { background: @Hover; }
QMenu::item:disabled { color: @Faint; }
QMenu::separator { height: 1px; background: @Hairline; margin: 6px 0; }
QMenu::icon { padding-left: 8px; }
QMenu::indicator { width: 16px; height: 16px; margin-left: 8px; }
QMenu::indicator:checked { image: url(:/icons/@Ticks/tick.svg); }
QToolBar { background: @Window; border: none; border-bottom: 1px solid @Hairline; padding: 5px 8px; spacing: 2px; }
QToolBar::separator { width: 1px; background: @Hairline; margin: 6px 7px; }
QToolButton { border: 1px solid transparent; border-radius: 6px; padding: 4px; background: transparent; }
QToolButton[small="true"] { padding: 1px; }
QToolButton:hover:enabled { background: @Hover; }
QToolButton:pressed, QToolButton:checked { background: @Pressed; }
QToolButton[lit="1"] { background: @Lit; border-color: @Accent; }
QToolButton[lit="2"] { background: @Glow; }
QToolButton[lit="3"], QPushButton[lit="3"] { border: 2px solid @Picked; }
QToolButton[lit="3"] { padding: 3px; background: @Notice; }
QToolButton[small="true"][lit="3"] { padding: 0; }
QPushButton[lit="3"] { padding: 4px 15px; }
QToolButton:focus { border-color: @Accent; }
QToolButton:disabled { color: @Faint; }
QPushButton { padding: 5px 16px; border: 1px solid @Edge; border-radius: 6px; background: @Field; }
QPushButton:hover:enabled { background: @Hover; }
QPushButton:pressed { background: @Pressed; }
QPushButton:checked { background: @Lit; border-color: @Accent; }
QPushButton:focus { border: 1px solid @Accent; outline: none; }
QPushButton:disabled { color: @Faint; border-color: @Hairline; background: @Window; }
QPushButton:default, QPushButton[chief="true"], QPushButton#RunSim2 { color: @AccentText; background: @Accent; border: 1px solid @Accent; }
QPushButton:default:hover:enabled, QPushButton[chief="true"]:hover:enabled, QPushButton#RunSim2:hover:enabled { background: @AccentHover; border-color: @AccentHover; }
QPushButton:default:focus, QPushButton[chief="true"]:focus, QPushButton#RunSim2:focus { border: 2px solid @Text; padding: 4px 15px; }
QPushButton#RunSim2:disabled { color: @Faint; background: @Hover; border-color: @Hairline; }
QPushButton#RunSim2 { font-weight: 600; padding: 6px 20px; }
QPushButton#RunSim2:focus { padding: 5px 19px; }
QPushButton#Design_Mode { font-weight: 600; padding: 6px 16px; }
QLineEdit, QTextBrowser, QListView, QTreeView { background: @Field; border: 1px solid @Edge; border-radius: 6px;
  selection-background-color: @Accent; selection-color: @AccentText; }
QComboBox { background: @Field; border: 1px solid @Edge; border-radius: 6px; padding: 5px 8px; }
QComboBox[slim="true"] { padding: 2px 8px; }
QComboBox:focus { border-color: @Accent; }
QComboBox::drop-down { border: none; width: 26px; }
QComboBox::down-arrow { image: url(:/icons/@Ticks/down.svg); width: 14px; height: 14px; }
QComboBox QAbstractItemView { background: @Field; border: 1px solid @Hairline; selection-background-color: @Hover;
  selection-color: @Text; outline: none; }
QHeaderView::section { background: @Window; color: @Quiet; border: none; border-bottom: 1px solid @Hairline;
  padding: 6px 8px; }
QTreeView, QListView { outline: none; selection-background-color: @Hover; selection-color: @Text; }
QTreeView::item, QListView::item { min-height: 24px; }
QListView { padding: 2px 4px; }
QTreeView::item:hover { background: @Hover; }
QTreeView::item:selected, QListView::item:selected { background: @Lit; color: @Text; border-radius: 4px; }
QScrollArea { border: none; background: transparent; }
QScrollArea > QWidget > QWidget { background: transparent; }
QLineEdit { padding: 5px 8px; }
QLineEdit:focus { border-color: @Accent; }
QCheckBox { spacing: 9px; padding: 3px 4px; border: 1px solid transparent; border-radius: 4px; }
QCheckBox:focus { border-color: @Accent; }
QCheckBox::indicator { width: 16px; height: 16px; border: 1px solid @Edge; border-radius: 4px; background: @Field; }
QCheckBox::indicator:checked { background: @Accent; border-color: @Accent; image: url(:/icons/@Ticks/check.svg); }
QCheckBox::indicator:disabled { background: @Window; }
QCheckBox::indicator:checked:disabled { background: @Faint; border-color: @Faint; }
QRadioButton { spacing: 9px; padding: 3px 4px; border: 1px solid transparent; border-radius: 4px; }
QRadioButton:focus { border-color: @Accent; }
QRadioButton::indicator { width: 16px; height: 16px; border: 1px solid @Edge; border-radius: 9px; background: @Field; }
QRadioButton::indicator:checked { width: 8px; height: 8px; border: 5px solid @Accent; background: @Field; }
QSlider:horizontal { min-height: 26px; padding: 0 6px; border: 1px solid transparent; border-radius: 4px; }
QSlider:focus { border-color: @Accent; }
QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: @Hover; }
QSlider::sub-page:horizontal { border-radius: 2px; background: @Accent; }
QSlider::handle:horizontal { width: 16px; height: 16px; margin: -6px 0; border-radius: 8px; background: @Accent; }
QSlider::handle:horizontal:hover { background: @AccentHover; }
QProgressBar { border: none; border-radius: 3px; background: @Hover; max-height: 6px; min-height: 6px; }
QProgressBar::chunk { border-radius: 3px; background: @Accent; }
QSplitter::handle { background: @Hairline; }
QScrollBar:vertical { width: 11px; background: transparent; margin: 2px; }
QScrollBar:horizontal { height: 11px; background: transparent; margin: 2px; }
QScrollBar::handle { background: @Hairline; border-radius: 3px; min-height: 28px; min-width: 28px; }
QScrollBar::handle:hover { background: @Quiet; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
#SidePane { background: @Pane; border-left: 1px solid @Hairline; }
#ToolsPane, #Report_Frame { background: @Pane; border-right: 1px solid @Hairline; }
#PromptStrip { background: @Window; border-top: 1px solid @Hairline; }
#ViewStrip { background: @Window; border-bottom: 1px solid @Hairline; }
#BurnStrip { background: @Window; border-top: 1px solid @Hairline; }
#View_Note { background: @Field; border: 1px solid @Hairline; border-radius: 10px; }
#ChartCell { background: @Field; }
#RecoveryBar { background: @Notice; border-bottom: 1px solid @Hairline; }
#TutorFrame { background: @Glow; border-bottom: 1px solid @Hairline; }
#TutorFrame QProgressBar { background: @Hairline; }
#TemplateNoteFrame { background: @Notice; border-bottom: 1px solid @Hairline; }
#TemplateNoteFrame QListView { background: transparent; border: none; padding: 0; }
#TemplateNoteFrame QListView::item { background: @Field; border: 1px solid @Hairline; border-radius: 5px; padding: 1px 8px; margin-right: 6px; min-height: 20px; }
#TemplateNoteFrame QListView::item:selected { border-color: @Accent; }
QPushButton[step="true"] { padding: 2px 0; }
#Empty_Card, #SimMsg_Card { background: @Field; border: 1px solid @Hairline; border-radius: 10px; }
#Typing_Card, #MessageStrip { background: @Field; border: 1px solid @Edge; border-radius: 8px; }
#Typing_Card { border-color: @Accent; }
#Diagnosis_Line { background: @Notice; border: 1px solid @Hairline; border-radius: 8px; }
QPushButton[slim="true"] { padding: 2px 10px; }
QPushButton[segment="true"] { border-radius: 0; padding: 5px 9px; }
QLineEdit[plain="true"] { background: @Window; border-color: @Hairline; }
QLineEdit[bad="true"] { border: 2px solid @Gone; padding: 4px 7px; }
QComboBox[bad="true"] { border: 2px solid @Gone; padding: 4px 7px; }
QLabel[bad="true"] { color: @Gone; }
#ToolCard { background: @Field; border: 1px solid @Hairline; border-radius: 8px; }
#Result_Grid::item:selected { border-radius: 0; }
#Result_Grid QHeaderView::section { padding: 6px 3px; }
#Pep_Warning { background: @Notice; border: 1px solid @Hairline; border-radius: 8px; }
#sbStatusBar { color: @Quiet; }
*[hairline="true"] { background: @Hairline; }
*[quiet="true"] { color: @Quiet; }
)";

QString FilledSheet(const Theme &t) {
  const std::pair<const char *, QColor> names[] = {// A name that begins another comes after it.
                                                   {"@Window", t.Window},
                                                   {"@Pane", t.Pane},
                                                   {"@Field", t.Field},
                                                   {"@Hairline", t.Hairline},
                                                   {"@Text", t.Text},
                                                   {"@Quiet", t.Quiet},
                                                   {"@Hover", t.Hover},
                                                   {"@Pressed", t.Pressed},
                                                   {"@AccentHover", t.AccentHover},
                                                   {"@AccentText", t.AccentText},
                                                   {"@Accent", t.Accent},
                                                   {"@Faint", t.Faint},
                                                   {"@Edge", t.Edge},
                                                   {"@Lit", t.Lit},
                                                   {"@Glow", t.Glow},
                                                   {"@Notice", t.Notice},
                                                   {"@Picked", t.Picked},
                                                   {"@Gone", t.Gone}};
  QString sheet = QString::fromLatin1(Sheet);
  for (const auto &[name, colour] : names) sheet.replace(QLatin1String(name), colour.name());
  return sheet.replace(QLatin1String("@Ticks"), QLatin1String(t.Dark ? "dark" : "light"));
}
} // namespace

const Theme &LightTheme() {
  static const Theme theme = MakeLight();
  return theme;
}

const Theme &DarkTheme() {
  static const Theme theme = MakeDark();
  return theme;
}

QColor FromRed(std::uint32_t colour) {
  return {static_cast<int>(colour & 255), static_cast<int>(colour >> 8 & 255),
          static_cast<int>(colour >> 16 & 255)};
}

QColor ContourColour(const Theme &t, std::uint32_t colour) {
  const QColor c = FromRed(colour);
  const double light = 0.299 * c.redF() + 0.587 * c.greenF() + 0.114 * c.blueF();
  return t.Dark ? Mix(c, Qt::white, 0.4 * (1 - light)) : Mix(c, Qt::black, 0.3 * light);
}

QColor ChartFill(const Theme &t, std::uint32_t colour) {
  return t.Dark ? Mix(t.Field, FromRed(colour), 0.36) : FromRed(colour);
}

QColor ChartLine(const Theme &t, std::uint32_t colour) {
  const QColor c = FromRed(colour);
  return t.Dark ? c : QColor::fromHsv(c.hsvHue(), std::min(255, c.hsvSaturation() * 2), c.value() * 11 / 20);
}

QColor InkColour(const Theme &t, const DrawItem &item) {
  switch (item.Role) {
  case Ink::Own: return item.Inverse ? t.Guide : FromRed(item.Colour);
  case Ink::Contour: return ContourColour(t, item.Colour);
  case Ink::Grid: return t.Grid;
  case Ink::GridFifth: return t.GridFifth;
  case Ink::GrainCircle: return t.GrainCircle;
  case Ink::Geometry: return t.Geometry;
  case Ink::Picked: return t.Picked;
  case Ink::Propellant: return t.Propellant;
  case Ink::Core: return t.Core;
  case Ink::Fault: return t.Gone;
  case Ink::Note: return t.Text;
  case Ink::Guide: return t.Guide;
  case Ink::WillBe: return t.New;
  case Ink::WillGo: return t.Gone;
  }
  return t.Text;
}

void SetBaseFont(double least) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPointSizeF(std::max(least, font.pointSizeF()));
  QApplication::setFont(font);
}

QFont TypeFont(Type type) {
  static constexpr struct {
    double Times;
    QFont::Weight Weight;
  } Scale[] = {{1, QFont::Normal},   {0.9, QFont::Normal}, {0.9, QFont::DemiBold}, {1.2, QFont::DemiBold},
               {1.4, QFont::Normal}, {1.7, QFont::Normal}, {1.6, QFont::DemiBold}, {2.6, QFont::DemiBold}};
  const auto &[times, weight] = Scale[static_cast<std::size_t>(type)];
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * times);
  font.setWeight(weight);
  return font;
}

void ApplyTheme(QApplication &app, const Theme &t) {
  QPalette p;
  p.setColor(QPalette::Window, t.Window);
  p.setColor(QPalette::WindowText, t.Text);
  p.setColor(QPalette::Base, t.Field);
  p.setColor(QPalette::AlternateBase, t.Hover);
  p.setColor(QPalette::Text, t.Text);
  p.setColor(QPalette::PlaceholderText, t.Quiet);
  p.setColor(QPalette::Button, t.Field);
  p.setColor(QPalette::ButtonText, t.Text);
  p.setColor(QPalette::ToolTipBase, t.Field);
  p.setColor(QPalette::ToolTipText, t.Text);
  p.setColor(QPalette::Highlight, t.Accent);
  p.setColor(QPalette::HighlightedText, t.AccentText);
  p.setColor(QPalette::Link, t.Accent);
  p.setColor(QPalette::Light, t.Hover);
  p.setColor(QPalette::Mid, t.Hairline);
  p.setColor(QPalette::Dark, t.Quiet);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, role, t.Faint);
  app.setPalette(p);
  QToolTip::setPalette(p);
  app.setStyleSheet(FilledSheet(t));
}
