#include "cli/sweep.h"

#include "base/whole_file.h"
#include "cli/exit_codes.h"
#include "cli/interrupts.h"
#include "cli/motor_options.h"
#include "cli/outputs.h"
#include "cli/templates.h"
#include "macros/template_trials.h"
#include "outputs/sweep.h"
#include "performance/motor_run.h"
#include "performance/propellants.h"
#include "shell/grain_file.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <numeric>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::size_t TroublesTold = 10;

int Fail(const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return BadUse;
}

// A file's name among propellants belongs to the files: options take all that follows.
void SortNames(SweepArguments &a) {
  const auto files = std::stable_partition(a.Propellant.begin(), a.Propellant.end(),
                                           [](const std::string &s) { return !s.ends_with(".mvd"); });
  a.File.insert(a.File.end(), files, a.Propellant.end());
  a.Propellant.erase(files, a.Propellant.end());
}

std::string AddPropellants(const SweepArguments &a, Sweep &sweep) {
  if (a.Propellant.empty()) return {};
  std::vector<Propellant> library;
  if (std::string trouble = LoadLibrary(library); !trouble.empty()) return trouble;
  sweep.Fuel.clear();
  for (const std::string &name : a.Propellant)
    if (std::string trouble = PickPropellant(library, name, sweep.Fuel.emplace_back()); !trouble.empty())
      return trouble;
  SweepAxis axis{SweepField::Propellant, std::vector<double>(sweep.Fuel.size())};
  std::iota(axis.Value.begin(), axis.Value.end(), 0.0);
  sweep.Axis.push_back(axis);
  return {};
}

// Values that no motor can have are told before any work.
std::string AddRange(const char *option, SweepField field, const std::string &text, Sweep &sweep) {
  if (text.empty()) return {};
  SweepAxis axis{field, {}};
  if (std::string trouble = ReadRange(text, axis.Value); !trouble.empty())
    return std::string(option) + ": " + trouble;
  for (const double v : axis.Value)
    if (field == SweepField::N ? !(v < 1) : !(v > 0 && v <= 1e6))
      return fmt::format("{}: expected {}, found {}", option,
                         field == SweepField::N ? "exponents below 1" : "values above 0, at most 1000000", v);
  sweep.Axis.push_back(axis);
  return {};
}

// The template's variables that vary, beside what is said of it.
std::string AddTemplate(const SweepArguments &a, Sweep &sweep) {
  TemplateTrials trials;
  std::string trouble = ReadTrials(a.Template, a.Folder, a.Set, a.Grain, trials);
  std::vector<std::vector<double>> values;
  for (const std::string &text : a.Var) {
    TemplateAnswer answer;
    if (trouble.empty()) trouble = ReadAnswer(text, answer);
    if (!trouble.empty()) return trouble;
    trials.Varies.push_back(answer.Name);
    if (trouble = ReadRange(answer.Text, values.emplace_back()); !trouble.empty())
      return "--var " + answer.Name + ": " + trouble;
  }
  if (trouble.empty()) trouble = CheckVaried(trials);
  if (!trouble.empty()) return trouble;
  sweep.Designs = TemplateDesigns(trials, values);
  const bool varies = std::any_of(trials.Varies.begin(), trials.Varies.end(), [](std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    return name == "THROAT";
  });
  return varies || trials.Grain.Throat > 0 || !a.Throat.empty()
             ? ""
             : "the grain has no throat: give --grain or --throat";
}

std::string AddDesigns(const SweepArguments &a, Sweep &sweep) {
  if (!a.Template.empty()) return AddTemplate(a, sweep);
  if (a.File.empty()) return "give grain files, or --template";
  sweep.Designs = FileDesigns(a.File);
  for (const std::string &path : a.File) {
    Design design;
    if (std::string trouble = ReadGrainFile(path, design); !trouble.empty()) return trouble;
    if (a.Throat.empty() && !(design.Doc.ThroatDiam > 0))
      return path + ": the design has no throat: give --throat";
  }
  return {};
}

