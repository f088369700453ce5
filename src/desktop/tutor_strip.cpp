#include "desktop/tutor_strip.h"

#include "desktop/dialogs.h"
#include "desktop/form_parts.h"
#include "desktop/icons.h"
#include "desktop/panes.h"
#include "desktop/theme.h"

#include <QComboBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>

namespace {
QLabel *Words(Bindings &bindings, Ctl control, Type type) {
  auto *label = Bind(bindings, control, new QLabel);
  label->setFont(TypeFont(type));
  label->setTextFormat(Qt::PlainText);
  return label;
}

QPushButton *StripButton(Bindings &bindings, Ctl control, bool chief = false) {
  auto *button = Button(bindings, control);
  button->setFocusPolicy(Qt::TabFocus);
  button->setProperty("chief", chief);
  return button;
}

QLabel *Wrapped(QLabel *label) {
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
}
} // namespace

TutorStrip::TutorStrip(Bindings &bindings) {
  Bind(bindings, Ctl::TutorFrame, this);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(16, 8, 16, 8);
  column->setSpacing(4);
  auto *top = RowLayout(12);
  auto *picture = new QLabel;
  picture->setPixmap(SvgIcon("tutor").pixmap(QSize(22, 22), devicePixelRatioF()));
  top->addWidget(picture);
  top->addWidget(Words(bindings, Ctl::Tutor_Head, Type::Head));
  Lessons = ItemBox(bindings, Ctl::TutorCombo, "Lesson");
  Lessons->setMinimumContentsLength(44);
  Lessons->setMaxVisibleItems(20);
  top->addWidget(Lessons);
  top->addWidget(Quiet(Words(bindings, Ctl::Tutor_Step, Type::Small)));
  Progress = Bind(bindings, Ctl::Tutor_Progress, new QProgressBar);
  Progress->setTextVisible(false);
  Progress->setFixedWidth(160);
  top->addWidget(Progress);
  top->addStretch(1);
  auto *tolerance = NumberField(bindings, Ctl::Tutor_Tolerance, "Tolerance", 6);
  auto *label = Quiet(Words(bindings, Ctl::Tutor_Tolerance_Label, Type::Small));
  label->setBuddy(tolerance);
  top->addWidget(label);
  top->addWidget(tolerance);
  for (const Ctl control : {Ctl::MacroPause, Ctl::Tutor_Again, Ctl::TutorCancel})
    top->addWidget(StripButton(bindings, control));
  for (const Ctl control : {Ctl::MacroStop, Ctl::Tutor_Start})
    top->addWidget(StripButton(bindings, control, true));
  column->addLayout(top);
  Prompt = Wrapped(Words(bindings, Ctl::Tutor_Prompt, Type::Prompt));
  column->addWidget(Prompt);
  Note = Wrapped(new QLabel); // not bound: a low screen decides too whether it is shown
  Note->setObjectName("Tutor_Note");
  Note->setTextFormat(Qt::PlainText);
  column->addWidget(Note);
}

void TutorStrip::Copy(const Screen &screen) {
  CopyItems(*Lessons, screen[Ctl::TutorCombo]);
  const Control &progress = screen[Ctl::Tutor_Progress];
  Progress->setRange(0, std::max(1, static_cast<int>(progress.Most)));
  Progress->setValue(progress.Index);
  Progress->setAccessibleName(QString::fromStdString(screen[Ctl::Tutor_Step].Text));
  const Control &note = screen[Ctl::Tutor_Note];
  SetMark(*Note, note.Checked);
  Note->setText(QString::fromStdString(note.Text));
  Note->setVisible(note.Visible && (!LowScreen() || note.Checked));
  if (const std::string words = screen[Ctl::Tutor_Prompt].Text + "\n" + note.Text; words != Told) {
    Told = words;
    // A change of height sends an event back into this call, and the layout's own request gets lost in it.
    QMetaObject::invokeMethod(
        this,
        [this] {
          layout()->invalidate();
          updateGeometry();
        },
        Qt::QueuedConnection);
  }
  if (Prompts == screen[Ctl::Tutor_Prompt].Item) return;
  Prompts = screen[Ctl::Tutor_Prompt].Item;
  Reserve();
}

// The drawing and both charts of a burn stand below.
bool TutorStrip::LowScreen() const { return screen()->availableGeometry().height() < 600; }

void TutorStrip::resizeEvent(QResizeEvent *event) {
  QFrame::resizeEvent(event);
  Reserve();
}

void TutorStrip::Reserve() {
  QFont font = TypeFont(Type::Prompt);
  if (LowScreen()) font.setPointSizeF(TypeFont(Type::Base).pointSizeF());
  Prompt->setFont(font);
  const QMargins margins = layout()->contentsMargins();
  const int wide = std::max(200, width() - margins.left() - margins.right());
  const QFontMetrics words(Prompt->font());
  int high = 0;
  for (const std::string &prompt : LowScreen() ? std::vector<std::string>() : Prompts)
    high = std::max(high, words
                              .boundingRect(QRect(0, 0, wide, 10000), Qt::TextWordWrap | Qt::AlignLeft,
                                            QString::fromStdString(prompt))
                              .height());
  Prompt->setMinimumHeight(high);
  Note->setMinimumHeight(high > 0 ? QFontMetrics(Note->font()).height() : 0);
}

QWidget *BuildTutorNote(Bindings &bindings) {
  auto *frame = Bind(bindings, Ctl::TutorFrame, new QFrame);
  auto *column = new QVBoxLayout(frame);
  column->setContentsMargins(12, 8, 12, 8);
  column->setSpacing(4);
  for (const auto &[control, type] :
       {std::pair{Ctl::Tutor_Prompt, Type::Prompt}, std::pair{Ctl::Tutor_Note, Type::Base}})
    column->addWidget(Wrapped(Words(bindings, control, type)));
  return frame;
}

FormDialog *MakeTutorMessage(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::TutorMsgForm, std::move(send), parent);
  auto *column = Column(*dialog);
  auto *row = RowLayout(14);
  auto *picture = new QLabel;
  picture->setPixmap(SvgIcon("tutor").pixmap(QSize(40, 40), dialog->devicePixelRatioF()));
  row->addWidget(picture, 0, Qt::AlignTop);
  auto *text = Wrapped(Words(dialog->Controls, Ctl::Tutor_Message, Type::Base));
  text->setMinimumWidth(380);
  row->addWidget(text, 1);
  column->addLayout(row);
  auto *buttons = RowLayout();
  buttons->addStretch();
  buttons->addWidget(DialogButton(dialog->Controls, Ctl::Command1, true));
  column->addLayout(buttons);
  return dialog;
}
