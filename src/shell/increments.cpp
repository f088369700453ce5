#include "shell/settings_dialogs.h"

#include "base/number_text.h"
#include "shell/design_view.h"
#include "shell/form_answer.h"

#include <algorithm>

namespace {
constexpr double LeastSteps = 1, MostSteps = 100;

void ShowValue(Workbench &bench, const std::string &text) {
  bench.Out[Ctl::IncrementSize].Text = bench.Out[Ctl::DispIncSize].Text = text;
}

void Accept(Workbench &bench) {
  const Control &slider = bench.Out[Ctl::IncrementSize];
  const double held = bench.Grain.Doc.SimIncrementDisplay;
  if (slider.Text != PlainText(held)) { // a value between the slider's stays unless it is moved
    const auto steps = FormNumber(bench, Ctl::IncrementSize, slider.Text, {slider.Least, slider.Most, true});
    if (!steps) return;
    SetSimIncrement(bench, *steps);
  }
  bench.Out[Ctl::Increments_2d].Visible = false;
}
} // namespace

void SetSimIncrement(Workbench &bench, double steps) {
  double &held = bench.Grain.Doc.SimIncrementDisplay;
  if (held == steps) return;
  held = steps;
  DocumentChanged(bench);
  if (bench.Sim.ResultMode) RedrawDrawing(bench);
}

void ShowIncrements(Workbench &bench) {
  Screen &out = bench.Out;
  const double held = bench.Grain.Doc.SimIncrementDisplay;
  out[Ctl::IncrementSize].Least = LeastSteps;
  out[Ctl::IncrementSize].Most = std::max(MostSteps, held);
  ShowValue(bench, PlainText(held > 0 ? held : LeastSteps));
  out[Ctl::Increments_2d].Visible = true;
  out.Focus = Ctl::IncrementSize;
  out.RunModal(Form::Increments);
  out[Ctl::Increments_2d].Visible = false;
}

void IncrementsEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::Increments_2d].Visible) return;
  switch (ActOf(event, Ctl::IncAccept, Ctl::IncCancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: bench.Out[Ctl::Increments_2d].Visible = false; return;
  case FormAct::None: break;
  }
  if (event.What == Event::Kind::Text && event.Target == Ctl::IncrementSize) ShowValue(bench, event.Text);
}
