#include "cli/optimise.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "cli/exit_codes.h"
#include "cli/interrupts.h"
#include "cli/outputs.h"
#include "cli/templates.h"
#include "macros/search.h"
#include "shell/grain_file.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <fmt/format.h>
#include <unistd.h>

namespace {

int Fail(const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return BadUse;
}

// "NAME=LO:HI", or "NAME" for the range that the template tells.
std::string AddVariable(const std::string &text, Search &search) {
  const std::size_t equals = text.find('='), colon = text.find(':');
  const std::string name = text.substr(0, equals);
  search.Template.Varies.push_back(name);
  SearchRange range;
  for (const TemplateVariable &v : TemplateVariables(search.Template.Mac, search.Template.Grain.Diameter))
    if (v.Name.size() == name.size() && std::equal(name.begin(), name.end(), v.Name.begin(),
                                                   [](char a, char b) { return (a | 32) == (b | 32); }))
      range = {v.Least, v.Most, v.Whole};
  if (equals != text.npos) {
    std::vector<double> low, high;
    if (colon == text.npos || colon < equals ||
        !ReadRange(text.substr(equals + 1, colon - equals - 1), low).empty() ||
        !ReadRange(text.substr(colon + 1), high).empty() || low.size() != 1 || high.size() != 1)
      return "--var: expected NAME=LO:HI, found " + text;
    range.Least = low.front();
    range.Most = high.front();
  }
  search.Range.push_back(range);
  return {};
}

std::string FillSearch(const OptimiseArguments &a, Search &search) {
  if (a.Maximise.empty() == a.Minimise.empty()) return "give --maximise or --minimise, one of them";
  search.Maximise = a.Minimise.empty();
  search.Figure = search.Maximise ? a.Maximise : a.Minimise;
  search.TopEnd = a.TopEnd == "yes";
  search.Seed = a.Seed;
  search.Seconds = a.Seconds;
  search.MostTrials = a.Trials;
  std::string trouble = ReadTrials(a.Template, a.Folder, a.Set, a.Grain, search.Template);
  if (trouble.empty()) trouble = ReadFuel(a.Fuel, search.Fuel);
  for (const std::string &text : a.Var)
    if (trouble.empty()) trouble = AddVariable(text, search);
  for (const std::string &text : a.Keep)
    if (trouble.empty()) trouble = ReadRule(text, search.Rule.emplace_back());
  return trouble.empty() ? CheckSearch(search) : trouble;
}

std::string Row(const SearchTrial &trial, std::size_t number) {
  std::string line = std::to_string(number);
  for (const double v : trial.Value) line += ',' + PlainText(v);
  line += ',' + PlainText(trial.Excess);
  for (const NamedFigure &f : trial.Figure) {
    line += ',';
    if (f.Value != "null") line += f.Value.front() == '"' ? f.Value.substr(1, f.Value.size() - 2) : f.Value;
  }
  return line + '\n';
}

std::string Head(const Search &search, const SearchTrial &trial) {
  std::string line = "trial";
  for (const std::string &name : search.Template.Varies) line += ',' + name;
  line += ",rules_broken_by";
  for (const NamedFigure &f : trial.Figure) line += ',' + f.Key;
  return line + '\n';
}

std::string Told(const Search &search, const SearchTrial &trial) {
  std::string text;
  for (std::size_t i = 0; i < trial.Value.size(); ++i)
    text += fmt::format("{}{} {:.6g}", i ? ", " : "", search.Template.Varies[i], trial.Value[i]);
  return text;
}

void TellBest(const OptimiseArguments &a, const Search &search, const SearchTrial &best, std::size_t trials) {
  if (a.Json) {
    std::vector<NamedFigure> all{{"trials", std::to_string(trials)}};
    for (std::size_t i = 0; i < best.Value.size(); ++i)
      all.push_back({search.Template.Varies[i], PlainText(best.Value[i])});
    all.insert(all.end(), best.Figure.begin(), best.Figure.end());
    fmt::print("{}", JsonText(all));
    return;
  }
  fmt::print("{} {} in {} trials: {}\n", search.Figure, PlainText(best.Goal), trials, Told(search, best));
  for (const SearchRule &rule : search.Rule)
    for (const NamedFigure &f : best.Figure)
      if (f.Key == rule.Figure)
        fmt::print("  {} {} (kept {} {})\n", f.Key, f.Value, rule.Below ? "below" : "above",
                   PlainText(rule.Limit));
}

} // namespace

