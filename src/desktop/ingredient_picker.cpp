#include "desktop/ingredient_picker.h"
#include "desktop/theme.h"
#include "platform/events.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace {
constexpr int NoteRole = Qt::UserRole + 1, Gap = 24, Edge = 8;

// The name at the left, its note at the right.
class OfferLine final : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const bool chosen = option.state & QStyle::State_Selected;
    QColor ink = option.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text);
    ink.setAlphaF(0.7F);
    painter->save();
    painter->setFont(TypeFont(Type::Small));
    painter->setPen(ink);
    painter->drawText(option.rect.adjusted(0, 0, -Edge, 0), Qt::AlignRight | Qt::AlignVCenter,
                      index.data(NoteRole).toString());
    painter->restore();
  }
};
} // namespace

IngredientPicker::IngredientPicker(Bindings &bindings, Ctl self)
    : Owner(bindings), Self(self), Offer(new QStandardItemModel(this)) {
  BindField(bindings, self, this);
  auto *list = new QCompleter(Offer, this);
  list->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  list->setMaxVisibleItems(12);
  setCompleter(list);
  // The window system may make the list the active window late, when it has closed: it must not send the keys
  // back here after they went on to the next field.
  list->popup()->setFocusProxy(nullptr);
  list->popup()->setItemDelegate(new OfferLine(list->popup())); // the completer sets its own before
  connect(list, qOverload<const QString &>(&QCompleter::activated), this,
          [this](const QString &name) { Choose(name); });
  connect(this, &QLineEdit::returnPressed, this, [this] { // comes only while the list is open
    if (!completer()->popup()->currentIndex().isValid()) Done();
  });
}

void IngredientPicker::Choose(const QString &name) {
  Touch(Owner, Self);
  Owner.Send(PressOf(Self, name.toStdString()));
  Done();
}

void IngredientPicker::Done() {
  completer()->popup()->hide();
  Owner.Send(KeyIn(Self, 13));
}

void IngredientPicker::Copy(const Control &from) {
  if (from.Item == Shown) return;
  Shown = from.Item;
  Offer->clear();
  const QFontMetrics names(font()), notes(TypeFont(Type::Small));
  int widest = 0;
  for (const std::string &item : from.Item) {
    const QString line = QString::fromStdString(item), name = line.section('\t', 0, 0),
                  note = line.section('\t', 1);
    auto *offered = new QStandardItem(name);
    offered->setData(note, NoteRole);
    Offer->appendRow(offered);
    widest = std::max(widest, names.horizontalAdvance(name) + Gap + notes.horizontalAdvance(note));
  }
  completer()->popup()->setMinimumWidth(widest + 4 * Edge); // with room for the scroll bar
}

void IngredientPicker::keyPressEvent(QKeyEvent *key) {
  if (key->key() == Qt::Key_Down && !completer()->popup()->isVisible()) return completer()->complete();
  QLineEdit::keyPressEvent(key);
}

void IngredientPicker::mousePressEvent(QMouseEvent *mouse) {
  QLineEdit::mousePressEvent(mouse);
  if (text().isEmpty()) completer()->complete();
}
