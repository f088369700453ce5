#include "outputs/sweep.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "burnback/run_driver.h"
#include "outputs/named_figures.h"
#include "performance/motor_run.h"
#include "shell/grain_file.h"

#include <atomic>
#include <cmath>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace {

constexpr const char *FieldNames[] = {"length_mm", "throat_mm",    "propellant", "a",
                                      "n",         "density_g_cc", "cstar_m_s",  "isp_s"};

// A design's burn, made by whichever worker comes first and dropped after its last row.
struct DesignBurn {
  std::mutex Busy;
  bool Tried = false, Told = false;
  GrainDoc Doc;
  std::shared_ptr<const BurnRun> Run; // null: refused
  std::string Trouble;
  std::size_t RowsLeft = 0;
};

struct Job {
  const Sweep &Asked;
  std::size_t Rows = 0, RowsPerDesign = 0;
  std::vector<DesignBurn> Burn{};
  std::atomic<std::size_t> Next{0}, Done{0};
  std::atomic<bool> Stop{false};
  std::mutex Telling{};
  const std::function<bool(std::size_t)> &Step;
  SweepOutcome Outcome{};
};

// One worker's copy of a burn, filled anew for each row's dimensions.
struct OwnBurn {
  std::size_t Place = static_cast<std::size_t>(-1); // of its design
  BurnRun Run;
};

bool GoOn(Job &job) {
  if (std::unique_lock lock(job.Telling, std::try_to_lock); lock && !job.Step(job.Done)) job.Stop = true;
  return !job.Stop;
}

void MakeBurn(Job &job, DesignBurn &burn, const SweepDesigns::Maker &make, std::size_t place) {
  burn.Tried = true;
  Design design;
  burn.Trouble = make(place, design);
  if (!burn.Trouble.empty()) return;
  if (job.Asked.EndsExposed >= 0) design.Doc.EndsExposed = static_cast<std::int16_t>(job.Asked.EndsExposed);
  burn.Doc = design.Doc;
  BurnOptions options;
  options.Progress = [&](double) { return GoOn(job); };
  BurnRefusal refusal;
  auto run = std::make_shared<BurnRun>();
  if (BurnDesign(design, options, *run, refusal)) {
    run->Steps = {};
    burn.Run = std::move(run);
  } else if (refusal.Stopped) {
    burn.Tried = false;
  } else {
    burn.Trouble = job.Asked.Designs.Name(place) + ": " + refusal.Text;
  }
}

