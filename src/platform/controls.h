#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// Every control once: identifier, name on the screen (Qt object name and script name), window, first text.
enum class Ctl : std::uint16_t {
#define CONTROL(ident, name, window, text) ident,
#include "platform/controls.def"
#undef CONTROL
  Count
};
constexpr std::size_t CtlCount = static_cast<std::size_t>(Ctl::Count);

struct ControlRow {
  std::string_view Name, Window, Text;
};
const ControlRow &RowOf(Ctl);
// A name that stands in one window only, or "Window.Name".
std::optional<Ctl> FindControl(std::string_view name);
