#pragma once
#include "platform/screen.h"

// A screen of kind Base that tells OnAnswer what the user answered, as the line of a script that gives the
// same answer (see ScriptedScreen): `box OK`, `file PATH`, `answer TEXT`.
template <class Base>
class RecordedScreen final : public Base {
public:
  using Base::Base;

  Answer Ask(const Box &box) override {
    const Answer given = Base::Ask(box);
    constexpr const char *name[] = {"OK", "Cancel", "Yes", "No"}; // in the order of Answer
    Tell(std::string("box ") + name[static_cast<std::size_t>(given)]);
    return given;
  }
  std::optional<std::string> AskFile(FileUse use, std::string_view filter,
                                     std::string_view initial) override {
    const auto path = Base::AskFile(use, filter, initial);
    Tell("file " + path.value_or("cancel"));
    return path;
  }
  std::optional<std::uint32_t> AskColour(std::uint32_t initial) override {
    const auto colour = Base::AskColour(initial);
    Tell("answer " + (colour ? std::to_string(*colour) : "cancel"));
    return colour;
  }
  void RunModal(Form form) override {
    Base::RunModal(form);
    if (form != Form::Question) return;
    const std::string &text = (*this)[Ctl::Question_Value].Text; // emptied by Cancel
    Tell("answer " + (text.find_first_not_of(" \t") == text.npos ? "cancel" : text));
  }

private:
  void Tell(const std::string &line) const {
    if (this->OnAnswer) this->OnAnswer(line);
  }
};
