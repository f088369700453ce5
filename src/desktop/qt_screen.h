#pragma once
#include "desktop/live_burn_worker.h"
#include "desktop/main_window.h"
#include "desktop/splash.h"
#include "platform/screen.h"

#include <QApplication>
#include <memory>

class FormDialog;

// The screen of the desktop: widgets show what the core wrote, and send what the user did.
class QtScreen : public Screen {
public:
  explicit QtScreen(QApplication &);
  ~QtScreen() override;

  Answer Ask(const Box &) override;
  std::optional<std::string> AskFile(FileUse, std::string_view filter, std::string_view initial) override;
  std::optional<std::uint32_t> AskColour(std::uint32_t initial) override;
  void RunModal(Form) override;
  void Wait(double seconds) override;
  bool Progress(double part) override;
  void StartWork(std::function<void()> work, std::function<void()> done) override;
  void StartSearch(std::function<void(const std::function<void()> &tell)> work, std::function<void()> news,
                   std::function<void()> done) override;
  void StartDiagnosis(std::function<void()> work, std::function<void()> done) override;

  void StartSolids(std::function<void()> work, std::function<void()> done) override;
  std::string OpenPicture() override;
  std::string PictureBytes(std::string &png) override;
  std::string CheckBitmap(const std::string &path) override;

  void Send(const Event &);
  void Mirror(); // brings every window to what the core wrote; ends the event loop once frmMain was closed
  MainWindow &Main() { return *Window; }

private:
  QWidget *Front() const;
  void Return() const;

  QApplication &App;
  std::unique_ptr<MainWindow> Window;
  std::unique_ptr<Splash> SplashWindow;
  std::vector<FormDialog *> Open;
  const Theme *Colours = nullptr;
  Ctl Used = Ctl::Count; // of the last event outside of a dialog
  bool WasShown = false;
  LiveBurnWorker Worker{[this] { Mirror(); }}, Diagnoser{[this] { Mirror(); }}, Mesher{[this] { Mirror(); }},
      Seeker{[this] { Mirror(); }};
};
