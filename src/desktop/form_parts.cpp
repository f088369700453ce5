#include "desktop/form_parts.h"

#include "desktop/figure_label.h"
#include "desktop/theme.h"
#include "platform/events.h"

#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

const Theme &ThemeOf(const Screen &screen) {
  return screen[Ctl::mnuThemeDark].Checked ? DarkTheme() : LightTheme();
}

QHBoxLayout *RowLayout(int space) {
  auto *row = new QHBoxLayout;
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(space);
  return row;
}

QVBoxLayout *ColumnLayout(QWidget *pane, int space) {
  auto *column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(space);
  return column;
}

QGridLayout *GridLayout(QWidget *pane, int across, int down) {
  auto *grid = new QGridLayout(pane);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(across);
  grid->setVerticalSpacing(down);
  return grid;
}

QLabel *LabelOf(const QString &text, QWidget *box) {
  auto *label = new QLabel(text);
  label->setBuddy(box);
  return label;
}

QPushButton *Slim(QPushButton *button) {
  button->setProperty("slim", true);
  return button;
}

QLineEdit *NumberField(Bindings &bindings, Ctl control, const QString &name, int digits) {
  auto *box = BindField(bindings, control, new QLineEdit);
  box->setAlignment(Qt::AlignRight);
  box->setFixedWidth(QFontMetrics(box->font()).horizontalAdvance(QString(digits, '0')) + 20);
  box->setAccessibleName(QString(name).remove('&'));
  return box;
}

QComboBox *ItemBox(Bindings &bindings, Ctl control, const char *name) {
  auto *box = Bind(bindings, control, new QComboBox);
  box->setAccessibleName(name);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  QObject::connect(box, &QComboBox::textActivated, box, [&bindings, control](const QString &item) {
    Touch(bindings, control);
    bindings.Send(PressOf(control, item.toStdString()));
  });
  return box;
}

void CopyItems(QComboBox &list, const Control &from) {
  const QSignalBlocker quiet(list);
  bool same = list.count() == static_cast<int>(from.Item.size());
  for (int i = 0; same && i < list.count(); ++i)
    same = list.itemText(i).toStdString() == from.Item[static_cast<std::size_t>(i)];
  if (!same) {
    list.clear();
    for (const std::string &item : from.Item) list.addItem(QString::fromStdString(item));
  }
  list.setCurrentIndex(from.Index);
}

void AddFigures(QGridLayout &grid, Bindings &bindings, std::span<const FigurePlace> figures, int columns) {
  int place = 0;
  for (const FigurePlace &f : figures) {
    auto *figure = Bind(bindings, f.Control, new FigureLabel(f.Caption, f.Unit));
    figure->setAccessibleName(f.Caption);
    grid.addWidget(figure, place / columns, place % columns);
    grid.setColumnStretch(place % columns, 1);
    ++place;
  }
}

QScrollArea *LowScroll(QWidget *content) {
  auto *area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(content);
  return area;
}

void FitScroll(QScrollArea &area) {
  constexpr QSize around(72, 210); // margins, words and buttons of the dialog
  const QSize room = area.screen()->availableGeometry().size() - around;
  const QSize whole = area.widget()->sizeHint();
  const int bar = area.verticalScrollBar()->sizeHint().width();
  QSize wanted = whole;
  if (whole.height() > room.height()) wanted.rwidth() += bar;
  if (whole.width() > room.width()) wanted.rheight() += bar;
  area.setFixedSize(wanted.boundedTo(room));
}

QLabel *BadNote(int lines) {
  auto *note = new QLabel;
  note->setWordWrap(true);
  note->setProperty("bad", true);
  note->setFont(TypeFont(Type::Small));
  note->setAlignment(Qt::AlignTop);
  note->setMinimumHeight(lines * QFontMetrics(note->font()).lineSpacing());
  return note;
}

void SetMark(QWidget &field, bool bad) {
  if (field.property("bad").toBool() == bad) return;
  field.setProperty("bad", bad);
  field.style()->unpolish(&field);
  field.style()->polish(&field);
}

void MarkFields(Bindings &bindings, const Screen &screen) {
  for (const Binding &b : bindings.List) {
    auto *box = qobject_cast<QLineEdit *>(b.Shown);
    if (!box) continue;
    const QString why = QString::fromStdString(screen[b.Control].Hint);
    SetMark(*box, !why.isEmpty());
    box->setToolTip(why);
    box->setPlaceholderText({}); // a hint is the tip's
  }
}
