#include "desktop/qt_screen.h"

#include "desktop/dialogs.h"
#include "desktop/icons.h"

#include <QBuffer>
#include <QCheckBox>
#include <QColorDialog>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QImageReader>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QTreeView>

namespace {
QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// "All Files (*.*)|*.*|Name (*.x)|*.x": captions and patterns in turn. "*.*" means every file here, dot or no
// dot.
QStringList NameFilters(std::string_view filter) {
  const QStringList parts = Text(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters += parts[i] + " (" + (parts[i + 1] == "*.*" ? QString("*") : parts[i + 1]) + ")";
  return filters;
}

struct Offer {
  QMessageBox::StandardButton Button;
  Answer Means;
  const char *Name;
};
constexpr Offer Offers[] = {{QMessageBox::Ok, Answer::Ok, "OK"},
                            {QMessageBox::Yes, Answer::Yes, "Yes"},
                            {QMessageBox::No, Answer::No, "No"},
                            {QMessageBox::Cancel, Answer::Cancel, "Cancel"}};

QMessageBox::StandardButtons ButtonsOf(Buttons offer) {
  switch (offer) {
  case Buttons::Ok: return QMessageBox::Ok;
  case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
  case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
  case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

const char *IconOf(Icon mark) {
  switch (mark) {
  case Icon::None: return nullptr;
  case Icon::Stop: return "stop";
  case Icon::Exclamation: return "exclamation";
  case Icon::Question: return "question";
  }
  return nullptr;
}
} // namespace

QtScreen::QtScreen(QApplication &app) : App(app) {
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const QScreen &screen = *QGuiApplication::primaryScreen();
  PixelWidth = static_cast<int>(screen.size().width());
  SystemIsDark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
  ByHand = true;
  (*this)[Ctl::frmMain].Visible = (*this)[Ctl::frmSplash].Visible = false;
  Colours = &LightTheme();
  ApplyTheme(App, *Colours);
}

QtScreen::~QtScreen() = default;

void QtScreen::Send(const Event &event) {
  if (!OnEvent) return;
  if (Window && Window->isVisible()) MainPlace = Window->Place();
  if (Open.empty()) Used = event.Target;
  OnEvent(event);
  Mirror();
}

void QtScreen::Mirror() {
  const Theme &wanted = (*this)[Ctl::mnuThemeDark].Checked ? DarkTheme() : LightTheme();
  if (&wanted != Colours) {
    Colours = &wanted;
    ApplyTheme(App, wanted);
  }
  const bool splash = (*this)[Ctl::frmSplash].Visible;
  if (splash && !SplashWindow) {
    SplashWindow = std::make_unique<Splash>(Text((*this)[Ctl::frmSplash].Text));
    SplashWindow->show();
  }
  if (!splash) SplashWindow.reset();
  for (FormDialog *dialog : Open) dialog->Copy(*this);

  const bool main = (*this)[Ctl::frmMain].Visible;
  if (main && !Window) Window = std::make_unique<MainWindow>([this](const Event &e) { Send(e); });
  if (Window) Window->Copy(*this, *Colours);
  if (main && !WasShown) {
    WasShown = true;
    Window->Restore(MainPlace);
    Window->show();
    Window->activateWindow();
  }
  if (!main && WasShown) {
    Window->hide();
    App.exit(); // quit would ask the hidden window to close once more
  }
  if (Focus != Ctl::Count) {
    const Ctl wish = std::exchange(Focus, Ctl::Count);
    QWidget *widget = Open.empty() ? nullptr : Find(Open.back()->Controls, wish);
    if (widget) widget->setFocus();
    if (!widget && Window) widget = Window->FocusOn(wish);
    const bool atEnd = std::exchange(CursorAtEnd, false);
    if (auto *field = qobject_cast<QLineEdit *>(widget)) atEnd ? field->end(false) : field->selectAll();
  }
}

// What a question belongs to: the dialog that is open, else the window that was used last.
QWidget *QtScreen::Front() const {
  if (!Open.empty()) return Open.back();
  return Window ? Window->WindowOf(Used) : nullptr;
}

// Windows beside the main one do not get the keys back by themselves everywhere.
void QtScreen::Return() const {
  QWidget *const front = Front();
  if (front && front != Window.get()) front->activateWindow();
}

Answer QtScreen::Ask(const Box &box) {
  const bool window = Window && Window->isVisible() && Open.empty();
  if (box.Passing && box.Offer == Buttons::Ok && window && !QApplication::activeModalWidget()) {
    Window->Tell(Text(box.Text), IconOf(box.Mark));
    return Answer::Ok;
  }
  Mirror();
  QWidget *parent = Front();
  QMessageBox message(parent);
  message.setObjectName("MessageBox");
  message.setWindowTitle(Text(box.Title));
  message.setTextFormat(Qt::PlainText);
  message.setText(Text(box.Text));
  message.setStandardButtons(ButtonsOf(box.Offer));
  if (const char *icon = IconOf(box.Mark))
    message.setIconPixmap(SvgIcon(icon).pixmap(QSize(40, 40), message.devicePixelRatioF()));
  for (const Offer &offer : Offers) {
    if (QAbstractButton *button = message.button(offer.Button)) {
      button->setObjectName(offer.Name);
      button->setIcon({});
      button->setMinimumWidth(88);
    }
  }
  message.layout()->setContentsMargins(24, 22, 24, 20);
  if (auto *grid = qobject_cast<QGridLayout *>(message.layout())) {
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(20);
  }
  const int pressed = message.exec();
  Return();
  for (const Offer &offer : Offers)
    if (offer.Button == pressed) return offer.Means;
  return Answer::Cancel;
}

std::optional<std::string> QtScreen::AskFile(FileUse use, std::string_view filter, std::string_view initial) {
  Mirror();
  QFileDialog dialog(Front(), use == FileUse::Open ? "Open" : "Save As");
  dialog.setObjectName("FileDialog");
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setAcceptMode(use == FileUse::Open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  dialog.setFileMode(use == FileUse::Open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setNameFilters(NameFilters(filter));
  dialog.resize(820, 520);
  for (auto *list : dialog.findChildren<QTreeView *>()) {
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setStretchLastSection(true);
    list->setColumnHidden(2, true); // the type repeats what the name ends with
  }
  if (use == FileUse::SaveAs) // of the last filter, which is the program's own form
    dialog.setDefaultSuffix(Text(filter.substr(filter.rfind('.') + 1)));
  if (!initial.empty()) {
    const QFileInfo file(Text(initial));
    dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
  }
  const bool accepted = dialog.exec() == QDialog::Accepted;
  Return();
  if (!accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().first().toStdString();
}

std::optional<std::uint32_t> QtScreen::AskColour(std::uint32_t initial) {
  Mirror();
  QWidget *parent = Front();
  QColorDialog dialog(FromRed(initial), parent);
  dialog.setObjectName("ColourDialog");
  dialog.setWindowTitle("Colour");
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  for (auto *button : dialog.findChildren<QPushButton *>()) {
    button->setIcon({});
    button->setAutoDefault(button->isDefault());
  }
  dialog.layout()->setContentsMargins(24, 22, 24, 20);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QColor chosen = dialog.selectedColor();
  return static_cast<std::uint32_t>(chosen.red() | chosen.green() << 8 | chosen.blue() << 16);
}

void QtScreen::RunModal(Form form) {
  const auto send = [this](const Event &e) { Send(e); };
  const QPointer<QWidget> before = Front();
  QWidget *parent = Window && Window->isVisible() ? before.get() : nullptr;
  const std::unique_ptr<FormDialog> dialog([&] {
    switch (form) {
    case Form::Dimensions: return MakeDimensions(send, parent);
    case Form::IntroPage: return MakeIntroPage(send, parent);
    case Form::About: return MakeAbout(send, parent);
    case Form::Question: return MakeQuestion(send, parent);
    case Form::HotKey: return MakeHotKey(send, parent);
    case Form::Options: return MakeOptions(send, parent);
    case Form::Grid: return MakeGridControl(send, parent);
    case Form::Increments: return MakeIncrements(send, parent);
    case Form::SaveResults: return MakeSaveResults(send, parent);
    case Form::ExportDxf: return MakeExportDxf(send, parent);
    case Form::FindTool: return MakeFindTool(send, parent);
    case Form::Propellants: return MakePropellants(send, parent);
    case Form::Setup3d: return MakeSetup3d(send, parent);
    case Form::VariableNames: return MakeVariableNames(send, parent);
    case Form::MacroParams: return MakeMacroParams(send, parent);
    case Form::Gallery: return MakeGallery(send, parent);
    case Form::TemplateFile: return MakeTemplateFile(send, parent);
    case Form::TemplateValues: return MakeTemplateValues(send, parent);
    case Form::Preview: return MakePreview(send, parent);
    case Form::TutorMessage: return MakeTutorMessage(send, parent);
    }
    return MakeAbout(send, parent);
  }());
  Open.push_back(dialog.get());
  Mirror();
  dialog->show();
  dialog->activateWindow();
  while ((*this)[dialog->Self].Visible) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  Open.pop_back();
  dialog->hide();
  if (before && before->isVisible())
    before->activateWindow();
  else if (Window)
    Window->activateWindow();
}

void QtScreen::Wait(double seconds) {
  Mirror();
  QEventLoop loop;
  QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
  loop.exec();
}

bool QtScreen::Progress(double part) {
  if (!Window) return true;
  if (!Window->Notice().isVisible()) Window->Copy(*this, *Colours);
  return Window->Notice().Show(part);
}

void QtScreen::StartWork(std::function<void()> work, std::function<void()> done) {
  Worker.Start(std::move(work), std::move(done));
}

void QtScreen::StartSearch(std::function<void(const std::function<void()> &tell)> work,
                           std::function<void()> news, std::function<void()> done) {
  Seeker.Start([this, work = std::move(work), news = std::move(news)] { work([&] { Seeker.Tell(news); }); },
               std::move(done));
}

void QtScreen::StartDiagnosis(std::function<void()> work, std::function<void()> done) {
  Diagnoser.Start(std::move(work), std::move(done));
}

void QtScreen::StartSolids(std::function<void()> work, std::function<void()> done) {
  Mesher.Start(std::move(work), std::move(done));
}

std::string QtScreen::OpenPicture() {
  return Window ? Window->OpenPicture().toStdString() : std::string("There is no window yet");
}

std::string QtScreen::PictureBytes(std::string &png) {
  const QImage picture = Window ? Window->Picture() : QImage();
  if (picture.isNull()) return "The picture could not be drawn";
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  if (!picture.save(&bytes, "PNG")) return "The picture could not be made a PNG file";
  png = bytes.data().toStdString();
  return {};
}

std::string QtScreen::CheckBitmap(const std::string &path) {
  QImageReader reader(QString::fromStdString(path));
  reader.setDecideFormatFromContent(true);
  if (!reader.read().isNull()) return {};
  return path + ": this is no picture that can be shown (" + reader.errorString().toStdString() + ")";
}
