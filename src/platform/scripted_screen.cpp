#include "platform/scripted_screen.h"
#include "platform/events.h"

#include <algorithm>
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

void ScriptedScreen::KeepAhead(std::string_view line) { Ahead.push_back({std::string(line), Lines.Next}); }

void ScriptedScreen::RefuseLeftOvers() {
  if (!Ahead.empty() && Lines.Fault.empty())
    Lines.Fault =
        "line " + std::to_string(Ahead.front().Number) + ": nothing asked for " + Ahead.front().Line;
  Ahead.clear();
}

std::optional<std::string> ScriptedScreen::TakeAnswer(std::string_view verb) {
  const auto answers = [verb](std::string_view line) {
    return line == verb || (line.starts_with(verb) && line[verb.size()] == ' ');
  };
  const auto tail = [verb](std::string_view line) {
    return std::string(line.substr(std::min(line.size(), verb.size() + 1)));
  };
  const auto early =
      std::find_if(Ahead.begin(), Ahead.end(), [&](const Early &e) { return answers(e.Line); });
  if (early != Ahead.end()) {
    const std::string text = tail(early->Line);
    Ahead.erase(early);
    return text;
  }
  const std::string_view line = Upcoming(Lines);
  if (!answers(line)) return std::nullopt;
  ++Lines.Next;
  return tail(line);
}

Answer ScriptedScreen::Ask(const Box &box) {
  bool told = false;
  if (const std::string_view text = Rest(Upcoming(Lines), "expect box "); !text.empty()) {
    ++Lines.Next;
    told = true;
    if (box.Text.find(text) == std::string::npos) Fail(Lines, "the box says \"" + box.Text + "\"");
  }
  LastBox = box.Text;
  if (const auto name = TakeAnswer("box")) {
    for (const Offered &o : Names)
      if (*name == o.Name && Offers(box.Offer, o.Means)) return o.Means;
    Fail(Lines, "the box \"" + box.Text + "\" offers no " + *name);
    return Answer::Cancel;
  }
  if (told && box.Offer == Buttons::Ok) return Answer::Ok;
  Fail(Lines, "unexpected box \"" + box.Text + "\"");
  return Answer::Cancel;
}

std::optional<std::string> ScriptedScreen::AskFile(FileUse, std::string_view, std::string_view) {
  const auto path = TakeAnswer("file");
  if (!path || path->empty()) Fail(Lines, "unexpected file dialog");
  if (!path || path->empty() || *path == "cancel") return std::nullopt;
  return path;
}

std::optional<std::uint32_t> ScriptedScreen::AskColour(std::uint32_t) {
  const auto text = TakeAnswer("answer");
  if (!text) Fail(Lines, "unexpected colour dialog");
  if (!text || *text == "cancel") return std::nullopt;
  std::uint32_t colour = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), colour);
  if (error == std::errc() && end == text->data() + text->size() && colour <= 0xFFFFFF) return colour;
  Fail(Lines, *text + " is no colour from 0 to 16777215");
  return std::nullopt;
}

// True when there is an answer to the question that stands.
bool ScriptedScreen::AnswerQuestion() {
  const auto text = TakeAnswer("answer");
  if (!text) return false;
  if (*text != "cancel") OnEvent(TextIn(Ctl::Question_Value, *text));
  OnEvent(PressOf(*text == "cancel" ? Ctl::Question_Cancel : Ctl::Question_OK));
  return true;
}

void ScriptedScreen::RunModal(Form form) {
  const Ctl self = WindowOf(form);
  while ((*this)[self].Visible && Lines.Fault.empty())
    if (form != Form::Question || !AnswerQuestion()) {
      if (AtEnd(Lines)) break;
      PlayLine();
    }
  if (!(*this)[self].Visible) return;
  Fail(Lines, form == Form::Question ? "unanswered question \"" + (*this)[Ctl::Question_Label].Text + "\""
                                     : "unanswered dialog " + std::string(RowOf(self).Name));
  (*this)[self].Visible = false;
  if (form == Form::Question)
    (*this)[Ctl::Question_Value].Text.clear(); // cancelled, or it would be asked anew
}

void ScriptedScreen::Wait(double seconds) { Waited += seconds; }
