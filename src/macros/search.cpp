#include "macros/search.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "burnback/run_sim.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <nlopt.hpp>

namespace {

constexpr double Lost = 1e30; // of what cannot be drawn; what breaks rules lies above Broken
constexpr double Broken = 1e20;

const NamedFigure *Find(const std::vector<NamedFigure> &figures, const std::string &key) {
  for (const NamedFigure &f : figures)
    if (f.Key == key) return &f;
  return nullptr;
}

bool IsText(const NamedFigure &f) { return f.Value.starts_with('"'); }

bool IsMotors(const std::string &key) { return Find(NamedMotorFigures({}), key) != nullptr; }

bool NeedsMotor(const Search &search) {
  return IsMotors(search.Figure) || std::any_of(search.Rule.begin(), search.Rule.end(),
                                                [](const SearchRule &r) { return IsMotors(r.Figure); });
}

std::string CheckFigure(const std::string &key) {
  std::vector<NamedFigure> known = NamedBurnFigures({}, {});
  for (NamedFigure &f : NamedMotorFigures({})) known.push_back(std::move(f));
  std::string names;
  for (const NamedFigure &f : known)
    if (!IsText(f)) names += (names.empty() ? "" : ", ") + f.Key;
  const NamedFigure *found = Find(known, key);
  return found && !IsText(*found) ? "" : "there is no figure " + key + "; there are " + names;
}

// A figure's value; none: not a number.
double ValueOf(const SearchTrial &trial, const std::string &key) {
  const NamedFigure *f = Find(trial.Figure, key);
  return f && f->Value != "null" ? Val(f->Value) : std::numeric_limits<double>::quiet_NaN();
}

// How far a rule is broken, relative to its limit; below 0: it is kept with so much to spare.
double Beyond(const SearchTrial &trial, const SearchRule &rule) {
  const double over = ValueOf(trial, rule.Figure) - rule.Limit;
  return (rule.Below ? over : -over) / std::max(std::abs(rule.Limit), 1e-9);
}

bool Better(const SearchTrial &a, const SearchTrial &b, bool maximise) {
  if (a.Trouble.empty() != b.Trouble.empty()) return a.Trouble.empty();
  if (a.Excess != b.Excess) return a.Excess < b.Excess;
  return maximise ? a.Goal > b.Goal : a.Goal < b.Goal;
}

// One search under way.
struct Hunt {
  const Search &Asked;
  const std::function<bool(const SearchProgress &)> &Step;
  std::shared_ptr<TemplatePlayer> Player = MakeTemplatePlayer();
  std::chrono::steady_clock::time_point Begun = std::chrono::steady_clock::now();
  std::size_t Trials = 0;
  SearchTrial Best{}, Last{};
  std::vector<std::size_t> Free{}; // the variables that the descent may change
};

bool Over(const Hunt &hunt) {
  const std::chrono::duration<double> past = std::chrono::steady_clock::now() - hunt.Begun;
  return hunt.Trials >= hunt.Asked.MostTrials || past.count() >= hunt.Asked.Seconds;
}

// Within the range, and no finer than about a ten thousandth of it: what is told is what was tried.
double Fit(const SearchRange &range, double value) {
  if (range.Whole) return std::clamp(std::round(value), std::ceil(range.Least), std::floor(range.Most));
  const double power = std::pow(10, 4 - std::floor(std::log10(range.Most - range.Least)));
  return std::clamp(std::round(value * power) / power, range.Least, range.Most);
}

const SearchTrial &Try(Hunt &hunt, std::vector<double> value) {
  for (std::size_t i = 0; i < value.size(); ++i) value[i] = Fit(hunt.Asked.Range[i], value[i]);
  if (!hunt.Last.Value.empty() && hunt.Last.Value == value) return hunt.Last; // asked by each rule in turn
  if (Over(hunt)) throw nlopt::forced_stop();
  Design design;
  hunt.Last = TrySearch(*hunt.Player, hunt.Asked, value, design);
  ++hunt.Trials;
  const bool better = hunt.Best.Value.empty() || Better(hunt.Last, hunt.Best, hunt.Asked.Maximise);
  if (better) hunt.Best = hunt.Last;
  if (!hunt.Step({hunt.Trials, hunt.Best, better})) throw nlopt::forced_stop();
  return hunt.Last;
}

double Signed(const Hunt &hunt, const SearchTrial &trial) {
  return hunt.Asked.Maximise ? -trial.Goal : trial.Goal;
}

// For methods that only compare: what cannot be drawn is worse than what breaks a rule, and that than the
// rest.
double Rank(Hunt &hunt, const std::vector<double> &value) {
  const SearchTrial &trial = Try(hunt, value);
  if (!trial.Trouble.empty()) return Lost;
  return trial.Excess > 0 ? Broken * (1 + trial.Excess) : Signed(hunt, trial);
}

double RankAll(const std::vector<double> &x, std::vector<double> &, void *data) {
  return Rank(*static_cast<Hunt *>(data), x);
}

// The descents start at the best trial and keep its whole numbers.
struct Descent {
  Hunt &Under;
  std::vector<double> Start; // the whole trial
  std::vector<double> With(const std::vector<double> &free) const {
    std::vector<double> value = Start;
    for (std::size_t i = 0; i < free.size(); ++i) value[Under.Free[i]] = free[i];
    return value;
  }
};

struct RuleOf {
  Descent &Of;
  const SearchRule &Rule;
};

double RankFree(const std::vector<double> &x, std::vector<double> &, void *data) {
  Descent &descent = *static_cast<Descent *>(data);
  return Rank(descent.Under, descent.With(x));
}

double GoalFree(const std::vector<double> &x, std::vector<double> &, void *data) {
  Descent &descent = *static_cast<Descent *>(data);
  const SearchTrial &trial = Try(descent.Under, descent.With(x));
  return trial.Trouble.empty() ? Signed(descent.Under, trial) : Lost;
}

double BeyondFree(const std::vector<double> &x, std::vector<double> &, void *data) {
  const RuleOf &rule = *static_cast<RuleOf *>(data);
  const SearchTrial &trial = Try(rule.Of.Under, rule.Of.With(x));
  return trial.Trouble.empty() ? Beyond(trial, rule.Rule) : 1e3;
}

// Runs one method; false: time or trials are out, or it was ended. Other ends of a method are no fault.
bool Optimise(nlopt::opt &method, std::vector<double> start) {
  double value = 0;
  try {
    return method.optimize(start, value) != nlopt::FORCED_STOP;
  } catch (const nlopt::forced_stop &) {
    return false;
  } catch (const std::runtime_error &) { // roundoff, or no way on from here
    return true;
  } catch (const std::invalid_argument &) { // a range of no width
    return true;
  }
}

// Over the whole ranges, or a part of them around the best.
bool SearchAround(Hunt &hunt, double part, int trials) {
  const std::size_t count = hunt.Asked.Range.size();
  std::vector<double> least(count), most(count), start(count);
  for (std::size_t i = 0; i < count; ++i) {
    const SearchRange &range = hunt.Asked.Range[i];
    const double half = part * (range.Most - range.Least) / 2;
    const double middle = hunt.Best.Value.empty() ? (range.Least + range.Most) / 2 : hunt.Best.Value[i];
    least[i] = part < 1 ? std::max(range.Least, middle - half) : range.Least;
    most[i] = part < 1 ? std::min(range.Most, middle + half) : range.Most;
    if (range.Whole) { // each whole number has the same share
      least[i] -= 0.49;
      most[i] += 0.49;
    }
    start[i] = std::clamp(middle, least[i], most[i]);
  }
  nlopt::opt method(nlopt::GN_CRS2_LM, static_cast<unsigned>(count));
  method.set_lower_bounds(least);
  method.set_upper_bounds(most);
  method.set_min_objective(RankAll, &hunt);
  method.set_maxeval(trials);
  method.set_ftol_rel(1e-9);
  return Optimise(method, start);
}

bool Descend(Hunt &hunt, nlopt::algorithm algorithm, bool rules, int trials) {
  if (hunt.Free.empty() || !hunt.Best.Trouble.empty() || hunt.Best.Value.empty()) return true;
  Descent descent{hunt, hunt.Best.Value};
  std::vector<double> least, most, start, step;
  for (const std::size_t i : hunt.Free) {
    const SearchRange &range = hunt.Asked.Range[i];
    least.push_back(range.Least);
    most.push_back(range.Most);
    start.push_back(descent.Start[i]);
    step.push_back(0.05 * (range.Most - range.Least));
  }
  nlopt::opt method(algorithm, static_cast<unsigned>(start.size()));
  method.set_lower_bounds(least);
  method.set_upper_bounds(most);
  method.set_initial_step(step);
  method.set_min_objective(rules ? GoalFree : RankFree, &descent);
  std::vector<RuleOf> kept;
  for (const SearchRule &rule : hunt.Asked.Rule) kept.push_back({descent, rule});
  if (rules)
    for (RuleOf &rule : kept) method.add_inequality_constraint(BeyondFree, &rule, 0);
  method.set_maxeval(trials);
  method.set_xtol_rel(1e-6);
  return Optimise(method, start);
}

} // namespace

