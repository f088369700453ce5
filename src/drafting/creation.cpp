#include "drafting/creation.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "drafting/back_store.h"
#include "drafting/command_machine.h"
#include "drafting/commit.h"
#include "drafting/creation_parts.h"
#include "drafting/creation_shapes.h"
#include "drafting/prompt.h"
#include "drafting/report.h"

#include <utility>

namespace {
constexpr int EnterKey = 13;

struct FieldRow {
  Ctl Field, Frame;
  void (*Accept)(Drafting &, const Event &);
};
constexpr FieldRow Fields[] = {{Ctl::BoxWidth, Ctl::BoxWH_Frame, AcceptBox},
                               {Ctl::BoxHeight, Ctl::BoxWH_Frame, AcceptBox},
                               {Ctl::PolySides, Ctl::Poly_Frame, AcceptPolygon},
                               {Ctl::PolyRadius, Ctl::Poly_Frame, AcceptPolygon},
                               {Ctl::PolyRotate, Ctl::Poly_Frame, AcceptPolygon}};

void CancelFrame(Drafting &d, const Event &) {
  if (!d.Out[Ctl::BoxWH_Frame].Visible && !d.Out[Ctl::Poly_Frame].Visible) return;
  LogLeave(d, d.Under.has_value());
  LeaveCommand(d);
}

constexpr ButtonRow FrameButtons[] = {{Ctl::TL, PressReference},
                                      {Ctl::TC, PressReference},
                                      {Ctl::TR, PressReference},
                                      {Ctl::CL, PressReference},
                                      {Ctl::CC, PressReference},
                                      {Ctl::RC, PressReference},
                                      {Ctl::BL, PressReference},
                                      {Ctl::BC, PressReference},
                                      {Ctl::BR, PressReference},
                                      {Ctl::AcceptBoxWH, AcceptBox},
                                      {Ctl::CancelBoxWH, CancelFrame},
                                      {Ctl::PolyFlat, PressPolygonOption},
                                      {Ctl::PolyCorner, PressPolygonOption},
                                      {Ctl::PolyAccept, AcceptPolygon},
                                      {Ctl::PolyCancel, CancelFrame}};
} // namespace

std::optional<std::vector<Entity>> CommitShape(Drafting &d) {
  std::vector<Point> held;
  for (int i = 0; i <= d.Cmd.PointCount; ++i) held.push_back(PointAt(d.Cmd, i));
  Solution shape = ShapeOf(d, held);
  if (!shape.Solved()) Report(d, shape.Failure);
  if (!shape.Solved() || !AddEntities(d, shape.Added)) return std::nullopt;
  return std::move(shape.Added);
}

std::optional<double> FrameValue(Drafting &d, Ctl field, std::vector<std::string> &formulas) {
  const std::string text = d.Out[field].Text;
  const auto value = FieldValue(d, text);
  if (!value) {
    d.Out.Focus = field;
    return std::nullopt;
  }
  formulas.push_back(IsPlainNumber(text) ? std::string() : text);
  d.Out[field].Text = PlainText(*value);
  return Val(d.Out[field].Text); // as it stands there, and in a log
}

std::string EnterText(std::span<const std::string> formulas) {
  std::string text;
  bool any = false;
  for (const std::string &formula : formulas) {
    if (&formula != formulas.data()) text += ";";
    text += formula;
    any = any || !formula.empty();
  }
  return any ? text : "ENTERKEY";
}

void ShowFrame(Drafting &d, Ctl frame, Ctl first) {
  d.Out[frame].Visible = true;
  d.Out[Ctl::DrawPanel].Enabled = false;
  d.Out.Focus = first;
}

void HideFrame(Drafting &d, Ctl frame) {
  d.Out[frame].Visible = false;
  d.Out[Ctl::DrawPanel].Enabled = true;
  d.Out.Focus = Ctl::DrawPanel;
}

void BackToFrame(Drafting &d, Ctl frame, Ctl first) {
  if (d.Out[frame].Visible || d.Cmd.BackPos != d.Cmd.BackDepth) return;
  ShowFrame(d, frame, first);
  PushBack(d); // the step that Back now takes ends at the frame instead of leaving
}

std::span<const ButtonRow> CreationButtons() { return FrameButtons; }

void CreationText(Drafting &d, const Event &event) {
  for (const FieldRow &row : Fields) {
    if (row.Field != event.Target || !d.Out[row.Frame].Visible) continue;
    if (event.What == Event::Kind::Text) d.Out[row.Field].Text = event.Text;
    if (event.What == Event::Kind::Key && event.KeyCode == EnterKey) {
      d.Grain.GeomAbort = false;
      row.Accept(d, event);
      SetPrompt(d);
    }
  }
}

void RefreshCreation(Drafting &d) {
  RefreshBox(d);
  RefreshPolygon(d);
}
