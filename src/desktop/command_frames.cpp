#include "desktop/command_frames.h"

#include "desktop/panes.h"

#include <QFrame>
#include <QGridLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QVBoxLayout>

namespace {
// The box whose nine reference points its buttons stand on.
class BoxOutline final : public QWidget {
protected:
  void paintEvent(QPaintEvent *) override {
    const auto buttons = findChildren<QRadioButton *>();
    if (buttons.size() < 2) return;
    const auto point = [](const QRadioButton &button) {
      QStyleOptionButton option;
      option.initFrom(&button);
      const QRect dot = button.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &button);
      return QRectF(dot.translated(button.pos())).center();
    };
    const QRectF box(point(*buttons.first()), point(*buttons.last()));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Dark), 1.5));
    painter.drawRect(box);
  }
};

QWidget *FrameOf(Bindings &bindings, Ctl control, QVBoxLayout &column) {
  auto *frame = Bind(bindings, control, new QWidget);
  column.addWidget(frame);
  return frame;
}

QVBoxLayout *ColumnIn(QWidget *frame, int spacing = 6) {
  auto *column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(spacing);
  return column;
}

// A click on it leaves the keys with the drawing.
QPushButton *FrameButton(Bindings &bindings, Ctl control) {
  QPushButton *button = Button(bindings, control);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

QPushButton *Choice(Bindings &bindings, Ctl control) {
  QPushButton *button = FrameButton(bindings, control);
  button->setCheckable(true);
  return button;
}

void AddOptions(Bindings &bindings, QVBoxLayout &column, std::initializer_list<Ctl> options) {
  for (const Ctl control : options) column.addWidget(Option(bindings, control), 0, Qt::AlignLeft);
}

void AddButtons(Bindings &bindings, QVBoxLayout &column, std::initializer_list<Ctl> buttons) {
  for (const Ctl control : buttons) column.addWidget(FrameButton(bindings, control));
}

// Cancel and, at the right, the button Enter stands for.
void AddAccept(Bindings &bindings, QVBoxLayout &column, Ctl accept, Ctl cancel) {
  auto *row = new QHBoxLayout;
  row->setSpacing(8);
  QPushButton *chief = FrameButton(bindings, accept);
  chief->setProperty("chief", true);
  row->addWidget(FrameButton(bindings, cancel), 1);
  row->addWidget(chief, 1);
  column.addSpacing(4);
  column.addLayout(row);
}

void AddSelection(Bindings &bindings, QVBoxLayout &column) {
  auto *grid = new QGridLayout(FrameOf(bindings, Ctl::Selection_Frame, column));
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(6);
  int place = 0;
  for (const Ctl control : {Ctl::SelectSingle, Ctl::SelectWindow, Ctl::SelectByType, Ctl::SelectAll}) {
    grid->addWidget(Choice(bindings, control), place / 2, place % 2);
    ++place;
  }
  for (const Ctl control : {Ctl::SelectLines, Ctl::SelectCircles, Ctl::SelectArcs})
    grid->addWidget(FrameButton(bindings, control), place++, 0, 1, 2);
}

void AddBox(Bindings &bindings, QVBoxLayout &column) {
  constexpr Ctl Points[] = {Ctl::TL, Ctl::TC, Ctl::TR, Ctl::CL, Ctl::CC, Ctl::RC, Ctl::BL, Ctl::BC, Ctl::BR};
  auto *inner = ColumnIn(FrameOf(bindings, Ctl::BoxWH_Frame, column), 8);
  inner->addWidget(LabelledField(bindings, Ctl::BoxWidth, "Width", "mm"));
  inner->addWidget(LabelledField(bindings, Ctl::BoxHeight, "Height", "mm"));
  auto *words = Quiet(new QLabel("The click places this point:"));
  words->setWordWrap(true);
  auto *outline = new BoxOutline;
  auto *grid = new QGridLayout(outline);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(2);
  int place = 0;
  for (const Ctl control : Points) {
    auto *point = Option(bindings, control);
    point->setProperty("wordless", true);
    grid->addWidget(point, place / 3, place % 3, Qt::AlignCenter);
    ++place;
  }
  auto *row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(words, 1);
  row->addWidget(outline);
  inner->addLayout(row);
  AddAccept(bindings, *inner, Ctl::AcceptBoxWH, Ctl::CancelBoxWH);
}

void AddPolygon(Bindings &bindings, QVBoxLayout &column) {
  auto *inner = ColumnIn(FrameOf(bindings, Ctl::Poly_Frame, column), 8);
  inner->addWidget(LabelledField(bindings, Ctl::PolySides, "Sides", ""));
  inner->addWidget(LabelledField(bindings, Ctl::PolyRadius, "Radius", "mm"));
  auto *row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(Option(bindings, Ctl::PolyFlat));
  row->addWidget(Option(bindings, Ctl::PolyCorner));
  row->addStretch();
  inner->addLayout(row);
  inner->addWidget(LabelledField(bindings, Ctl::PolyRotate, "Rotation", "deg"));
  AddAccept(bindings, *inner, Ctl::PolyAccept, Ctl::PolyCancel);
}
} // namespace

QWidget *Option(Bindings &bindings, Ctl control) {
  auto *option = new QRadioButton;
  option->setAutoExclusive(false); // which of a group is chosen the core says
  return BindButton(bindings, control, option);
}

QWidget *LabelledField(Bindings &bindings, Ctl control, const QString &label, const QString &unit) {
  auto *whole = new QWidget;
  auto *row = new QHBoxLayout(whole);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  auto *words = new QLabel(label);
  auto *field = BindField(bindings, control, new QLineEdit);
  field->setAlignment(Qt::AlignRight);
  field->setFixedWidth(96);
  field->setAccessibleName(label);
  words->setBuddy(field);
  auto *behind = Quiet(new QLabel(unit));
  behind->setMinimumWidth(QFontMetrics(behind->font()).horizontalAdvance("mm") + 2);
  row->addWidget(words, 1);
  row->addWidget(field);
  row->addWidget(behind);
  return whole;
}

void AddCommandFrames(Bindings &bindings, QVBoxLayout &column) {
  column.addWidget(BindChoices(bindings, Ctl::XFormOption));
  column.addWidget(BindChoices(bindings, Ctl::Delete_Mode));
  AddSelection(bindings, column);
  AddOptions(
      bindings, *ColumnIn(FrameOf(bindings, Ctl::Window_Frame, column), 2),
      {Ctl::All_Inside_Window, Ctl::Part_Inside_Window, Ctl::All_Outside_Window, Ctl::Part_Outside_Window});
  AddButtons(bindings, *ColumnIn(FrameOf(bindings, Ctl::Mirror_Frame, column)),
             {Ctl::Mirror_Horizonal, Ctl::Mirror_Vertical, Ctl::Mirror_2Points, Ctl::Mirror_Cancel});
  AddButtons(bindings, *ColumnIn(FrameOf(bindings, Ctl::Movement_Frame, column)),
             {Ctl::DeltaMovement, Ctl::Point2Movement, Ctl::GrainMovement, Ctl::CancelMovement});
  AddBox(bindings, column);
  AddPolygon(bindings, column);
}
