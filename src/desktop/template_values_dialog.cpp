#include "desktop/chart_view.h"
#include "desktop/dialogs.h"
#include "desktop/figure_label.h"
#include "desktop/form_parts.h"
#include "desktop/panes.h"
#include "desktop/picture_view.h"
#include "desktop/template_search_pane.h"
#include "platform/events.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>

namespace {
constexpr int RowCount = 10, UpKey = 38, DownKey = 40;
enum Place { Words = 0, Spin = 2, Slider = 3, Vary = 4, From = 5, To = 6, Unit = 7 };

constexpr Ctl Figures[] = {Ctl::Template_FirstKn, Ctl::Template_MaxKn, Ctl::Template_Neutrality,
                           Ctl::Template_Sliver, Ctl::Template_Loading};

// The core steps the value, as for the arrow keys in its field.
QPushButton *StepButton(Bindings &bindings, Ctl field, int row, bool up) {
  auto *button = new QPushButton(up ? "+" : "\u2212");
  button->setObjectName(QString(up ? "Step_Up(%1)" : "Step_Down(%1)").arg(row));
  button->setAccessibleName(up ? "More" : "Less");
  button->setAutoRepeat(true);
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::NoFocus);
  button->setFixedWidth(30);
  button->setProperty("step", true);
  QObject::connect(button, &QPushButton::clicked, button, [&bindings, field, up] {
    Touch(bindings, field);
    bindings.Send(KeyIn(field, up ? UpKey : DownKey));
  });
  return button;
}

struct ValueRow {
  QLabel *Caption;
  QLineEdit *Prompt, *Field;
  QPushButton *Less, *More;
  QLabel *Unit;
};

ValueRow AddRow(QGridLayout &grid, Bindings &bindings, int row) {
  const Ctl prompt = NthControl(Ctl::Prompt0, row), value = NthControl(Ctl::VariableName0, row);
  auto *caption = new QLabel;
  caption->setFixedWidth(190);
  caption->setWordWrap(true);
  bindings.List.push_back({prompt, caption, {}, true});
  auto *words = BindField(bindings, prompt, new QLineEdit);
  words->setMinimumWidth(240);
  words->setAccessibleName(QString("Prompt %1").arg(row + 1));
  auto *field = NumberField(bindings, value, QString("Value %1").arg(row + 1), 10);
  caption->setBuddy(field);
  auto *slider = BindSlider(bindings, NthControl(Ctl::Variable_Slider0, row), new QSlider(Qt::Horizontal));
  slider->setAccessibleName(QString("Slider %1").arg(row + 1));
  slider->setMinimumWidth(170);
  auto *unit = Bind(bindings, NthControl(Ctl::Variable_Unit0, row), Quiet(new QLabel));
  auto *spin = RowLayout(2);
  auto *less = StepButton(bindings, value, row, false), *more = StepButton(bindings, value, row, true);
  spin->addWidget(less);
  spin->addWidget(field);
  spin->addWidget(more);
  const int line = row + 1; // below the heads
  grid.addWidget(caption, line, Words);
  grid.addWidget(words, line, Words); // either of them shows
  grid.addLayout(spin, line, Spin);
  grid.addWidget(slider, line, Slider);
  AddRange(grid, bindings, row, line, Vary);
  grid.addWidget(unit, line, Unit);
  return {caption, words, field, less, more, unit};
}

void CopyRow(const ValueRow &row, const Control &prompt, const Control &value, const Control &slider,
             bool searched) {
  row.Field->setReadOnly(!slider.Enabled); // by hand or by a search
  row.Unit->setMinimumWidth(
      searched ? 0 : QFontMetrics(row.Unit->font()).horizontalAdvance("mm, 20.00 to 80.00"));
  row.Caption->setVisible(prompt.Visible && !prompt.Enabled);
  row.Caption->setEnabled(true);
  row.Prompt->setVisible(prompt.Visible && prompt.Enabled);
  for (QPushButton *button : {row.Less, row.More}) {
    button->setVisible(value.Visible);
    button->setEnabled(slider.Enabled);
  }
}
} // namespace

