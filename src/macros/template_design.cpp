#include "macros/template_design.h"

#include "base/fault.h"
#include "drafting/command_machine.h"
#include "macros/play.h"
#include "macros/play_parts.h"

namespace {
constexpr int Silent = 2;

struct NoScreen final : Screen {
  Answer Ask(const Box &) override { return Answer::Cancel; }
  std::optional<std::string> AskFile(FileUse, std::string_view, std::string_view) override { return {}; }
  std::optional<std::uint32_t> AskColour(std::uint32_t) override { return {}; }
  void RunModal(Form) override { Show[static_cast<std::size_t>(Ctl::Question_Value)].Text.clear(); }
  void Wait(double) override {}
};
} // namespace

struct TemplatePlayer {
  NoScreen Out;
  Design Grain;
  Drafting Draft{Grain, Out, UndoRing{.Slot = nullptr}};
};

std::shared_ptr<TemplatePlayer> MakeTemplatePlayer() { return std::make_shared<TemplatePlayer>(); }

TemplateResult DesignFromTemplate(TemplatePlayer &player, const MacFile &mac, const VariableTable &values,
                                  const TemplateGrain &size, Design &grain) {
  Design &work = player.Grain;
  Drafting &d = player.Draft;
  work.Doc = grain.Doc;
  work.MacroMode = Silent;
  const double diameter = size.Diameter > 0 ? size.Diameter : RecordedDiameter(mac);
  const double length = size.Length > 0 ? size.Length : mac.Variables.Row[1].Value;
  try {
    SetDimensions(work.Doc, diameter, length, size.Throat, size.EndsExposed);
  } catch (const Fault &) {
    return {"the grain's dimensions are out of range", -1, ""};
  }
  if (!(diameter > 0) || !(length > 0)) return {"the grain's dimensions must be above 0", -1, ""};
  LeaveCommand(d);
  const double scale = ScaleOf(mac, diameter);
  PutPlayStart(d, mac, values, scale);
  for (std::size_t next = 0; next < mac.Log.size();) {
    const std::size_t number = next;
    if (const std::string trouble = StepInstruction(d, mac.Log, next, scale); !trouble.empty())
      return {InstructionFault(number, mac.Log[number], trouble), static_cast<int>(number), ""};
  }
  LeaveCommand(d);
  grain.Doc = work.Doc;
  grain.Table = work.Table;
  return {};
}

TemplateResult DesignFromTemplate(const MacFile &mac, std::span<const TemplateAnswer> answers,
                                  const TemplateGrain &size, Design &grain) {
  VariableTable values;
  TemplateResult result;
  const double diameter = size.Diameter > 0 ? size.Diameter : RecordedDiameter(mac);
  const double length = size.Length > 0 ? size.Length : mac.Variables.Row[1].Value;
  result.Trouble = AnswerTemplate(mac, answers, diameter, length, values, &result.Variable);
  if (!result.Trouble.empty()) return result;
  return DesignFromTemplate(*MakeTemplatePlayer(), mac, values, size, grain);
}
