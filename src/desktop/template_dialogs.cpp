#include "desktop/dialogs.h"
#include "desktop/form_parts.h"
#include "desktop/name_list.h"
#include "desktop/panes.h"
#include "desktop/picture_view.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <algorithm>

namespace {
constexpr int RowCount = 10;
} // namespace

FormDialog *MakeVariableNames(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::VariableNameForm, std::move(send), parent);
  auto *column = Column(*dialog);
  column->setSpacing(14);
  auto *words =
      Quiet(new QLabel("Name what shall be asked for when the template is used, with the value to draw "
                       "it by now. A value may be a formula of the rows above it."));
  words->setWordWrap(true);
  column->addWidget(words);
  auto *rows = new QWidget;
  auto *grid = GridLayout(rows, 12, 6);
  grid->addWidget(Head("Name"), 0, 1);
  grid->addWidget(Head("Value"), 0, 2);
  for (int row = 0; row < RowCount; ++row) {
    auto *number = Quiet(new QLabel(QString::number(row + 1)));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *name = BindField(dialog->Controls, NthControl(Ctl::Text1_0, row), new QLineEdit);
    auto *value = BindField(dialog->Controls, NthControl(Ctl::Variable_Value0, row), new QLineEdit);
    name->setMinimumWidth(220);
    name->setAccessibleName(QString("Name %1").arg(row + 1));
    value->setAccessibleName(QString("Value %1").arg(row + 1));
    value->setAlignment(Qt::AlignRight);
    value->setFixedWidth(150);
    for (QLineEdit *box : {name, value}) box->setProperty("plain", row < 2);
    grid->addWidget(number, row + 1, 0);
    grid->addWidget(name, row + 1, 1);
    grid->addWidget(value, row + 1, 2);
  }
  auto *area = LowScroll(rows);
  column->addWidget(area);
  column->addWidget(Bind(dialog->Controls, Ctl::Variable_Note, BadNote(2)));
  AddDialogButtons(*dialog, *column, Ctl::Variable_Next, Ctl::Variable_Cancel);
  dialog->Follow = [dialog, area](const Screen &screen) {
    MarkFields(dialog->Controls, screen);
    FitScroll(*area);
  };
  return dialog;
}

FormDialog *MakeMacroParams(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::MacroParams, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *label = Bind(dialog->Controls, Ctl::MacroParams_Label, new QLabel);
  label->setFont(TypeFont(Type::Prompt));
  label->setMinimumWidth(280);
  column->addWidget(label);
  for (const Ctl control : {Ctl::MacroParams_Value, Ctl::MacroParams_Mouse}) {
    auto *option = new QRadioButton;
    BindButton(dialog->Controls, control, option);
    column->addWidget(option);
  }
  column->setSpacing(8);
  column->addSpacing(6);
  AddDialogButtons(*dialog, *column, Ctl::MacroParams_Accept, Ctl::MacroParams_Cancel);
  return dialog;
}

FormDialog *MakeTemplateFile(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Template_File, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *text = Bind(dialog->Controls, Ctl::Template_File_Text, new QPlainTextEdit);
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setAccessibleName("File");
  text->setMinimumSize(640, std::min(460, dialog->screen()->availableGeometry().height() - 140));
  QFont even = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  even.setPointSizeF(TypeFont(Type::Small).pointSizeF());
  text->setFont(even);
  column->addWidget(text);
  AddDialogButtons(*dialog, *column, Ctl::Template_File_Close);
  dialog->Follow = [text](const Screen &screen) {
    const QString wanted = QString::fromStdString(screen[Ctl::Template_File_Text].Text);
    if (text->toPlainText() != wanted) text->setPlainText(wanted);
  };
  return dialog;
}

FormDialog *MakePreview(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::PreviewForm, std::move(send), parent);
  auto *column = Column(*dialog);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  auto *picture = Bind(dialog->Controls, Ctl::GrainPic,
                       new PictureView(std::min(600, dialog->screen()->availableGeometry().height() - 140)));
  column->addWidget(picture);
  AddDialogButtons(*dialog, *column, Ctl::Preview_Close);
  dialog->Follow = [picture](const Screen &screen) {
    picture->Copy(screen.Template_Picture, ThemeOf(screen));
  };
  return dialog;
}
