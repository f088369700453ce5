#include "shell/template_trial.h"

#include "base/number_text.h"
#include "macros/evaluator.h"
#include "shell/burn_chart.h"
#include "shell/template_picture.h"

#include <cmath>
#include <limits>
#include <utility>

namespace {
constexpr std::pair<Ctl, BurnFigure> Figures[] = {{Ctl::Template_FirstKn, BurnFigure::FirstKn},
                                                  {Ctl::Template_MaxKn, BurnFigure::MaxKn},
                                                  {Ctl::Template_Neutrality, BurnFigure::Neutrality},
                                                  {Ctl::Template_Sliver, BurnFigure::Sliver},
                                                  {Ctl::Template_Loading, BurnFigure::Loading}};
constexpr const char *ZeroWords = "ERROR: All dimensional parameters must contain a value higher than zero!";

std::string &AnswerOf(TemplateAsking &ask, int row) {
  return ask.Given.Answer[static_cast<std::size_t>(row)];
}

std::string NameOf(const TemplateAsking &ask, int row) {
  if (row == 0) return "GRAINDIAMETER";
  if (row == 1) return "GRAINLENGTH";
  for (const TemplateVariable &v : ask.Variable)
    if (v.Row == row) return v.Name;
  return {};
}

// The first two rows: plain numbers, or formulas of plain numbers; the second may name the diameter.
bool EvaluateDimensions(TemplateAsking &ask) {
  VariableTable table;
  double value[2] = {0, 0};
  for (int row = 0; row < 2; ++row) {
    SetGrainVariables(table, value[0], 0);
    table.Row[1].Name.clear();
    if (row == 0) table.Row[0].Name.clear();
    const Formula formula = EvaluateFormula(AnswerOf(ask, row), table);
    value[row] = formula.Value;
    constexpr double most = 1e6; // mm
    ask.AtFault = row;
    if (!formula.Good())
      ask.Trouble = NameOf(ask, row) + ": " + formula.Message;
    else if (!(formula.Value > 0))
      ask.Trouble = std::string(ZeroWords) + " (" + NameOf(ask, row) + ")";
    else if (!(formula.Value <= most))
      ask.Trouble = NameOf(ask, row) + ": a number up to " + PlainText(most) + " must be entered";
    if (!ask.Trouble.empty()) return false;
  }
  if (value[0] != ask.Doc.GrainDiam || static_cast<float>(value[1]) != ask.Doc.GrainLength)
    SetDimensions(ask.Doc, value[0], value[1], static_cast<double>(ask.Doc.ThroatDiam), ask.Doc.EndsExposed);
  ask.AtFault = -1;
  return true;
}

int RowNamed(const TemplateAsking &ask, const std::string &name) {
  for (const TemplateVariable &v : ask.Variable)
    if (v.Name == name) return v.Row;
  return -1;
}

std::shared_ptr<TemplateTrial> Tried(const MacFile &mac, const VariableTable &values, const GrainDoc &doc,
                                     TemplatePlayer &player, unsigned number) {
  auto trial = std::make_shared<TemplateTrial>();
  trial->Grain.Doc = doc;
  trial->Drawn = DesignFromTemplate(player, mac, values,
                                    {doc.GrainDiam, static_cast<double>(doc.GrainLength),
                                     static_cast<double>(doc.ThroatDiam), doc.EndsExposed},
                                    trial->Grain);
  if (trial->Drawn.Trouble.empty()) trial->Burnt = BurnLive({number, trial->Grain});
  trial->Number = number;
  return trial;
}

// The value that was changed last is the one that asks too much.
void Blame(TemplateAsking &ask, const std::string &why) {
  ask.AtFault = ask.Changed;
  const std::string name = NameOf(ask, ask.Changed);
  ask.Trouble = name.empty() ? why : name + " = " + AnswerOf(ask, ask.Changed) + ": " + why;
}

void Take(Workbench &bench, TemplateTrial &trial) {
  TemplateAsking &ask = bench.Template.Ask;
  if (trial.Number == 0 || trial.Number != ask.Number) return;
  ask.UnderWay = false;
  std::string why = trial.Drawn.Trouble;
  if (why.empty() && !trial.Burnt.Burnt) {
    why = trial.Burnt.Open ? "The outline is not closed" : trial.Burnt.Trouble;
    if (why.starts_with("Error: ")) why.erase(0, 7); // a note, no message
  }
  if (!why.empty()) Blame(ask, why);
  if (why.empty() || (trial.Drawn.Trouble.empty() && ask.Run.StepCount == 0)) {
    ask.Grain = std::move(trial.Grain);
    ask.Run = std::exchange(trial.Burnt.Run, {});
    if (!ask.Shown) ask.Before = BurnCurve(ask.Run);
    ask.Shown = true;
    bench.Out.Template_Picture = GrainSurface(ask.Grain);
  }
  ShowTrial(bench);
}
} // namespace

Ctl TemplateControl(Ctl first, int row) { return static_cast<Ctl>(static_cast<int>(first) + row); }

bool EvaluateAnswers(Workbench &bench) {
  TemplateAsking &ask = bench.Template.Ask;
  ask.Trouble.clear();
  ask.AtFault = -1;
  if (!EvaluateDimensions(ask)) return false;
  std::vector<TemplateAnswer> answers;
  for (const TemplateVariable &v : ask.Variable) answers.push_back({v.Name, AnswerOf(ask, v.Row)});
  std::string fault;
  ask.Trouble = AnswerTemplate(ask.Mac, answers, ask.Doc.GrainDiam, static_cast<double>(ask.Doc.GrainLength),
                               ask.Values, &fault);
  ask.AtFault = RowNamed(ask, fault);
  return ask.Trouble.empty();
}

void TryAnswers(Workbench &bench) {
  TemplateAsking &ask = bench.Template.Ask;
  ++ask.Number;
  ask.UnderWay = EvaluateAnswers(bench);
  if (!ask.UnderWay) return ShowTrial(bench);
  if (!ask.Player) ask.Player = MakeTemplatePlayer();
  const auto trial = std::make_shared<std::shared_ptr<TemplateTrial>>();
  const auto mac = std::make_shared<const MacFile>(ask.Mac);
  bench.Out.StartWork([trial, mac, values = ask.Values, doc = ask.Doc, player = ask.Player,
                       number = ask.Number] { *trial = Tried(*mac, values, doc, *player, number); },
                      [&bench, trial] {
                        if (*trial) Take(bench, **trial);
                      });
}

void ShowTrial(Workbench &bench) {
  Screen &out = bench.Out;
  const TemplateAsking &ask = bench.Template.Ask;
  const bool former = !ask.Trouble.empty();
  FillBurnChart(ask.Run, ask.Before, former, out.Template_Chart);
  out[Ctl::Template_Chart_Frame].Text = out.Template_Chart.Title;
  for (const auto &[control, figure] : Figures) {
    out[control].Text = BurnFigureText(ask.Run, figure);
    out[control].Enabled = !former;
  }
  const bool shape = former && ask.Shown;
  out[Ctl::Template_Note].Text = ask.Trouble + (shape ? "\nThe drawing shows the last values that go." : "");
  for (int row = 0; row < TemplateRows; ++row)
    out[TemplateControl(Ctl::VariableName0, row)].Hint = row == ask.AtFault ? ask.Trouble : "";
}
