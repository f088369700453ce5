#include "desktop/point_strip.h"

#include "desktop/menus.h"
#include "desktop/panes.h"

#include <QBoxLayout>
#include <QToolButton>

namespace {
constexpr Ctl Modes[] = {Ctl::Cursor,     Ctl::End_Ent, Ctl::Center_of_Ent, Ctl::Intersection,
                         Ctl::Along_Line, Ctl::Key_In,  Ctl::Delta,         Ctl::AutoPoint};
constexpr int ModeHeight = 32, PromptRoom = 400; // pixels
} // namespace

PointStrip::PointStrip(Bindings &bindings) {
  setObjectName("PromptStrip");
  Row = new QBoxLayout(QBoxLayout::LeftToRight, this);
  Row->setContentsMargins(16, 5, 12, 5);
  Row->setSpacing(12);
  auto *prompt = Bind(bindings, Ctl::UserPrompt, new QLabel);
  prompt->setFont(TypeFont(Type::Prompt));
  prompt->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto *idle = Bind(bindings, Ctl::Idle_Prompt, new QLabel);
  idle->setFont(TypeFont(Type::Prompt));
  idle->setProperty("quiet", true);
  idle->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Row->addWidget(prompt, 1);
  Row->addWidget(idle, 1);
  Row->addWidget(BuildModes(bindings), 0);
  setMinimumWidth(0);
}

QWidget *PointStrip::BuildModes(Bindings &bindings) {
  auto *frame = Bind(bindings, Ctl::End_Frame, new QWidget);
  auto *row = new QHBoxLayout(frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  for (const Ctl control : Modes) {
    if (control == Ctl::Delta) {
      auto *line = new QFrame;
      line->setFixedSize(1, 20);
      line->setProperty("hairline", true);
      row->addSpacing(4);
      row->addWidget(line);
      row->addSpacing(4);
    }
    const std::string_view name = RowOf(control).Name;
    QToolButton *mode = ToolButton(
        bindings, control, "tools/" + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    mode->setFont(TypeFont(Type::Small));
    mode->setIconSize(QSize(20, 20));
    mode->setProperty("small", true);
    mode->setMinimumWidth(ModeHeight);
    mode->setFixedHeight(ModeHeight);
    row->addWidget(mode);
    Mode.push_back(mode);
  }
  Fields = new QWidget;
  auto *fields = new QHBoxLayout(Fields);
  fields->setContentsMargins(0, 0, 0, 0);
  fields->setSpacing(4);
  AddField(bindings, *fields, Ctl::X_Label, Ctl::X_Input);
  AddField(bindings, *fields, Ctl::Y_Label, Ctl::Y_Input);
  FieldPlace = new QWidget;
  auto *place = new QHBoxLayout(FieldPlace);
  place->setContentsMargins(10, 0, 0, 0);
  place->addWidget(Fields);
  row->addWidget(FieldPlace);
  row->addStretch();
  return frame;
}

void PointStrip::AddField(Bindings &bindings, QBoxLayout &row, Ctl label, Ctl field) {
  auto *words = Bind(bindings, label, new QLabel);
  if (label == Ctl::Y_Label) words->setContentsMargins(8, 0, 0, 0);
  row.addWidget(words);
  auto *input = BindField(bindings, field, new QLineEdit);
  input->setAlignment(Qt::AlignRight);
  input->setFixedWidth(QFontMetrics(TypeFont(Type::Base)).horizontalAdvance("-0000.000") + 20);
  words->setBuddy(input);
  row.addWidget(input);
}

QWidget *PointStrip::TakeFields() {
  FieldPlace->setMinimumWidth(FieldPlace->width());
  return Fields;
}

void PointStrip::PutFields() {
  FieldPlace->layout()->addWidget(Fields);
  FieldPlace->setMinimumWidth(0);
  Fields->show();
}

void PointStrip::resizeEvent(QResizeEvent *) { Arrange(); }

void PointStrip::Arrange() {
  const QFontMetrics words(TypeFont(Type::Small)), base(TypeFont(Type::Base));
  const int fields = 2 * (base.horizontalAdvance("Step deg") + base.horizontalAdvance("-0000.000") + 36);
  int icons = fields + 11, labels = 0;
  for (const QToolButton *mode : Mode) {
    icons += std::max(ModeHeight, mode->iconSize().width() + 12);
    labels += words.horizontalAdvance(mode->text()) + 6;
  }
  const int room = width() - Row->contentsMargins().left() - Row->contentsMargins().right() - Row->spacing();
  const bool below = room < icons + PromptRoom;
  const bool named = room >= icons + labels + (below ? 0 : PromptRoom);
  for (QToolButton *mode : Mode)
    mode->setToolButtonStyle(named ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
  Row->setDirection(below ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  Row->setSpacing(below ? 4 : 12);
  const int line = QFontMetrics(TypeFont(Type::Prompt)).height();
  const int mode = std::max(ModeHeight, base.height() + 12);
  setFixedHeight(below ? line + mode + 16 : std::max(line, mode) + 12);
}