std::string Cell(const std::string &text) {
  if (text.find_first_of(",\"\r\n") == text.npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

void Set(const Sweep &sweep, SweepField field, double value, GrainDoc &doc, MotorInputs &in) {
  switch (field) {
  case SweepField::Length:
    doc.GrainLength = static_cast<float>(value);
    in.GrainLength = value;
    break;
  case SweepField::Throat:
    doc.ThroatDiam = static_cast<float>(value);
    in.ThroatDiam = value;
    break;
  case SweepField::Propellant: in.Fuel = sweep.Fuel[static_cast<std::size_t>(value)]; break;
  case SweepField::A: in.Fuel.A = value; break;
  case SweepField::N: in.Fuel.N = value; break;
  case SweepField::Density: in.Fuel.Density = value; break;
  case SweepField::CStar: in.Fuel.CStar = value; break;
  case SweepField::Isp: in.Fuel.Isp = value; break;
  }
}

void AddFigures(std::string &line, const std::vector<NamedFigure> &figures, bool known) {
  for (const NamedFigure &f : figures) {
    line += ',';
    if (!known || f.Value == "null") continue;
    line += f.Value.front() == '"' ? f.Value.substr(1, f.Value.size() - 2) : f.Value;
  }
}

// The line of a row; the trouble of its motor.
std::string WorkOut(Job &job, std::size_t row, const DesignBurn &burn, OwnBurn &own, std::string &line) {
  const Sweep &sweep = job.Asked;
  const std::size_t place = row / job.RowsPerDesign;
  GrainDoc doc = burn.Doc;
  MotorInputs in;
  in.Fuel = sweep.Fuel.front();
  in.GrainDiam = doc.GrainDiam;
  in.GrainLength = Val(PlainText(doc.GrainLength));
  in.ThroatDiam = Val(PlainText(doc.ThroatDiam));
  in.EndsExposed = doc.EndsExposed & 3;
  in.TopEnd = sweep.TopEnd;
  if (!sweep.Designs.Column.empty())
    for (const std::string &cell : sweep.Designs.Cells(place)) line += Cell(cell) + ',';
  std::size_t rest = row % job.RowsPerDesign, round = job.RowsPerDesign;
  for (const SweepAxis &axis : sweep.Axis) {
    round /= axis.Value.size();
    const double value = axis.Value[rest / round];
    rest %= round;
    Set(sweep, axis.Field, value, doc, in);
    line += (axis.Field == SweepField::Propellant ? Cell(in.Fuel.Name) : PlainText(value)) + ',';
  }
  MotorRun motor;
  std::string trouble;
  bool ran = false;
  if (burn.Run) {
    if (own.Place != place) own = {place, *burn.Run};
    FillFigures(doc, own.Run);
    ran = RunMotor(own.Run, in, motor, trouble);
  }
  if (!line.empty()) line.pop_back();
  const std::size_t inputs = line.size();
  AddFigures(line, NamedBurnFigures(doc, own.Run), burn.Run != nullptr);
  AddFigures(line, NamedMotorFigures(motor.Figures), ran);
  if (inputs == 0) line.erase(0, 1); // nothing varies: no input stands before the first figure
  return trouble;
}

void Work(Job &job) {
  OwnBurn own;
  const SweepDesigns::Maker make = job.Asked.Designs.Open();
  while (!job.Stop) {
    const std::size_t row = job.Next++;
    if (row >= job.Rows) return;
    const std::size_t place = row / job.RowsPerDesign;
    DesignBurn &burn = job.Burn[place];
    {
      const std::lock_guard lock(burn.Busy);
      if (!burn.Tried) MakeBurn(job, burn, make, place);
      if (!burn.Tried) return; // stopped within the burn
    }
    std::string line;
    const std::string trouble = WorkOut(job, row, burn, own, line);
    job.Outcome.Row[row] = std::move(line);
    ++job.Done;
    const std::lock_guard lock(burn.Busy);
    if (!trouble.empty() || (!burn.Trouble.empty() && !burn.Told)) {
      const std::lock_guard telling(job.Telling);
      job.Outcome.Trouble.push_back(burn.Trouble.empty() ? job.Asked.Designs.Name(place) + ", row " +
                                                               std::to_string(row + 1) + ": " + trouble
                                                         : burn.Trouble);
      burn.Told = true;
    }
    if (--burn.RowsLeft == 0) burn.Run.reset();
    GoOn(job);
  }
}

bool ReadNumber(std::string_view text, double &value) {
  return !text.empty() && NumeralLength(text) == text.size() && NumeralValue(text, value);
}

std::string AddRange(std::string_view part, std::vector<double> &values) {
  const std::string shown(part);
  double from = 0, to = 0, step = 0;
  const std::size_t first = part.find(':');
  if (first == part.npos) {
    if (!ReadNumber(part, from)) return "expected a number or FROM:TO:STEP, found \"" + shown + "\"";
    values.push_back(from);
    return {};
  }
  const std::size_t second = part.find(':', first + 1);
  if (second == part.npos || !ReadNumber(part.substr(0, first), from) ||
      !ReadNumber(part.substr(first + 1, second - first - 1), to) ||
      !ReadNumber(part.substr(second + 1), step))
    return "expected FROM:TO:STEP, found \"" + shown + "\"";
  const double count = (to - from) / step;
  if (step == 0 || !(count >= -1e-9)) return "the step of \"" + shown + "\" does not lead to its end";
  if (count >= static_cast<double>(MostSweepRows)) return "\"" + shown + "\" holds too many values";
  for (int i = 0; i <= static_cast<int>(count + 1e-9); ++i)
    values.push_back(Val(PlainText(from + i * step))); // 15 digits: 8.3, not 8.300000000000001
  return {};
}

} // namespace

SweepDesigns FileDesigns(const std::vector<std::string> &paths) {
  SweepDesigns designs;
  designs.Count = paths.size();
  if (paths.size() > 1) designs.Column = {"file"};
  designs.Cells = [paths](std::size_t place) { return std::vector{paths[place]}; };
  designs.Name = [paths](std::size_t place) { return paths[place]; };
  designs.Open = [paths] {
    return [paths](std::size_t place, Design &design) { return ReadGrainFile(paths[place], design); };
  };
  return designs;
}

std::size_t SweepRows(const Sweep &sweep) {
  double rows = static_cast<double>(sweep.Designs.Count);
  for (const SweepAxis &axis : sweep.Axis) rows *= static_cast<double>(axis.Value.size());
  return rows > MostSweepRows ? MostSweepRows + 1 : static_cast<std::size_t>(rows);
}

std::string ReadRange(std::string_view text, std::vector<double> &values) {
  std::vector<double> read;
  for (;;) {
    const std::size_t comma = std::min(text.find(','), text.size());
    if (std::string trouble = AddRange(text.substr(0, comma), read); !trouble.empty()) return trouble;
    if (comma == text.size()) break;
    text.remove_prefix(comma + 1);
  }
  values = std::move(read);
  return {};
}

SweepOutcome RunSweep(const Sweep &sweep, const std::function<bool(std::size_t)> &step) {
  Job job{.Asked = sweep, .Step = step};
  job.Rows = SweepRows(sweep);
  if (job.Rows == 0 || job.Rows > MostSweepRows) return {};
  job.RowsPerDesign = job.Rows / sweep.Designs.Count;
  job.Outcome.Row.resize(job.Rows);
  job.Burn = std::vector<DesignBurn>(sweep.Designs.Count);
  for (DesignBurn &burn : job.Burn) burn.RowsLeft = job.RowsPerDesign;
  std::vector<std::thread> helper;
  for (int i = 1; i < sweep.Workers; ++i) helper.emplace_back([&] { Work(job); });
  Work(job);
  for (std::thread &t : helper) t.join();
  return std::move(job.Outcome);
}

std::string SweepTableText(const Sweep &sweep, const SweepOutcome &outcome) {
  std::string text;
  for (const std::string &name : sweep.Designs.Column) text += Cell(name) + ',';
  for (const SweepAxis &axis : sweep.Axis)
    text += FieldNames[static_cast<std::size_t>(axis.Field)] + std::string(",");
  for (const NamedFigure &f : NamedBurnFigures({}, {})) text += f.Key + ',';
  for (const NamedFigure &f : NamedMotorFigures({})) text += f.Key + ',';
  text.back() = '\n';
  for (const std::string &row : outcome.Row)
    if (!row.empty()) text += row + '\n';
  return text;
}
