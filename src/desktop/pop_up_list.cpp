#include "desktop/pop_up_list.h"

#include "desktop/theme.h"

#include <QTimer>
#include <QWidgetAction>

PopUpList::PopUpList(std::function<void(const QString &)> chosen, QWidget *const &tool, QWidget *parent)
    : QMenu(parent), Chosen(std::move(chosen)), Tool(tool), Title(new QLabel) {
  Title->setContentsMargins(17, 4, 17, 6);
  Title->setProperty("quiet", true);
  Title->setFont(TypeFont(Type::Small));
  auto *head = new QWidgetAction(this);
  head->setDefaultWidget(Title);
  addAction(head);
  connect(this, &QMenu::triggered, this, [this](const QAction *action) {
    Wanted = false;
    Chosen(action->text());
  });
}

void PopUpList::Copy(const Control &from) {
  Wanted = from.Visible;
  if (!from.Visible) return hide();
  for (QAction *action : actions())
    if (!qobject_cast<QWidgetAction *>(action)) removeAction(action);
  for (const std::string &item : from.Item) {
    const QString text = QString::fromStdString(item);
    addAction(text)->setObjectName(objectName() + ":" + text);
  }
  if (Tool && !isVisible()) popup(Tool->mapToGlobal(QPoint(Tool->width() + 4, 0)));
}

// A menu hides before it tells what was chosen.
void PopUpList::hideEvent(QHideEvent *event) {
  QMenu::hideEvent(event);
  QTimer::singleShot(0, this, [this] {
    if (!std::exchange(Wanted, false)) return;
    Chosen({});
  });
}
