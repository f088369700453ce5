#include "thermochem/ingredient_names.h"

#include <algorithm>
#include <fmt/format.h>
#include <numeric>
#include <utility>

namespace {

char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
bool IsLetterOrDigit(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

// Capitals, single blanks.
std::string Folded(std::string_view text) {
  std::string folded;
  for (const char c : text)
    if (c != ' ' && c != '\t')
      folded += Capital(c);
    else if (!folded.empty() && folded.back() != ' ')
      folded += ' ';
  if (!folded.empty() && folded.back() == ' ') folded.pop_back();
  return folded;
}

std::string LettersOf(std::string_view folded) {
  std::string letters;
  std::copy_if(folded.begin(), folded.end(), std::back_inserter(letters), IsLetterOrDigit);
  return letters;
}

std::string InitialsOf(std::string_view folded) {
  std::string initials;
  for (std::size_t i = 0; i < folded.size(); ++i)
    if (IsLetterOrDigit(folded[i]) && (i == 0 || !IsLetterOrDigit(folded[i - 1]))) initials += folded[i];
  return initials;
}

// Letters to add, drop, change or swap with their neighbour to come from one text to the other: to each begin
// of it, from the empty one to the whole.
std::vector<std::size_t> Slips(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before, last, row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row;
}

constexpr std::size_t Far = 1000;

// 0 is the name itself; Far is no likeness.
std::size_t Distance(const std::string &typed, const std::string &name) {
  if (typed == name) return 0;
  const std::string letters = LettersOf(typed), own = LettersOf(name);
  if (letters.empty()) return Far;
  if (letters == own) return 1;
  if (own.starts_with(letters)) return 2;
  if (InitialsOf(name) == letters) return 3;
  if (name.find(" " + typed) != name.npos || name.find("(" + typed) != name.npos) return 4;
  const std::vector<std::size_t> slips = Slips(letters, own);
  if (slips.back() <= 1 + letters.size() / 4) return 5 + slips.back();
  if (letters.size() >= 3 && own.find(letters) != own.npos) return 50;
  // A slip in the begin of a longer name, or words beyond it.
  if (letters.size() >= 4) {
    const std::size_t least = *std::min_element(slips.begin(), slips.end());
    if (least <= letters.size() / 4) return 60 + least;
    if (own.size() >= 4 && letters.find(own) != letters.npos) return 80;
  }
  return Far;
}

} // namespace

int FindIngredient(const DataFiles &files, std::string_view name) {
  const std::string wanted = Folded(name);
  for (std::size_t i = 0; i < files.Ingredient.size(); ++i)
    if (!wanted.empty() && Folded(files.Ingredient[i].Name) == wanted) return static_cast<int>(i) + 1;
  return 0;
}

std::vector<int> NearIngredients(const DataFiles &files, std::string_view typed, std::size_t most) {
  const std::string wanted = Folded(typed);
  std::vector<std::pair<std::size_t, int>> found;
  for (std::size_t i = 0; i < files.Ingredient.size(); ++i) {
    const std::size_t distance = wanted.empty() ? 0 : Distance(wanted, Folded(files.Ingredient[i].Name));
    if (distance < Far) found.emplace_back(distance, static_cast<int>(i) + 1);
  }
  std::stable_sort(found.begin(), found.end());
  if (found.size() > most) found.resize(most);
  std::vector<int> positions;
  for (const auto &[distance, position] : found) positions.push_back(position);
  return positions;
}

std::string NoSuchIngredient(const DataFiles &files, std::string_view name) {
  std::string text = fmt::format("There is no ingredient \"{}\"", name);
  std::string near;
  for (const int position : NearIngredients(files, name, 3))
    near += fmt::format("{}\"{}\"", near.empty() ? "" : ", ", files.Ingredient[position - 1].Name);
  return near.empty() ? text : text + ": did you mean " + near + "?";
}

std::string FormulaText(const IngredientRecord &record) {
  std::string text;
  for (std::size_t k = 0; k < record.Count.size() && record.Count[k] != 0; ++k)
    text += fmt::format("{}{}{}", k ? " " : "", record.Symbol[k], record.Count[k]);
  return text;
}
