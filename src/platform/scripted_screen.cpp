#include "platform/scripted_screen.h"

#include <array>
#include <charconv>

namespace {

std::string_view Rest(std::string_view line, std::string_view head) { // behind `head `, or nothing
  return line.starts_with(head) ? line.substr(std::min(line.size(), head.size())) : std::string_view{};
}

struct Offered {
  Answer Means;
  const char *Name;
};
constexpr std::array<Offered, 4> Names{
    {{Answer::Ok, "OK"}, {Answer::Cancel, "Cancel"}, {Answer::Yes, "Yes"}, {Answer::No, "No"}}};

bool Offers(Buttons buttons, Answer answer) {
  switch (buttons) {
  case Buttons::Ok: return answer == Answer::Ok;
  case Buttons::OkCancel: return answer == Answer::Ok || answer == Answer::Cancel;
  case Buttons::YesNo: return answer == Answer::Yes || answer == Answer::No;
  case Buttons::YesNoCancel: return answer != Answer::Ok;
  }
  return false;
}

} // namespace

Script ReadScript(std::string_view text) {
  Script script;
  while (!text.empty()) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
      line.remove_suffix(1);
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
    script.Line.emplace_back(line);
  }
  return script;
}

bool AtEnd(Script &script) { return Upcoming(script).empty(); }

std::string_view Upcoming(Script &script) {
  if (!script.Fault.empty()) return {};
  while (script.Next < script.Line.size() &&
         (script.Line[script.Next].empty() || script.Line[script.Next][0] == '#'))
    ++script.Next;
  return script.Next < script.Line.size() ? std::string_view(script.Line[script.Next]) : std::string_view{};
}

void Fail(Script &script, const std::string &why) {
  if (script.Fault.empty()) script.Fault = "line " + std::to_string(script.Next) + ": " + why;
}

Answer ScriptedScreen::Ask(const Box &box) {
  bool told = false;
  if (const std::string_view text = Rest(Upcoming(Lines), "expect box "); !text.empty()) {
    ++Lines.Next;
    told = true;
    if (box.Text.find(text) == std::string::npos) Fail(Lines, "the box says \"" + box.Text + "\"");
  }
  if (const std::string_view name = Rest(Upcoming(Lines), "box "); !name.empty()) {
    ++Lines.Next;
    for (const Offered &o : Names)
      if (name == o.Name && Offers(box.Offer, o.Means)) return o.Means;
    Fail(Lines, "the box \"" + box.Text + "\" offers no " + std::string(name));
    return Answer::Cancel;
  }
  if (told && box.Offer == Buttons::Ok) return Answer::Ok;
  Fail(Lines, "unexpected box \"" + box.Text + "\"");
  return Answer::Cancel;
}

std::optional<std::string> ScriptedScreen::AskFile(FileUse, std::string_view, std::string_view) {
  const std::string path(Rest(Upcoming(Lines), "file "));
  if (path.empty()) {
    Fail(Lines, "unexpected file dialog");
    return std::nullopt;
  }
  ++Lines.Next;
  if (path == "cancel") return std::nullopt;
  return path;
}

std::optional<std::uint32_t> ScriptedScreen::AskColour(std::uint32_t) {
  const std::string text(Rest(Upcoming(Lines), "answer "));
  if (text.empty()) {
    Fail(Lines, "unexpected colour dialog");
    return std::nullopt;
  }
  ++Lines.Next;
  std::uint32_t colour = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), colour);
  if (text != "cancel" && (error != std::errc() || end != text.data() + text.size() || colour > 0xFFFFFF))
    Fail(Lines, text + " is no colour from 0 to 16777215");
  if (text == "cancel" || !Lines.Fault.empty()) return std::nullopt;
  return colour;
}

// True when the upcoming line answers the question that stands.
bool ScriptedScreen::AnswerQuestion() {
  const std::string text(Rest(Upcoming(Lines), "answer"));
  if (text.empty() && Upcoming(Lines) != "answer") return false;
  ++Lines.Next;
  Event event;
  const std::string value = text.empty() ? text : text.substr(1);
  if (value != "cancel") {
    event.What = Event::Kind::Text;
    event.Target = Ctl::Question_Value;
    event.Text = value;
    OnEvent(event);
  }
  event = {};
  event.Target = value == "cancel" ? Ctl::Question_Cancel : Ctl::Question_OK;
  OnEvent(event);
  return true;
}

void ScriptedScreen::RunModal(Form form) {
  const Ctl self = WindowOf(form);
  while ((*this)[self].Visible && !AtEnd(Lines))
    if (form != Form::Question || !AnswerQuestion()) PlayLine();
  if (!(*this)[self].Visible) return;
  Fail(Lines, form == Form::Question ? "unanswered question \"" + (*this)[Ctl::Question_Label].Text + "\""
                                     : "unanswered dialog " + std::string(RowOf(self).Name));
  (*this)[self].Visible = false;
}

void ScriptedScreen::Wait(double seconds) { Waited += seconds; }
