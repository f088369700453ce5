#include "desktop/help_window.h"

#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QTextBrowser>

HelpWindow::HelpWindow(Sender send, QWidget *parent)
    : SideWindow(Ctl::Help_Window, std::move(send), parent), Page(new QTextBrowser) {
  resize(860, 640);
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(12, 12, 12, 12);
  row->setSpacing(12);
  auto *list = BindList(Controls, Ctl::Help_List, new QListWidget);
  list->setAccessibleName("Pages");
  list->setFixedWidth(QFontMetrics(list->font()).horizontalAdvance("Circle by Center and Edge") + 44);
  row->addWidget(list);
  Page->setObjectName("Help_Text");
  Page->document()->setDocumentMargin(16);
  Page->setOpenExternalLinks(false);
  Page->setOpenLinks(false);
  row->addWidget(Page, 1);
  list->setFocus();
}

void HelpWindow::Copy(const Screen &screen) {
  Mirror(Controls, screen);
  if (auto *list = qobject_cast<QListWidget *>(Find(Controls, Ctl::Help_List)); list && list->currentItem())
    list->scrollToItem(list->currentItem());
  const std::string &text = screen[Ctl::Help_Text].Text;
  if (text == Shown) return;
  Shown = text;
  Page->setMarkdown(QString::fromStdString(text));
}