void AddOptimise(CLI::App &app, OptimiseArguments &a) {
  CLI::App *const command =
      app.add_subcommand("optimise", "search a template's variables for the best value of a figure");
  command->add_option("--template", a.Template, "its name, or the path of a .Mac file")->required();
  command->add_option("--folder", a.Folder, "folder of the templates (else your own, else the shipped ones)");
  command
      ->add_option("--var", a.Var,
                   "NAME=LO:HI, or NAME for the template's own range; also GRAINDIAMETER, "
                   "GRAINLENGTH, THROAT")
      ->required();
  command->add_option("--set", a.Set, "NAME=VALUE: of a variable that does not vary");
  command->add_option("--grain", a.Grain, "DIAMETER,LENGTH,THROAT,none|A|B|AB, mm (else as recorded)");
  AddFuel(*command, a.Fuel);
  command->add_option("--top-end", a.TopEnd, "whether a single burning end is the top end (yes)")
      ->check(CLI::IsMember({"yes", "no"}));
  command->add_option("--maximise", a.Maximise, "a figure of burn --json or motor --json");
  command->add_option("--minimise", a.Minimise, "a figure of burn --json or motor --json");
  command->add_option("--keep", a.Keep, "FIGURE<VALUE or FIGURE>VALUE: to be kept");
  command->add_option("--seconds", a.Seconds, "search no longer than this (20)")->check(CLI::PositiveNumber);
  command->add_option("--trials", a.Trials, "try no more than so many (20000)")->check(CLI::PositiveNumber);
  command->add_option("--seed", a.Seed, "the same seed tries the same values in the same order (1)");
  command->add_option("--table", a.Table, "write each better trial there, the best one last (CSV)");
  command->add_option("--save", a.Save, "write the best design");
  command->add_flag("--json", a.Json, "print the best values and their figures as JSON");
}

int OptimiseCommand(const OptimiseArguments &a) {
  Search search;
  if (std::string trouble = FillSearch(a, search); !trouble.empty()) return Fail(trouble);
  { // targets that cannot be written are told before any work
    Outputs targets;
    targets.Input = LocateTemplate(a.Template, a.Folder);
    for (const std::string *file : {&a.Table, &a.Save})
      if (!file->empty())
        if (std::string trouble = PlanOutput(targets, *file); !trouble.empty()) return Fail(trouble);
  }
  HoldInterrupts();
  const bool terminal = ::isatty(STDERR_FILENO) != 0;
  std::string rows, trouble;
  std::size_t trials = 0;
  bool broken = false;
  const SearchTrial best = RunSearch(search, [&](const SearchProgress &now) {
    trials = now.Trials;
    if (now.Better && now.Best.Trouble.empty()) {
      rows += Row(now.Best, now.Trials);
      if (!a.Table.empty()) trouble = WriteWhole(a.Table, Head(search, now.Best) + rows);
    }
    if (terminal && (now.Better || now.Trials % 50 == 0))
      fmt::print(stderr, "\r{:>6} trials   {} {}{:24}", now.Trials, search.Figure,
                 now.Best.Trouble.empty() ? PlainText(now.Best.Goal) : "-", "");
    broken = Interrupted();
    return trouble.empty() && !broken;
  });
  if (terminal) fmt::print(stderr, "\r{:78}\r", "");
  if (!trouble.empty()) return Fail(trouble);
  if (best.Value.empty() || !best.Trouble.empty()) {
    fmt::print(stderr, "no trial of {} could be worked out: {}\n", trials, best.Trouble);
    return broken ? InterruptedCode : Refused;
  }
  Design design;
  TrySearch(*MakeTemplatePlayer(), search, best.Value, design);
  if (!a.Save.empty()) trouble = WriteGrainFile(a.Save, design);
  if (!trouble.empty()) return Fail(trouble);
  TellBest(a, search, best, trials);
  if (broken) {
    fmt::print(stderr, "interrupted: this is the best of {} trials\n", trials);
    return InterruptedCode;
  }
  if (best.Excess == 0) return Done;
  fmt::print(stderr, "no trial keeps all rules; this one breaks them least\n");
  return Refused;
}
