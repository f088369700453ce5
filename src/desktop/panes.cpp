#include "desktop/panes.h"

#include "desktop/chart_view.h"
#include "desktop/elided_label.h"
#include "desktop/figure_label.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

QFrame *Frame(const char *name) {
  auto *frame = new QFrame;
  frame->setObjectName(name);
  return frame;
}

QLabel *Quiet(QLabel *label) {
  label->setProperty("quiet", true);
  label->setFont(TypeFont(Type::Small));
  return label;
}

QLabel *Head(const QString &text) {
  auto *head = Quiet(new QLabel(text));
  head->setFont(TypeFont(Type::Head));
  return head;
}

QFrame *Hairline() {
  auto *line = new QFrame;
  line->setFixedHeight(1);
  line->setProperty("hairline", true);
  return line;
}

QScrollArea *Scrolled(QWidget *pane, int width) {
  auto *area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  pane->setMinimumWidth(width);
  area->setWidget(pane);
  area->setFixedWidth(std::max(width, pane->sizeHint().width()) +
                      area->verticalScrollBar()->sizeHint().width());
  return area;
}

QPushButton *Button(Bindings &bindings, Ctl control) {
  auto *button = new QPushButton;
  BindButton(bindings, control, button);
  return button;
}

QWidget *BuildReportPane(Bindings &bindings) {
  static constexpr struct {
    Ctl Control;
    const char *Caption, *Unit;
  } Figures[] = {{Ctl::Burn_Area, "Max Burn Area", "mm\u00b2"}, {Ctl::Kn_Ratio, "Max Kn Ratio", ""},
                 {Ctl::Ap_At_Ratio, "Ap/At Ratio", ""},         {Ctl::Volume_Loadings, "Volume Loading", ""},
                 {Ctl::Sliver_Fraction, "Sliver Fraction", ""}, {Ctl::Neutrallity, "Neutrality", ""}};
  // Fifteen digits, as the figures without a fixed form have; the words of the button.
  const int digits = QFontMetrics(TypeFont(Type::Large)).horizontalAdvance("00000.000") +
                     QFontMetrics(TypeFont(Type::Small)).horizontalAdvance("00000000");
  const int words = QFontMetrics(TypeFont(Type::Base)).horizontalAdvance("Motor Performance...") + 40;
  const int room = std::max(digits, words) + 40;
  auto *pane = new QWidget;
  auto *column = new QVBoxLayout(pane);
  column->setContentsMargins(16, 14, 16, 16);
  column->setSpacing(14);
  column->addWidget(Head("Report"));
  for (const auto &row : Figures) {
    auto *figure =
        Bind(bindings, row.Control, new FigureLabel(row.Caption, QString::fromUtf8(row.Unit), Type::Large));
    figure->setAccessibleName(row.Caption);
    column->addWidget(figure);
  }
  column->addStretch();
  column->addWidget(Button(bindings, Ctl::Performance_Sim));
  column->addWidget(Button(bindings, Ctl::Save_Results));
  return Bind(bindings, Ctl::Report_Frame, Scrolled(pane, room));
}

QWidget *BuildStatusStrip(Bindings &bindings) {
  auto *strip = Frame("StatusStrip");
  auto *row = new QHBoxLayout(strip);
  row->setContentsMargins(16, 0, 16, 0);
  row->setSpacing(24);
  // The keys of this step come first: what the status says of keys they say too.
  auto *hints = Bind(bindings, Ctl::sbHints, new ElidedLabel);
  auto *status = Bind(bindings, Ctl::sbStatusBar, new ElidedLabel("X:-0000.000  Y:-0000.000"));
  hints->setFont(TypeFont(Type::Small));
  status->setFont(TypeFont(Type::Small));
  status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  status->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(hints);
  row->addWidget(status, 1);
  strip->setFixedHeight(QFontMetrics(TypeFont(Type::Small)).height() + 12);
  return strip;
}

QWidget *BuildRecoveryBar(Bindings &bindings) {
  auto *bar = Bind(bindings, Ctl::RecoveryBar, new QFrame);
  auto *row = new QHBoxLayout(bar);
  row->setContentsMargins(16, 8, 16, 8);
  row->setSpacing(8);
  auto *text = new QLabel;
  text->setWordWrap(true);
  bindings.List.push_back({Ctl::RecoveryBar, text, {}, true});
  row->addWidget(text, 1);
  row->addWidget(Button(bindings, Ctl::Recovery_SaveAs));
  row->addWidget(Button(bindings, Ctl::Recovery_Discard));
  return bar;
}

QWidget *BuildChartCell(Bindings &bindings, Ctl frame, Ctl chart, ChartView *&view) {
  auto *cell = Frame("ChartCell");
  auto *column = new QVBoxLayout(cell);
  column->setContentsMargins(12, 8, 8, 6);
  column->setSpacing(2);
  auto *head = Head({});
  bindings.List.push_back({frame, head, {}, true});
  auto *key = Quiet(new QLabel);
  auto *row = new QHBoxLayout;
  row->addWidget(head, 1);
  row->addWidget(key);
  column->addLayout(row);
  view = Bind(bindings, chart, new ChartView(chart, bindings.Send, key));
  column->addWidget(view, 1);
  bindings.List.push_back({frame, cell, {}, true});
  cell->setProperty("frame", true);
  return cell;
}

QWidget *BuildEmptyCard(Bindings &bindings) {
  auto *card = Frame("Empty_Card");
  auto *column = new QVBoxLayout(card);
  column->setContentsMargins(24, 18, 24, 20);
  column->setSpacing(14);
  auto *hint = Bind(bindings, Ctl::Empty_Hint, new QLabel);
  hint->setAlignment(Qt::AlignCenter);
  column->addWidget(hint);
  auto *ways = new QVBoxLayout; // below each other: a small drawing has no room for three in a row
  ways->setSpacing(8);
  for (const Ctl control : {Ctl::Empty_Circle, Ctl::Empty_Open, Ctl::Empty_Template})
    ways->addWidget(Button(bindings, control));
  column->addLayout(ways);
  card->setCursor(Qt::ArrowCursor);
  bindings.List.push_back({Ctl::Empty_Hint, card, {}, true});
  return card;
}