std::string CheckSearch(const Search &search) {
  if (search.Template.Varies.empty()) return "nothing varies: name a variable and its range";
  if (std::string trouble = CheckVaried(search.Template); !trouble.empty()) return trouble;
  for (std::size_t i = 0; i < search.Range.size(); ++i) {
    const SearchRange &range = search.Range[i];
    if (!(range.Least < range.Most) || !std::isfinite(range.Most - range.Least))
      return search.Template.Varies[i] + ": expected a range from a lower to a higher value";
    if (range.Whole && !(std::ceil(range.Least) < std::floor(range.Most)))
      return search.Template.Varies[i] + ": expected a range that holds two whole numbers";
  }
  std::string trouble = CheckFigure(search.Figure);
  for (const SearchRule &rule : search.Rule)
    if (trouble.empty()) trouble = CheckFigure(rule.Figure);
  return trouble;
}

std::string ReadRule(const std::string &text, SearchRule &rule) {
  std::string bare = text;
  std::erase(bare, ' ');
  const std::size_t sign = bare.find_first_of("<>");
  const std::string wrong = "expected FIGURE<VALUE or FIGURE>VALUE, found \"" + text + "\"";
  if (sign == bare.npos || sign == 0) return wrong;
  const std::size_t number = sign + 1 < bare.size() && bare[sign + 1] == '=' ? sign + 2 : sign + 1;
  const std::string value = bare.substr(number);
  rule.Figure = bare.substr(0, sign);
  rule.Below = bare[sign] == '<';
  if (value.empty() || NumeralLength(value) != value.size() || !NumeralValue(value, rule.Limit)) return wrong;
  return {};
}

