#include "thermochem/sweep.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace {

constexpr double MostSteps = 1000;
constexpr double StepSlack = 1e-9; // of a step: what rounding of the range may leave

} // namespace

bool PlanSweep(const PepInputs &inputs, const PepSweep &sweep, std::vector<SweepStep> &steps,
               std::string &trouble) {
  steps.clear();
  const auto fail = [&](std::string words) {
    trouble = std::move(words);
    return false;
  };
  if (!std::isfinite(sweep.From) || !std::isfinite(sweep.To) || sweep.From < 0 || sweep.To < 0)
    return fail("the weights must be 0 or more");
  if (!(sweep.Step > 0)) return fail("the step must be above 0");
  if (sweep.Raised == sweep.Lowered) return fail("the two ingredients must differ");
  const double span = sweep.To - sweep.From;
  if (!(std::abs(span) / sweep.Step <= MostSteps)) return fail(fmt::format("more than {} steps", MostSteps));

  PepInputs base = inputs;
  const auto find = [&](int position) {
    return std::find_if(base.Ingredient.begin(), base.Ingredient.end(),
                        [&](const PepIngredient &i) { return i.ListPosition == position; });
  };
  if (find(sweep.Lowered) == base.Ingredient.end())
    return fail("the ingredient that the weight is taken from is not among the ingredients");
  if (find(sweep.Raised) == base.Ingredient.end()) base.Ingredient.push_back({sweep.Raised, 0});
  PepIngredient &raised = *find(sweep.Raised), &lowered = *find(sweep.Lowered);
  const double both = raised.Weight + lowered.Weight, highest = std::max(sweep.From, sweep.To);
  if (highest > both * (1 + StepSlack))
    return fail(
        fmt::format("the two ingredients weigh {:.10g} together: {:.10g} is too much", both, highest));

  const int whole = static_cast<int>(std::abs(span) / sweep.Step + StepSlack);
  for (int i = 0; i <= whole + 1; ++i) {
    double weight = sweep.From + std::copysign(i * sweep.Step, span);
    if (i > whole) {
      if (std::abs(span) - whole * sweep.Step <= StepSlack * sweep.Step) break;
      weight = sweep.To;
    }
    raised.Weight = weight;
    lowered.Weight = std::max(0.0, both - weight);
    steps.push_back({weight, base});
  }
  return true;
}
