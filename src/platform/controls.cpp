#include "platform/controls.h"

namespace {
constexpr std::array<ControlRow, CtlCount> Rows{{
#define CONTROL(ident, name, window, text) {name, window, text},
#include "platform/controls.def"
#undef CONTROL
}};
} // namespace

const ControlRow &RowOf(Ctl c) { return Rows.at(static_cast<std::size_t>(c)); }

std::optional<Ctl> FindControl(std::string_view name) {
  const auto dot = name.find('.');
  const std::string_view window = dot == name.npos ? "" : name.substr(0, dot);
  const std::string_view bare = dot == name.npos ? name : name.substr(dot + 1);
  std::optional<Ctl> found;
  for (std::size_t i = 0; i < CtlCount; ++i) {
    if (Rows[i].Name != bare || (!window.empty() && Rows[i].Window != window)) continue;
    if (found) return std::nullopt; // stands in two windows
    found = static_cast<Ctl>(i);
  }
  return found;
}
