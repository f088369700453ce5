#pragma once
#include "platform/chart.h"
#include "platform/controls.h"
#include "platform/draw_surface.h"
#include "platform/event.h"
#include "platform/plot.h"
#include "platform/scene.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct Control {
  std::string Text;
  std::string Hint; // tooltip; for a disabled control: why
  bool Visible = false, Enabled = true, Checked = false;
  int Height = 0;
  std::uint32_t Colour = 0; // of a button's face or a colour's sample, red in the low byte; 0: the theme's
  std::vector<std::string> Item; // of a list
  int Index = -1;                // the item chosen
  double Least = 0, Most = 0;    // of a slider, whose Text holds its value
  bool operator==(const Control &) const = default;
};

// Where the main window stands, in pixels; Width 0: not known, the screen chooses.
struct WindowPlace {
  int Left = 0, Top = 0, Width = 0, Height = 0;
  bool Minimised = false;
  int SideWidth = 0, ChartHeight = 0; // of the side pane and of the charts below the drawing; 0: not known
};

enum class Answer : std::uint8_t { Ok, Cancel, Yes, No };
enum class Buttons : std::uint8_t { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon : std::uint8_t { None, Stop, Exclamation, Question };
struct Box {
  std::string Text, Title;
  Buttons Offer = Buttons::Ok;
  Icon Mark = Icon::None;
  bool Passing = false; // only tells; a screen may show it without stopping the user
};
enum class Form : std::uint8_t {
  Dimensions,
  IntroPage,
  About,
  Question,
  HotKey,
  Options,
  Grid,
  Increments,
  ExportDxf,
  SaveResults,
  FindTool,
  Propellants,
  VariableNames,
  MacroParams,
  Gallery,
  TemplateFile,
  TemplateValues,
  Preview,
  TutorMessage,
  Setup3d
};
Ctl WindowOf(Form); // the control that stands for the form itself
enum class FileUse : std::uint8_t { Open, SaveAs };

// A thing to choose by its picture.
struct PictureItem {
  std::string Name, Note, PictureFile; // a bitmap on disk; empty: Drawing stands for it
  DrawSurface Drawing;
};

// All that is shown, and the only way to speak to the user. The core writes Show, Panel and the charts; a
// screen copies what differs after each event. Answers come back through the virtual calls; events through
// OnEvent.
class Screen {
public:
  std::array<Control, CtlCount> Show;
  DrawSurface Panel;
  Chart MyChart1, MyChart2, MyLiveChart;
  Plot My_Chart3;
  TextTable Compare; // of Compare_Table
  Plot Pep_Chart;
  TextTable Pep_Grid;           // of Result_Grid
  NozzleShape Nozzle;           // of Draw_Nozzle
  PictureScene View3d;          // of Picture1
  DrawSurface Template_Picture; // GrainPic shows it too
  Chart Template_Chart;
  std::vector<PictureItem> Gallery; // of ListView1
  unsigned GalleryNumber = 0;       // another one whenever an item has changed
  int PixelWidth = 1440;            // of the whole screen
  WindowPlace MainPlace;            // start-up writes it before frmMain is shown; the screen keeps it true
  Ctl Focus = Ctl::Count;    // the core asks the focus to go there, its text selected; the screen takes it up
                             // and resets it
  bool CursorAtEnd = false;  // of the text in Focus, none of it selected; reset with it
  bool SystemIsDark = false; // the user's desktop has a dark theme; set before start-up
  bool ByHand = false;       // a person aims the pointer: points snap until he says otherwise
  std::function<void(const Event &)> OnEvent; // set once by start-up; modal loops feed it again
  std::function<bool(int key, int shift)>
      TakesKey; // set by start-up: DrawPanel takes this key before a menu's entry does
  std::function<void(const std::string &)>
      OnAnswer; // RecordedScreen tells each answer to whom it may concern

  Screen(); // each control's first text, visible and enabled
  virtual ~Screen() = default;
  virtual Answer Ask(const Box &) = 0;
  virtual std::optional<std::string> AskFile(FileUse, std::string_view filter, std::string_view initial) = 0;
  virtual std::optional<std::uint32_t> AskColour(std::uint32_t initial) = 0; // red in the low byte
  virtual void RunModal(Form) = 0;       // returns when the form's row in Show is hidden
  virtual void Wait(double seconds) = 0; // splash, pick flash: pumps events in Qt, returns at once in tests
  virtual bool Progress(double part) {
    (void)part;
    return true;
  } // long work: 0..1; false asks it to stop
  // Work that holds nothing of the program's state, then what takes its outcome over. Here both at once; a
  // screen with a worker calls `done` later, between two events, and may leave out work that newer work
  // overtook before it began.
  virtual void StartWork(std::function<void()> work, std::function<void()> done) {
    work();
    done();
  }
  // Long work beside them that calls `tell` as it gets on: `news` then runs where `done` will, once for many
  // calls that come in a short time.
  virtual void StartSearch(std::function<void(const std::function<void()> &tell)> work,
                           std::function<void()> news, std::function<void()> done) {
    work(news);
    done();
  }
  // The same for the diagnosis, which overtakes no curve and waits for none.
  virtual void StartDiagnosis(std::function<void()> work, std::function<void()> done) {
    work();
    done();
  }

  // The same for the solids of Picture1.
  virtual void StartSolids(std::function<void()> work, std::function<void()> done) {
    work();
    done();
  }
  // Picture1 is about to be shown. The trouble when it cannot be drawn here, or empty.
  virtual std::string OpenPicture() { return {}; }
  // Picture1 as it is, without what only helps the hand, as the bytes of a PNG file. The trouble, or empty.
  virtual std::string PictureBytes(std::string &png) {
    (void)png;
    return "There is nothing here that could draw the picture";
  }
  // A bitmap that is to be a texture: the trouble that names it, or empty.
  virtual std::string CheckBitmap(const std::string &path) {
    (void)path;
    return {};
  }

  Control &operator[](Ctl c) { return Show[static_cast<std::size_t>(c)]; }
  const Control &operator[](Ctl c) const { return Show[static_cast<std::size_t>(c)]; }
};
