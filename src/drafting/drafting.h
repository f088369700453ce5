#pragma once
#include "geometry/solution.h"
#include "macros/instruction_log.h"
#include "macros/variable_table.h"
#include "platform/screen.h"
#include "shell/undo_ring.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

// The state of drafting: one modal command at a time, advanced by clicks. Lengths in mm, angles in radians.

enum RefTypes : std::int32_t {
  CursorRef = 1,
  EndRef = 2,
  CentreRef = 3,
  IntersectionRef = 4,
  AlongRef = 5,
  KeyInRef = 7
};
enum SelectionMethods : std::int16_t { SingleMethod = 1, WindowMethod = 2, TypeMethod = 3, AllMethod = 4 };
enum WindowRules : std::int16_t { AllInside = 1, PartInside = 2, AllOutside = 3, PartOutside = 4 };

// What Back brings back: everything a click changes.
struct StepState {
  std::int16_t CmdState = 0, CmdStep = 0, PointPhase = 0;
  std::int16_t PointCount = -1;                            // index of the last collected point
  std::int16_t EntPick = -1, EntPick2 = -1, EntPick3 = -1; // rows of the first, second and third pick
  std::array<PickedRow, 3> Pick;                           // the same picks, with their places
  PickedRow CrossingFirst;                                 // RefType 4: the first entity of the intersection
  bool PickFound = false, PickHaveFirst = false, PickHaveSecond = false, PickHaveThird = false;
  bool PickHaveArc = false, RefOrigin = true;
  bool WindowSelect = false;           // the next positions are corners of a window: no grid snap
  bool Movement = false;               // the box move has its window and its method
  bool KeyInX = false, KeyInY = false; // the field was typed since the last point
  bool RadiusHeld = false;             // of a tangent circle or arc, entered before its picks
  double AnchorX = 0, AnchorY = 0;     // where the rubber band starts
  double RotationAngle = 0;
};

struct CommandState : StepState {
  std::int16_t CmdNo = 0; // 0 when idle
  std::int32_t RefType = CursorRef;
  bool DeltaPending = false; // the next point is offset by keyed-in values
  std::array<double, 101> PointX{}, PointY{};
  double ClickX = 0, ClickY = 0; // the event's own position
  double TrackX = 0, TrackY = 0; // the position last computed by the tracker
  std::int16_t BackDepth = 0, BackPos = 0;
  std::int16_t SelectionMethod = SingleMethod;
  std::int16_t SelectCount = 0; // selected while idle
};

// The frames of the running command, as Back restores them.
inline constexpr std::array<Ctl, 9> BackFrames{Ctl::End_Frame,    Ctl::UserPrompt,   Ctl::Selection_Frame,
                                               Ctl::Mirror_Frame, Ctl::Window_Frame, Ctl::Movement_Frame,
                                               Ctl::BoxWH_Frame,  Ctl::Poly_Frame,   Ctl::DrawPanel};
struct BackSlot {
  StepState Step;
  std::array<bool, BackFrames.size()> Visible{}; // of DrawPanel: Enabled
  std::bitset<301> Marked;                       // rows with Selected
};
struct BackStore {
  std::array<BackSlot, 7> Slot; // index BackPos, 1..BackDepth
};

struct RotationDraw {
  std::int16_t RotationCount = 6;
  double RotationPitch = TwoPi / 6;
  bool Active = false; // DeactivateRDraw is enabled
};

// Initial answers and the contents of the tools' frames.
struct ToolValues {
  double ToolRadius = 1;
  float ToolDistance = 1;
  double ChamferFirst = 1, ChamferSecond = 1;
  int Segments = 6;
  double BoxWidth = 10, BoxHeight = 10;
  int BoxReference = 1; // 1..9: TL TC TR CL CC RC BL BC BR
  int PolySides = 6;
  double PolyRadius = 5, PolyRotate = 0; // mm, degrees
  bool PolyFlat = true;
};

