#pragma once
#include "base/settings_store.h"
#include "burnback/run_sim.h"
#include "drafting/drafting.h"
#include "platform/screen.h"
#include "shell/command_line.h"
#include "shell/diagnosis_view.h"
#include "shell/grain_document.h"
#include "shell/live_view.h"
#include "shell/pep.h"
#include "shell/pressure.h"
#include "shell/recent_files.h"
#include "shell/template_state.h"
#include "shell/tutor_state.h"
#include "shell/view3d.h"
#include "shell/work_folder.h"

#include <optional>
#include <string>
#include <vector>

// The working copy of the Dimensions dialog; lengths in mm.
struct DimensionsCopy {
  double Diameter = 20, Radius = 10, Length = 40, Throat = 3;
  int EndsExposed = 3;
  double DiameterBefore = 0; // when the dialog became active
  bool Accepted = false;
};

// The working copy of Options_Form; lengths in mm, angles in radians.
struct OptionsCopy {
  double JoinTolerance = 0, SimIncrement = 0;
  DraftDefaults Defaults;
  std::array<std::string, 8> Text; // of the rows, angles in degrees
  std::array<bool, 8> Typed{};     // the text is the user's
};

// What Save_Results_Form was closed with.
struct ResultsCopy {
  double ResultBurnInc = 0; // mm
  std::string File;         // empty: cancelled
};

// A design found after a crash.
struct Recovery {
  bool Open = false; // it is the design now open
  std::string
      CopyPath; // the newest "Recovered ..." copy in AppDir, this start's or an earlier one's; empty: none
};

// The script of what the user does, while it is recorded.
struct Recording {
  bool On = false;
  std::vector<std::string> Line;
  std::optional<Event> Moved;      // the pointer's last place, not written yet
  std::optional<Event> Held;       // the button that is down, and where it went down
  std::size_t HeldLine = 0;        // its line
  double PannedX = 0, PannedY = 0; // by a middle button that is held, mm
  Tracker Before;                  // what the tracker held before the event
};

// All of a running program. One screen, one open design.
struct Workbench {
  Screen &Out;
  Design Grain;
  Drafting Draft{Grain, Out};
  SettingsStore Settings;
  RecentFiles Recent;
  WorkFolders Folders;
  WorkClaim Claim;
  CommandLine Command;
  DimensionsCopy Dialog;
  OptionsCopy Options;
  ResultsCopy Results;
  HotKey PendingKey; // the last keys pressed in HotKeyForm
  Recovery Recovered;
  SimulationView Sim;
  DiagnosisView Amiss;
  LiveView Live;
  View3d View;
  Pressure Motor;
  Thermo Pep;
  Recording Record;
  TemplateState Template;
  TutorState Tutor;
  bool ExportFlag = false;           // Export_DXF was left by Export_Now
  std::string Caption;               // what stands behind "Morvandel - " in the title
  double PointerX = 0, PointerY = 0; // last position over DrawPanel, mm
  bool Panning = false;
  double PanX = 0, PanY = 0;    // the point of the drawing held by a pan, mm
  bool Running = false;         // a run is at work: events wait for its end
  bool WorkTroubleTold = false; // a recovery file that cannot be written is told once
  bool Chart2Hidden = false;    // MyChart2_Frame in design mode: a screen too narrow, or no throat
  bool Ended = false;           // the main window has closed: the process ends
  explicit Workbench(Screen &screen) : Out(screen) {}
};
