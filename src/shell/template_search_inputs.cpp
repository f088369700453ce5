#include "shell/template_search_inputs.h"

#include "base/number_text.h"
#include "outputs/burn_figures.h"
#include "shell/pep_inputs.h"
#include "shell/template_rows.h"

#include <cmath>

namespace {

struct Fault {
  std::string Words;
  Ctl Field = Ctl::Count;
};

std::string ItemOf(const FigureWords &f) { return *f.Unit ? std::string(f.Words) + ", " + f.Unit : f.Words; }

const FigureWords *FigureChosen(const std::string &item) {
  for (const FigureWords &f : AllFigureWords())
    if (ItemOf(f) == item) return &f;
  return nullptr;
}

const FigureWords *FigureOf(const std::string &key) {
  for (const FigureWords &f : AllFigureWords())
    if (f.Key == key) return &f;
  return nullptr;
}

double NumberOf(const Workbench &bench, Ctl field, const std::string &name, Fault &fault) {
  const auto number = NumberIn(bench.Out[field].Text);
  if (fault.Words.empty() && !number) fault = {name + ": a number must be entered", field};
  return number.value_or(0);
}

void ReadRow(const Workbench &bench, const TemplateVariable &v, Search &search, Fault &fault) {
  const Ctl from = TemplateControl(Ctl::Optimise_From0, v.Row),
            to = TemplateControl(Ctl::Optimise_To0, v.Row);
  const std::string name = WordsOf(v);
  const SearchRange range{NumberOf(bench, from, name + ", from", fault),
                          NumberOf(bench, to, name + ", to", fault), v.Whole};
  if (fault.Words.empty() && !(range.Least > 0)) fault = {name + ", from: it must be above 0", from};
  if (fault.Words.empty() && !(range.Least < range.Most))
    fault = {name + ": the range must go from a lower to a higher value", to};
  if (fault.Words.empty() && v.Whole && !(std::ceil(range.Least) < std::floor(range.Most)))
    fault = {name + ": the range must hold two whole numbers", to};
  search.Template.Varies.push_back(v.Name);
  search.Range.push_back(range);
}

void ReadRows(const Workbench &bench, Search &search, std::vector<int> &rows, Fault &fault) {
  const TemplateAsking &ask = bench.Template.Ask;
  for (int row = 0; row < TemplateRows; ++row) {
    const auto v = VariableOf(ask, row);
    if (!v) continue;
    if (bench.Out[TemplateControl(Ctl::Optimise_Vary0, row)].Checked) {
      ReadRow(bench, *v, search, fault);
      rows.push_back(row);
      search.Start.push_back(ValueOf(ask, row).value_or(search.Range.back().Least));
    } else if (row >= FirstUserVariable) {
      // With a diameter that varies what nobody has touched follows it.
      if (rows.empty() || rows.front() != 0 || ask.Given.Touched[At(row)])
        search.Template.Fixed.push_back({v->Name, ask.Given.Answer[At(row)]});
    }
  }
  if (fault.Words.empty() && rows.empty())
    fault = {"Tick the values that may vary", TemplateControl(Ctl::Optimise_Vary0, FirstUserVariable)};
}

std::string ReadFigure(const Workbench &bench, Ctl field, const std::string &name, Fault &fault) {
  const FigureWords *f = FigureChosen(bench.Out[field].Text);
  if (!f && fault.Words.empty()) fault = {name + ": choose a figure", field};
  if (!f) return {};
  if (fault.Words.empty() && f->OfThroat && !(bench.Template.Ask.Doc.ThroatDiam > 0))
    fault = {std::string(f->Words) + ": the grain has no nozzle throat; give it one in Dimensions", field};
  return f->Key;
}

void ReadRules(const Workbench &bench, Search &search, Fault &fault) {
  for (int i = 0; i < SearchRules; ++i) {
    const Ctl figure = TemplateControl(Ctl::Optimise_Rule0, i),
              limit = TemplateControl(Ctl::Optimise_Limit0, i);
    const std::string name = "Keep " + std::to_string(i + 1);
    if (bench.Out[figure].Text.empty() && bench.Out[limit].Text.empty()) continue;
    SearchRule rule;
    rule.Figure = ReadFigure(bench, figure, name, fault);
    rule.Below = bench.Out[TemplateControl(Ctl::Optimise_Side0, i)].Text == "at most";
    const FigureWords *f = FigureOf(rule.Figure);
    rule.Limit = NumberOf(bench, limit, name + (f ? std::string(", ") + f->Words : ""), fault);
    if (f) rule.Limit /= f->Factor;
    search.Rule.push_back(rule);
  }
}

void ReadLimits(const Workbench &bench, Search &search, Fault &fault) {
  constexpr double MostSeconds = 86400, MostTrials = 1e7, MostSeed = 1e9;
  search.Seconds = NumberOf(bench, Ctl::Optimise_Seconds, "Seconds", fault);
  if (fault.Words.empty() && !(search.Seconds > 0 && search.Seconds <= MostSeconds))
    fault = {"Seconds: a number above 0, up to 86400, must be entered", Ctl::Optimise_Seconds};
  const double trials = NumberOf(bench, Ctl::Optimise_Trials, "Trials", fault);
  if (fault.Words.empty() && !(trials >= 1 && trials <= MostTrials && trials == std::floor(trials)))
    fault = {"Trials: a whole number from 1 to 10000000 must be entered", Ctl::Optimise_Trials};
  const double seed = NumberOf(bench, Ctl::Optimise_Seed, "Seed", fault);
  if (fault.Words.empty() && !(seed >= 0 && seed <= MostSeed && seed == std::floor(seed)))
    fault = {"Seed: a whole number from 0 to 1000000000 must be entered", Ctl::Optimise_Seed};
  if (!fault.Words.empty()) return;
  search.MostTrials = static_cast<std::size_t>(trials);
  search.Seed = static_cast<std::uint64_t>(seed);
}

} // namespace