struct SelectionValues {
  std::int16_t WindowRule = AllInside;
  std::int16_t MoveRepeat = 1; // copies
  bool Copy = false;           // XFormOption: "Copy", else "Move"
  bool FromIdle = false;       // the command took an idle selection and ends with it
  bool RotationMode = false;   // Delete_Mode: "Rotation Mode"
  int MirrorType = 0;          // 1 horizontal, 2 vertical, 3 two points
  double WindowLeft = 0, WindowTop = 0, WindowRight = 0, WindowBottom = 0;
  bool Dragging = false; // idle: a window is being drawn from the anchor
};

struct Tracker {
  bool AutoPoint = false;
  Snap Target;                 // SnapEntity, SnapKind: TargetEnt, TargetKind
  std::array<bool, 4> Guide{}; // 0 holds X, 1 holds Y of the anchor; 2, 3 of the last entity end
  double GuideX = 0, GuideY = 0;
  std::optional<Point> Passed{}; // the last end or centre passed over
};

// An answer to a question, kept for the log until its input is logged.
struct AnswerGiven {
  double Value = 0;
  std::string Formula; // empty: a plain number was typed
};

// What X_Input and Y_Input hold, for the log of the point they make.
struct TypedPoint {
  bool Entered = false; // the point at work comes from them
  int Named = 0;        // the first so many are no coordinates but what their labels say
  std::array<AnswerGiven, 2> Field{};
};

// While a log is delivered: what stands in for the user.
struct Replay {
  bool On = false;
  std::vector<double> Answer; // to the questions of this input, in order
  std::size_t Taken = 0;
  bool Unanswered = false;       // a question found none
  int Row = -1, RowType = 0;     // the row picked when it was recorded, and its EntType
  std::optional<Point> Offset{}; // of the next point
  std::string Said;              // what a box would have said
};

struct HotKey {
  std::int16_t Key = 0, Shift = 0;
};

// Numbers typed for the picked entity and not entered yet.
struct PropertyEdit {
  int Row = -1; // the picked row; -1 unless exactly one is picked while idle
  unsigned Changes = 0;
  std::vector<Ctl> Typed; // fields, the last one typed at the end
  Ctl Field = Ctl::Count; // being typed: its text stands, be it none
};

struct ClickShadow; // drafting/click_preview

struct Drafting {
  Design &Grain;
  Screen &Out;
  UndoRing Ring{};
  CommandState Cmd{};
  BackStore Store{};
  RotationDraw Rotation{};
  ToolValues Tool{};
  SelectionValues Select{};
  Tracker Track{};
  TypedPoint Typed{};
  std::array<HotKey, 101> HotKeyTable{}; // 1..100
  int HotKeyCmd = 0;                     // the command HotKeyList stands for
  std::optional<CommandState> Under{};   // the command a window zoom stands over
  unsigned Changes = 0;                  // counts the changes of the table
  std::vector<Point> Marks{};            // small crosses at points taken from entities, at most 100
  VariableTable Variables{};
  InstructionLog Log{};
  std::vector<AnswerGiven> Answers{};
  Replay Play{};
  std::function<void()> KeepWork{};                       // writes the recovery file
  std::function<void(Drafting &, bool again)> TakeBack{}; // undo, or redo, while a log is filled
  std::function<void()> MarkFaults{};                     // adds to the drawing, anew, what is amiss with it
  PropertyEdit Edit{};
  Point Pointer{};              // of the last move or press over the panel, mm
  bool NoSnap = false;          // Alt was held then: neither grid nor tracker
  bool TypingAtPointer = false; // X_Input was opened by a key on the drawing
  std::int16_t LastTool = 0;    // the command started last, 0 for none
  std::shared_ptr<ClickShadow> Shadow{};
};

inline Point LastPoint(const CommandState &c) {
  const auto i = static_cast<std::size_t>(c.PointCount);
  return c.PointCount < 0 ? Point{} : Point{c.PointX[i], c.PointY[i]};
}
inline Point PointAt(const CommandState &c, int i) {
  return {c.PointX[static_cast<std::size_t>(i)], c.PointY[static_cast<std::size_t>(i)]};
}
