#include "desktop/template_strip.h"

#include "desktop/form_parts.h"
#include "desktop/name_list.h"
#include "desktop/panes.h"

#include <QApplication>
#include <QPushButton>
#include <memory>

namespace {
// As high as its rows need.
class RowsOfNames final : public QObject {
public:
  explicit RowsOfNames(QListWidget &list) : QObject(&list), List(list) {
    list.setFlow(QListView::LeftToRight);
    list.setWrapping(true);
    list.setResizeMode(QListView::Adjust);
    list.setSpacing(1);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setFixedHeight(36);
    list.installEventFilter(this);
    connect(list.model(), &QAbstractItemModel::rowsInserted, this, [this] { Fit(); });
  }

protected:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
      QMetaObject::invokeMethod(
          this, [this] { Fit(); }, Qt::QueuedConnection);
    return false;
  }

private:
  void Fit() {
    if (List.count() == 0) return;
    const int bottom =
        List.visualItemRect(List.item(List.count() - 1)).bottom() - List.visualItemRect(List.item(0)).top();
    List.setFixedHeight(std::max(bottom, 20) + 12);
  }
  QListWidget &List;
};
} // namespace

QWidget *BuildTemplateStrip(Bindings &bindings) {
  auto *bar = Bind(bindings, Ctl::TemplateNoteFrame, new QFrame);
  auto *column = new QVBoxLayout(bar);
  column->setContentsMargins(16, 8, 16, 8);
  column->setSpacing(6);
  auto *row = RowLayout();
  auto *dot = new QLabel("\u25cf");
  dot->setProperty("bad", true);
  auto *text = new QLabel;
  text->setWordWrap(true);
  bindings.List.push_back({Ctl::TemplateNoteFrame, text, {}, true});
  row->addWidget(dot);
  row->addWidget(text, 1);
  for (const Ctl control : {Ctl::Macro_Step, Ctl::Paused_Button, Ctl::Cancel_Macro, Ctl::Stop_Macro}) {
    auto *button = Button(bindings, control);
    button->setFocusPolicy(Qt::TabFocus);
    button->setProperty("chief", control == Ctl::Stop_Macro);
    row->addWidget(button);
  }
  column->addLayout(row);
  const auto last = std::make_shared<QPointer<QLineEdit>>(); // the field used last
  auto *names = new NameList(bindings, Ctl::VariableList2, true, [last] { return last->data(); });
  QObject::connect(qApp, &QApplication::focusChanged, names, [last, bar](QWidget *, QWidget *now) {
    if (auto *field = qobject_cast<QLineEdit *>(now); field && field->window() == bar->window())
      *last = field;
  });
  new RowsOfNames(*names);
  column->addWidget(names);
  return bar;
}
