#include "desktop/live_burn_pane.h"

#include "desktop/chart_view.h"
#include "desktop/figure_label.h"
#include "desktop/panes.h"
#include "platform/events.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace {
class LeaveTeller final : public QObject {
public:
  LeaveTeller(Sender send, QObject *parent) : QObject(parent), Send(std::move(send)) {}

protected:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() != QEvent::Leave) return false;
    Send(MouseAt(Event::Kind::Leave, Ctl::MyLiveChart, 0, 0));
    return false;
  }

private:
  Sender Send;
};

constexpr Ctl Figures[] = {Ctl::Live_MaxKn,      Ctl::Live_FirstKn, Ctl::Live_MaxArea, Ctl::Live_Distance,
                           Ctl::Live_Neutrality, Ctl::Live_Sliver,  Ctl::Live_Loading, Ctl::Live_ApAt};
} // namespace

LiveBurnPane::LiveBurnPane(Bindings &bindings) {
  constexpr int ChartHeight = 160;
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(4, 0, 4, 0);
  column->setSpacing(8);
  auto *head = Head({});
  bindings.List.push_back({Ctl::Live_Frame, head, {}, true});
  auto *key = Quiet(new QLabel);
  auto *row = new QHBoxLayout;
  row->addWidget(head, 1);
  row->addWidget(key);
  column->addLayout(row);
  View = Bind(bindings, Ctl::MyLiveChart, new ChartView(Ctl::MyLiveChart, bindings.Send, key));
  View->installEventFilter(new LeaveTeller(bindings.Send, View));
  View->setFixedHeight(ChartHeight);
  column->addWidget(View);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  int place = 0;
  for (const Ctl figure : Figures) {
    grid->addWidget(Bind(bindings, figure, new FigureLabel({}, {}, Type::Base)), place / 2, place % 2);
    ++place;
  }
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  column->addLayout(grid);
  Note = Bind(bindings, Ctl::Live_Note, new QLabel);
  Quiet(Note)->setWordWrap(true);
  column->addWidget(Note);
  Bind(bindings, Ctl::Live_Frame, this);
}

void LiveBurnPane::Copy(const Screen &screen, const Theme &theme) {
  View->Copy(screen.MyLiveChart, theme);
  Note->setVisible(screen[Ctl::Live_Note].Visible && !screen[Ctl::Live_Note].Text.empty());
}