SearchTrial TrySearch(TemplatePlayer &player, const Search &search, std::span<const double> value,
                      Design &design) {
  SearchTrial trial;
  trial.Value.assign(value.begin(), value.end());
  trial.Trouble = TryTemplate(player, search.Template, value, design);
  if (!trial.Trouble.empty()) return trial;
  BurnRun run;
  BurnRefusal refusal;
  if (!BurnDesign(design, {}, run, refusal)) {
    trial.Trouble = refusal.Text;
    return trial;
  }
  trial.Figure = NamedBurnFigures(design.Doc, run);
  if (NeedsMotor(search)) {
    MotorInputs in;
    in.Fuel = search.Fuel;
    in.GrainDiam = design.Doc.GrainDiam;
    in.GrainLength = Val(PlainText(design.Doc.GrainLength));
    in.ThroatDiam = Val(PlainText(design.Doc.ThroatDiam));
    in.EndsExposed = design.Doc.EndsExposed & 3;
    in.TopEnd = search.TopEnd;
    MotorRun motor;
    if (!RunMotor(run, in, motor, trial.Trouble)) return trial;
    for (NamedFigure &f : NamedMotorFigures(motor.Figures)) trial.Figure.push_back(std::move(f));
  }
  trial.Goal = ValueOf(trial, search.Figure);
  if (!std::isfinite(trial.Goal)) trial.Trouble = "there is no " + search.Figure;
  for (const SearchRule &rule : search.Rule) {
    const double beyond = Beyond(trial, rule);
    if (std::isnan(beyond))
      trial.Trouble = "there is no " + rule.Figure;
    else
      trial.Excess += std::max(0.0, beyond);
  }
  return trial;
}

SearchTrial RunSearch(const Search &search, const std::function<bool(const SearchProgress &)> &step) {
  Hunt hunt{.Asked = search, .Step = step};
  for (std::size_t i = 0; i < search.Range.size(); ++i)
    if (!search.Range[i].Whole) hunt.Free.push_back(i);
  const int count = static_cast<int>(search.Range.size()) + 1;
  try {
    if (!search.Start.empty()) Try(hunt, search.Start);
  } catch (const nlopt::forced_stop &) {
    return hunt.Best;
  }
  constexpr int UselessRounds = 6; // in a row, then it is enough
  int useless = 0;
  for (std::uint64_t round = 0; useless < UselessRounds; ++round) {
    const SearchTrial before = hunt.Best;
    nlopt::srand(static_cast<unsigned long>(search.Seed * 1000003 + round));
    const bool on = SearchAround(hunt, round % 2 == 0 ? 1 : 0.2, 60 * count) &&
                    Descend(hunt, nlopt::LN_COBYLA, true, 40 * count) &&
                    Descend(hunt, nlopt::LN_SBPLX, false, 40 * count);
    if (!on) break;
    const double gain = std::abs(hunt.Best.Goal - before.Goal);
    const bool gained = before.Value.empty() || hunt.Best.Excess < before.Excess ||
                        (hunt.Best.Value != before.Value && gain > 1e-4 * std::abs(before.Goal));
    useless = gained ? 0 : useless + 1;
  }
  return hunt.Best;
}
