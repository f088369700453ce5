#include "desktop/dialogs.h"
#include "desktop/event_codes.h"
#include "desktop/form_parts.h"
#include "desktop/panes.h"
#include "desktop/picture_view.h"
#include "desktop/pop_up_list.h"
#include "platform/events.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace {
constexpr int Tile = 168; // pixels, of a picture

// The grain without the corners of its picture, which are of another theme.
QPixmap Rounded(const QPixmap &picture) {
  QPixmap round(picture.size());
  round.setDevicePixelRatio(picture.devicePixelRatio());
  round.fill(Qt::transparent);
  QPainter painter(&round);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QBrush(picture));
  painter.drawEllipse(QRectF(0, 0, Tile, Tile).adjusted(2, 2, -2, -2));
  return round;
}

// A description may begin with the name it stands below.
QString Described(const QString &name, QString note) {
  if (note.compare(name, Qt::CaseInsensitive) == 0) return {};
  if (note.startsWith(name + ": ")) note.remove(0, name.size() + 2);
  if (!note.isEmpty()) note[0] = note[0].toUpper();
  return note;
}

// ListView1: pictures with their names. Keys and clicks are events of the core's.
class GalleryView final : public QListView {
public:
  explicit GalleryView(Bindings &bindings) : Owner(bindings), Spot(viewport()) {
    setAccessibleName("Templates");
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setIconSize({Tile, Tile});
    setSpacing(6);
    setWordWrap(true);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setModel(&Model);
    Spot.setFixedSize(0, 0);
    Bind(bindings, Ctl::ListView1, this);
    connect(this, &QListView::doubleClicked, this, [this] { Owner.Send(PressOf(Ctl::Use_Template)); });
  }

  void Copy(const Screen &screen, const Theme &theme) {
    if (Number != screen.GalleryNumber || Colours != &theme) {
      Number = screen.GalleryNumber;
      Colours = &theme;
      Told = true;
      const int scrolled = verticalScrollBar()->value();
      Model.clear();
      for (const PictureItem &item : screen.Gallery) AddItem(item);
      verticalScrollBar()->setValue(scrolled);
      Told = false;
    }
    const QModelIndex wanted = Model.index(screen[Ctl::ListView1].Index, 0);
    if (wanted == currentIndex()) return;
    Told = true;
    setCurrentIndex(wanted);
    Told = false;
  }

protected:
  void currentChanged(const QModelIndex &now, const QModelIndex &before) override {
    QListView::currentChanged(now, before);
    if (!Told && now.isValid()) Press(now, 0);
  }
  void contextMenuEvent(QContextMenuEvent *menu) override {
    const QModelIndex at =
        menu->reason() == QContextMenuEvent::Keyboard ? currentIndex() : indexAt(menu->pos());
    if (!at.isValid()) return;
    Spot.move(menu->reason() == QContextMenuEvent::Keyboard ? visualRect(at).center() : menu->pos());
    Owner.Asked = &Spot;
    Touch(Owner, Ctl::ShortCutMenu);
    Press(at, 2);
  }
  void keyPressEvent(QKeyEvent *key) override {
    const int code = KeyCode(*key), shift = ShiftCode(key->modifiers());
    const bool moves = shift == 4 && (code == 38 || code == 40);
    if (code != 13 && code != 46 && code != 113 && !moves) return QListView::keyPressEvent(key);
    Owner.Send(KeyIn(Ctl::ListView1, code, shift));
  }

private:
  void Press(const QModelIndex &at, int button) {
    Owner.Send(PressOf(Ctl::ListView1, at.data(Qt::UserRole).toString().toStdString(), button));
  }

  void AddItem(const PictureItem &from) {
    const double ratio = devicePixelRatioF();
    const QSize pixels = QSize(Tile, Tile) * ratio;
    QPixmap picture;
    if (!from.PictureFile.empty()) picture.load(QString::fromStdString(from.PictureFile));
    if (picture.isNull()) {
      picture = QPixmap(pixels);
      picture.setDevicePixelRatio(ratio);
      QPainter painter(&picture);
      PaintPicture(painter, from.Drawing, QSizeF(Tile, Tile), *Colours);
    } else {
      picture = picture.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
      picture.setDevicePixelRatio(ratio);
    }
    const QString name = QString::fromStdString(from.Name);
    const QString note = Described(name, QString::fromStdString(from.Note));
    picture = Rounded(picture);
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected); // not tinted
    auto *item = new QStandardItem(icon, name);
    item->setData(name, Qt::UserRole);
    if (!note.isEmpty()) item->setText(name + "\n" + note);
    item->setToolTip(note);
    item->setTextAlignment(Qt::AlignHCenter | Qt::AlignTop);
    const int line = QFontMetrics(font()).height();
    item->setSizeHint({Tile + 28, Tile + 3 * line + 16});
    Model.appendRow(item);
  }

  Bindings &Owner;
  QStandardItemModel Model;
  QWidget Spot; // where the menu opens
  const Theme *Colours = nullptr;
  unsigned Number = 0;
  bool Told = false;
};
} // namespace

FormDialog *MakeGallery(Sender send, QWidget *parent) {
  auto *dialog = new FormDialog(Ctl::Grain_Selection_Window, std::move(send), parent);
  Bindings &bindings = dialog->Controls;
  auto *column = new QVBoxLayout(dialog);
  column->setContentsMargins(20, 20, 20, 16);
  column->setSpacing(14);
  auto *list = new GalleryView(bindings);
  constexpr QSize around(40, 130); // margins and buttons
  list->setMinimumSize(QSize(4 * (Tile + 40) + 30, 2 * (Tile + 90))
                           .boundedTo(list->screen()->availableGeometry().size() - around));
  column->addWidget(list, 1);
  auto *note = Bind(bindings, Ctl::Gallery_Note, Quiet(new QLabel));
  note->setWordWrap(true);
  column->addWidget(note);
  auto *row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(DialogButton(bindings, Ctl::Add_Grain_Geometry, false));
  row->addStretch();
  row->addWidget(DialogButton(bindings, Ctl::Gallery_Close, false));
  row->addWidget(DialogButton(bindings, Ctl::Use_Template, true));
  column->addLayout(row);
  auto *menu = new PopUpList(
      [&bindings](const QString &item) {
        Touch(bindings, Ctl::ShortCutMenu);
        bindings.Send(PressOf(Ctl::ShortCutMenu, item.toStdString()));
      },
      bindings.Asked, dialog);
  Bind(bindings, Ctl::ShortCutMenu, menu);
  menu->actions().front()->setVisible(false);
  dialog->Follow = [list, note](const Screen &screen) {
    note->setVisible(!screen[Ctl::Gallery_Note].Text.empty());
    list->Copy(screen, ThemeOf(screen));
  };
  return dialog;
}