FormDialog *MakeTemplateValues(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::TemplateForm, std::move(send), parent);
  Bindings &bindings = dialog->Controls;
  auto *column = Column(*dialog);
  column->setSpacing(14);
  auto *whole = new QWidget;
  auto *halves = new QHBoxLayout(whole);
  halves->setContentsMargins(0, 0, 0, 0);
  halves->setSpacing(28);

  auto *left = new QVBoxLayout;
  left->setSpacing(10);
  auto *head = Bind(bindings, Ctl::Template_Head, Head({}));
  left->addWidget(head);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  std::vector<ValueRow> rows;
  for (int row = 0; row < RowCount; ++row) rows.push_back(AddRow(*grid, bindings, row));
  auto *from = Quiet(new QLabel("from")), *to = Quiet(new QLabel("to"));
  for (QLabel *name : {from, to}) name->setAlignment(Qt::AlignRight);
  grid->addWidget(from, 0, From);
  grid->addWidget(to, 0, To);
  grid->setColumnStretch(Slider, 1);
  left->addLayout(grid);
  auto *note = Bind(bindings, Ctl::Template_Note, BadNote(4));
  const int roomy = note->minimumHeight();
  left->addWidget(note);
  const SearchPane search = BuildSearchPane(bindings);
  left->addWidget(search.Pane);
  left->addStretch();
  halves->addLayout(left);

  auto *right = new QVBoxLayout;
  right->setSpacing(10);
  auto *picture = Bind(bindings, Ctl::Template_Picture, new PictureView(360));
  right->addWidget(picture);
  auto *cell = Frame("ChartCell");
  auto *inner = new QVBoxLayout(cell);
  inner->setContentsMargins(10, 6, 6, 4);
  inner->setSpacing(2);
  auto *key = Quiet(new QLabel);
  auto *top = RowLayout();
  top->addWidget(Bind(bindings, Ctl::Template_Chart_Frame, Head({})), 1);
  top->addWidget(key);
  inner->addLayout(top);
  auto *chart = Bind(bindings, Ctl::Template_Chart, new ChartView(Ctl::Template_Chart, bindings.Send, key));
  chart->setFixedHeight(150);
  inner->addWidget(chart);
  right->addWidget(cell);
  auto *figures = new QGridLayout;
  figures->setHorizontalSpacing(12);
  figures->setVerticalSpacing(6);
  int place = 0;
  for (const Ctl figure : Figures) {
    figures->addWidget(Bind(bindings, figure, new FigureLabel({}, {})), place / 3, place % 3);
    figures->setColumnStretch(place++ % 3, 1);
  }
  right->addLayout(figures);
  right->addStretch();
  halves->addLayout(right);
  auto *area = LowScroll(whole);
  column->addWidget(area);

  auto *buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(DialogButton(bindings, Ctl::Template_Preview, false));
  auto *steps = new QCheckBox;
  BindButton(bindings, Ctl::Template_Steps, steps);
  buttons->addWidget(steps);
  buttons->addSpacing(16);
  auto *optimise = DialogButton(bindings, Ctl::Template_Optimise, false);
  optimise->setCheckable(true);
  buttons->addWidget(optimise);
  buttons->addStretch();
  buttons->addWidget(DialogButton(bindings, Ctl::Template_Cancel, false));
  buttons->addWidget(DialogButton(bindings, Ctl::Template_Accept, true));
  column->addLayout(buttons);

  dialog->Follow = [=, &bindings](const Screen &screen) {
    const Theme &theme = ThemeOf(screen);
    const bool searched = screen[Ctl::Optimise_Frame].Visible;
    MarkFields(bindings, screen);
    CopySearch(search, screen);
    for (QLabel *name : {from, to}) name->setVisible(searched);
    note->setMinimumHeight(searched ? 0 : roomy);
    for (int row = 0; row < RowCount; ++row) {
      CopyRow(rows[static_cast<std::size_t>(row)], screen[NthControl(Ctl::Prompt0, row)],
              screen[NthControl(Ctl::VariableName0, row)], screen[NthControl(Ctl::Variable_Slider0, row)],
              searched);
      auto *words = rows[static_cast<std::size_t>(row)].Prompt;
      SetMark(*words, false); // its hint is an example
      words->setToolTip({});
      words->setPlaceholderText(QString::fromStdString(screen[NthControl(Ctl::Prompt0, row)].Hint));
      if (auto *field = qobject_cast<QLineEdit *>(Find(bindings, NthControl(Ctl::VariableName0, row)));
          field && !field->hasFocus())
        field->setCursorPosition(0); // its beginning is to be read
    }
    head->setVisible(!screen[Ctl::Template_Head].Text.empty());
    FitScroll(*area);
    picture->Copy(screen.Template_Picture, theme);
    chart->Copy(screen.Template_Chart, theme);
  };
  return dialog;
}
