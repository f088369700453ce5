#include "desktop/help_window.h"

#include "desktop/theme.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QTextBrowser>

HelpWindow::HelpWindow(Sender send, QWidget *parent) : QWidget(parent, Qt::Window), Page(new QTextBrowser) {
  Controls.Send = std::move(send);
  Bind(Controls, Ctl::Help_Window, this);
  setAutoFillBackground(true);
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

void HelpWindow::SendClose() {
  Event e;
  e.What = Event::Kind::Close;
  e.Target = Ctl::Help_Window;
  Controls.Send(e);
}

void HelpWindow::closeEvent(QCloseEvent *close) {
  close->ignore();
  SendClose();
}

void HelpWindow::keyPressEvent(QKeyEvent *key) {
  if (key->key() == Qt::Key_Escape) return SendClose();
  QWidget::keyPressEvent(key);
}