const std::vector<std::string> &SearchFigures() {
  static const std::vector<std::string> items = [] {
    std::vector<std::string> all;
    for (const FigureWords &f : AllFigureWords()) all.push_back(ItemOf(f));
    return all;
  }();
  return items;
}

std::string FigureTold(const std::string &key, double value) {
  const FigureWords *f = FigureOf(key);
  return f ? ShortFigure(value * f->Factor) + (*f->Unit ? std::string(" ") + f->Unit : "") : PlainText(value);
}

std::string FigureTold(const SearchTrial &trial, const std::string &key) {
  for (const NamedFigure &f : trial.Figure)
    if (f.Key == key && f.Value != "null") return FigureTold(key, Val(f.Value));
  return "-";
}

std::string FigureName(const std::string &key) {
  const FigureWords *f = FigureOf(key);
  return f ? f->Words : key;
}

std::string ReadSearch(const Workbench &bench, Search &search, std::vector<int> &rows, Ctl &field) {
  const TemplateAsking &ask = bench.Template.Ask;
  Fault fault;
  search.Template.Mac = ask.Mac;
  search.Template.Grain = {ask.Doc.GrainDiam, static_cast<double>(ask.Doc.GrainLength),
                           static_cast<double>(ask.Doc.ThroatDiam), ask.Doc.EndsExposed};
  search.Fuel = bench.Motor.Inputs.Fuel;
  search.TopEnd = bench.Motor.Inputs.TopEnd;
  ReadRows(bench, search, rows, fault);
  search.Figure = ReadFigure(bench, Ctl::Optimise_Figure, "Figure", fault);
  search.Maximise = bench.Out[Ctl::Optimise_Way].Text == "Maximise";
  ReadRules(bench, search, fault);
  ReadLimits(bench, search, fault);
  field = fault.Field;
  return fault.Words;
}
