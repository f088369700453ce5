#include "macros/template_trials.h"

#include "base/number_text.h"

#include <algorithm>
#include <cctype>

namespace {

std::string Upper(std::string text) {
  for (char &c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

double *SizeOf(TemplateGrain &grain, const std::string &upper) {
  return upper == "GRAINDIAMETER" ? &grain.Diameter
         : upper == "GRAINLENGTH" ? &grain.Length
         : upper == "THROAT"      ? &grain.Throat
                                  : nullptr;
}

std::vector<double> ValuesOf(const std::vector<std::vector<double>> &values, std::size_t place) {
  std::vector<double> chosen(values.size());
  for (std::size_t i = values.size(); i-- > 0;) {
    chosen[i] = values[i][place % values[i].size()];
    place /= values[i].size();
  }
  return chosen;
}

} // namespace

std::string CheckVaried(const TemplateTrials &trials) {
  const std::vector<TemplateVariable> variables = TemplateVariables(trials.Mac, 0);
  std::vector<std::string> taken;
  for (const TemplateAnswer &answer : trials.Fixed) taken.push_back(Upper(answer.Name));
  for (const std::string &name : trials.Varies) {
    const std::string upper = Upper(name);
    TemplateGrain size;
    const bool known =
        SizeOf(size, upper) || std::any_of(variables.begin(), variables.end(),
                                           [&](const auto &v) { return Upper(v.Name) == upper; });
    std::string names;
    for (const TemplateVariable &v : variables) names += v.Name + ", ";
    if (!known)
      return "there is no variable " + name + "; there are " + names + "GRAINDIAMETER, GRAINLENGTH, THROAT";
    if (std::find(taken.begin(), taken.end(), upper) != taken.end()) return name + " is given twice";
    taken.push_back(upper);
  }
  return {};
}

std::string TryTemplate(TemplatePlayer &player, const TemplateTrials &trials, std::span<const double> value,
                        Design &design) {
  TemplateGrain grain = trials.Grain;
  std::vector<TemplateAnswer> answers = trials.Fixed;
  for (std::size_t i = 0; i < trials.Varies.size(); ++i)
    if (double *size = SizeOf(grain, Upper(trials.Varies[i])))
      *size = value[i];
    else
      answers.push_back({trials.Varies[i], PlainText(value[i])});
  const MacFile &mac = trials.Mac;
  const double diameter = grain.Diameter > 0 ? grain.Diameter : mac.Variables.Row[0].Value;
  const double length = grain.Length > 0 ? grain.Length : mac.Variables.Row[1].Value;
  VariableTable table;
  if (std::string trouble = AnswerTemplate(mac, answers, diameter, length, table); !trouble.empty())
    return trouble;
  return DesignFromTemplate(player, mac, table, grain, design).Trouble;
}

SweepDesigns TemplateDesigns(const TemplateTrials &trials, const std::vector<std::vector<double>> &values) {
  SweepDesigns designs;
  double count = 1;
  for (const std::vector<double> &v : values) count *= static_cast<double>(v.size());
  designs.Count = static_cast<std::size_t>(std::min(count, static_cast<double>(MostSweepRows + 1)));
  designs.Column = trials.Varies;
  designs.Cells = [values](std::size_t place) {
    std::vector<std::string> cells;
    for (const double v : ValuesOf(values, place)) cells.push_back(PlainText(v));
    return cells;
  };
  designs.Name = [names = trials.Varies, values](std::size_t place) {
    std::string text;
    const std::vector<double> chosen = ValuesOf(values, place);
    for (std::size_t i = 0; i < names.size(); ++i)
      text += (i ? ", " : "") + names[i] + " = " + PlainText(chosen[i]);
    return text.empty() ? std::string("the template") : text;
  };
  designs.Open = [trials, values] {
    return [player = MakeTemplatePlayer(), trials, values](std::size_t place, Design &design) {
      return TryTemplate(*player, trials, ValuesOf(values, place), design);
    };
  };
  return designs;
}
