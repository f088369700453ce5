#pragma once
#include "desktop/bindings.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <span>

class QComboBox;
class QGridLayout;
class QPushButton;
class QScrollArea;
struct Theme;

// What forms of many numbers are made of.

inline Ctl NthControl(Ctl first, int n) { return static_cast<Ctl>(static_cast<int>(first) + n); }
const Theme &ThemeOf(const Screen &);

QHBoxLayout *RowLayout(int space = 8); // without margins, as the next two
QVBoxLayout *ColumnLayout(QWidget *pane, int space);
QGridLayout *GridLayout(QWidget *pane, int across, int down);
QLabel *LabelOf(const QString &text, QWidget *box); // "&" before its key
QPushButton *Slim(QPushButton *);
QLineEdit *NumberField(Bindings &, Ctl, const QString &name, int digits);
QComboBox *ItemBox(Bindings &, Ctl, const char *name); // a list to pick from; sends Press with the item
void CopyItems(QComboBox &, const Control &);

struct FigurePlace {
  Ctl Control;
  const char *Caption, *Unit;
};
void AddFigures(QGridLayout &, Bindings &, std::span<const FigurePlace>, int columns);

QScrollArea *LowScroll(QWidget *content); // of a dialog: a low or narrow screen scrolls it
void FitScroll(QScrollArea &);            // to its content, or to what the screen leaves

QLabel *BadNote(int lines); // why something cannot be used, with room for so many lines
void SetMark(QWidget &field, bool bad);
void MarkFields(Bindings &, const Screen &); // each field whose hint says what is wrong with it
