#include "desktop/dialogs.h"
#include "desktop/form_parts.h"

#include "desktop/command_frames.h"
#include "desktop/panes.h"
#include "desktop/theme.h"
#include "drafting/view.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

namespace {
// What the dialog holds now.
struct GridLook {
  int Style = 0; // as GridLineType
  QColor Grid, Line, Ground;
};

GridLook LookOf(const Screen &screen, const Theme &theme) {
  GrainDoc doc;
  doc.BackColor = static_cast<float>(screen[Ctl::Screen_BG_Color].Colour);
  doc.LineColor = static_cast<float>(screen[Ctl::Screen_Line_Color].Colour);
  doc.GridColor = static_cast<float>(screen[Ctl::Grid_Color].Colour);
  GridLook look{0, theme.GridFifth, theme.Geometry, theme.Ground};
  const auto own = [&screen](Ctl control) { return FromRed(screen[control].Colour); };
  if (HasOwnColours(doc))
    look = {0, own(Ctl::Grid_Color), own(Ctl::Screen_Line_Color), own(Ctl::Screen_BG_Color)};
  look.Style = screen[Ctl::Dashed_Line].Checked   ? 1
               : screen[Ctl::Dotted_Line].Checked ? 2
               : screen[Ctl::Dots].Checked        ? 99
                                                  : 0;
  return look;
}

// A corner of a drawing: eight grid lines each way and a line and an arc on them.
class GridPreview final : public QWidget {
public:
  GridPreview() { setFixedSize(184, 184); }
  void Show(const GridLook &look) {
    Look = look;
    update();
  }

protected:
  void paintEvent(QPaintEvent *) override {
    constexpr int Lines = 8, Step = 22;
    QPainter painter(this);
    painter.fillRect(rect(), Look.Ground);
    const auto at = [](int i) { return 15 + i * Step; };
    QPen pen(Look.Grid, 1);
    if (Look.Style == 1) pen.setDashPattern({6, 4});
    if (Look.Style == 2) pen.setDashPattern({1, 3});
    painter.setPen(pen);
    for (int i = 0; i < Lines; ++i) {
      if (Look.Style != 99) {
        painter.drawLine(at(i), 0, at(i), height());
        painter.drawLine(0, at(i), width(), at(i));
      } else {
        for (int k = 0; k < Lines; ++k)
          painter.fillRect(QRectF(at(i) - 0.75, at(k) - 0.75, 1.5, 1.5), Look.Grid);
      }
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Look.Line, 1.75, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(at(1), at(6), at(1), at(3));
    painter.drawArc(QRectF(at(1), at(1), 4 * Step, 4 * Step), 90 * 16, 90 * 16);
    painter.drawLine(at(3), at(1), at(6), at(1));
  }

private:
  GridLook Look;
};

QPushButton *ColourButton(Bindings &bindings, Ctl control) {
  auto *button = new QPushButton;
  button->setProperty("sample", true);
  button->setIconSize(SampleSize);
  button->setAutoDefault(false);
  BindButton(bindings, control, button);
  return button;
}
} // namespace

FormDialog *MakeGridControl(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Grid_Control, std::move(send), parent);
  Bindings &bindings = dialog->Controls;
  auto *column = Column(*dialog);
  auto *row = new QHBoxLayout;
  row->setSpacing(28);
  auto *left = new QVBoxLayout;
  left->setSpacing(6);
  left->addWidget(LabelledField(bindings, Ctl::Grid_Spacing, "Grid Spacing", "mm"));
  for (const Ctl control : {Ctl::Grid_Display, Ctl::Grid_Snap}) {
    auto *box = new QCheckBox;
    BindButton(bindings, control, box);
    left->addWidget(box, 0, Qt::AlignLeft);
  }
  left->addSpacing(8);
  left->addWidget(Bind(bindings, Ctl::Grid_Line_Type, Head({})));
  auto *styles = new QGridLayout;
  styles->setSpacing(4);
  int place = 0;
  for (const Ctl control : {Ctl::SolidLine, Ctl::Dashed_Line, Ctl::Dotted_Line, Ctl::Dots}) {
    styles->addWidget(Option(bindings, control), place / 2, place % 2, Qt::AlignLeft);
    ++place;
  }
  left->addLayout(styles);
  left->addStretch();
  row->addLayout(left);
  auto *preview = Bind(bindings, Ctl::Grid_Preview, new GridPreview);
  row->addWidget(preview, 0, Qt::AlignTop);
  column->addLayout(row);
  auto *colours = new QHBoxLayout;
  colours->setSpacing(8);
  for (const Ctl control : {Ctl::Grid_Color, Ctl::Screen_Line_Color, Ctl::Screen_BG_Color})
    colours->addWidget(ColourButton(bindings, control));
  colours->addStretch();
  column->addLayout(colours);
  AddDialogButtons(*dialog, *column, Ctl::Grid_OK, Ctl::Grid_Cancel, Ctl::SaveAsDefault);
  dialog->Follow = [preview](const Screen &screen) { preview->Show(LookOf(screen, ThemeOf(screen))); };
  return dialog;
}