std::string FillSweep(const SweepArguments &a, Sweep &sweep) {
  sweep.TopEnd = a.TopEnd == "yes";
  if (!a.Ends.empty()) sweep.EndsExposed = a.Ends == "none" ? 0 : a.Ends == "A" ? 1 : a.Ends == "B" ? 2 : 3;
  sweep.Workers = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::string trouble = AddDesigns(a, sweep);
  if (trouble.empty()) trouble = AddRange("--length", SweepField::Length, a.Length, sweep);
  if (trouble.empty()) trouble = AddRange("--throat", SweepField::Throat, a.Throat, sweep);
  if (trouble.empty()) trouble = AddPropellants(a, sweep);
  const std::pair<const char *, std::pair<SweepField, const std::string *>> fuel[] = {
      {"--a", {SweepField::A, &a.A}},
      {"--n", {SweepField::N, &a.N}},
      {"--density", {SweepField::Density, &a.Density}},
      {"--cstar", {SweepField::CStar, &a.CStar}},
      {"--isp", {SweepField::Isp, &a.Isp}}};
  for (const auto &[option, range] : fuel)
    if (trouble.empty()) trouble = AddRange(option, range.first, *range.second, sweep);
  if (trouble.empty() && SweepRows(sweep) > MostSweepRows)
    trouble = fmt::format("The ranges give more than {} rows", MostSweepRows);
  return trouble;
}

} // namespace

int SweepCommand(SweepArguments a) {
  SortNames(a);
  Sweep sweep;
  if (std::string trouble = FillSweep(a, sweep); !trouble.empty()) return Fail(trouble);
  Outputs outputs;
  if (!a.Table.empty()) {
    std::error_code none;
    for (const std::string &path : a.File)
      if (std::filesystem::equivalent(path, a.Table, none))
        return Fail(a.Table + ": this is one of the grain files");
    outputs.Input = a.File.empty() ? LocateTemplate(a.Template, a.Folder) : a.File.front();
    if (std::string trouble = PlanOutput(outputs, a.Table); !trouble.empty()) return Fail(trouble);
  }

  HoldInterrupts();
  const std::size_t rows = SweepRows(sweep);
  const bool terminal = ::isatty(STDERR_FILENO) != 0;
  std::size_t shown = static_cast<std::size_t>(-1);
  const SweepOutcome outcome = RunSweep(sweep, [&](std::size_t done) {
    if (const std::size_t part = 1000 * done / rows; terminal && part != shown) {
      shown = part;
      fmt::print(stderr, "\r{} of {} rows", done, rows);
    }
    return !Interrupted();
  });
  if (terminal) fmt::print(stderr, "\r{:40}\r", "");

  const auto done = static_cast<std::size_t>(
      std::count_if(outcome.Row.begin(), outcome.Row.end(), [](const auto &row) { return !row.empty(); }));
  const std::string text = SweepTableText(sweep, outcome);
  std::string trouble;
  if (a.Table.empty()) {
    fmt::print("{}", text);
  } else {
    trouble = FillOutput(outputs, a.Table, [&](const std::string &draft) { return WriteWhole(draft, text); });
    if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  }
  if (!trouble.empty()) return Fail(trouble);
  for (std::size_t i = 0; i < std::min(outcome.Trouble.size(), TroublesTold); ++i)
    fmt::print(stderr, "{}\n", outcome.Trouble[i]);
  if (outcome.Trouble.size() > TroublesTold)
    fmt::print(stderr, "and {} more\n", outcome.Trouble.size() - TroublesTold);
  if (done < rows) {
    fmt::print(stderr, "interrupted: {} of {} rows are written\n", done, rows);
    return InterruptedCode;
  }
  return outcome.Trouble.empty() ? Done : Refused;
}
