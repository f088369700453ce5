#include "shell/propellant_form.h"

#include "base/number_text.h"
#include "base/numeral.h"
#include "shell/form_answer.h"
#include "shell/pressure_inputs.h"

#include <array>

namespace {

using Texts = std::array<std::string, 9>;

struct FormField {
  Ctl Box;
  const char *Name;
  double Propellant::*Number; // null: a text
  bool MayLack = false;
};
constexpr std::array<FormField, 9> Fields{
    {{Ctl::Fuel_Name, "name", nullptr},
     {Ctl::Fuel_a, "burn rate a", &Propellant::A},
     {Ctl::Fuel_n, "exponent n", &Propellant::N},
     {Ctl::Fuel_Density, "density", &Propellant::Density},
     {Ctl::Fuel_c_star, "c*", &Propellant::CStar},
     {Ctl::Fuel_Isp, "Isp", &Propellant::Isp},
     {Ctl::Fuel_Lowest, "pressure from", &Propellant::LowestPressure, true},
     {Ctl::Fuel_Highest, "pressure to", &Propellant::HighestPressure, true},
     {Ctl::Fuel_Source, "source", nullptr}}};
constexpr std::size_t Name = 0, Source = 8;

std::string Trimmed(const std::string &text) {
  const auto first = text.find_first_not_of(" \t");
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

Texts TextsOf(const Propellant &p) {
  Texts texts;
  for (std::size_t i = 0; i < Fields.size(); ++i)
    if (const auto number = Fields[i].Number)
      texts[i] = Fields[i].MayLack && p.*number == 0 ? "" : PlainText(p.*number);
  texts[Name] = p.Name;
  texts[Source] = p.Source;
  return texts;
}

struct Reading {
  Propellant Made;
  std::string Trouble;
  Ctl Box = Ctl::Fuel_Name; // that the trouble is about
};

Reading ReadTexts(const Texts &texts) {
  Reading r;
  for (std::size_t i = 0; i < Fields.size(); ++i) {
    const FormField &field = Fields[i];
    if (!field.Number) continue;
    const std::string text = Trimmed(texts[i]);
    double &value = r.Made.*field.Number;
    value = 0;
    if (text.empty() && field.MayLack) continue;
    if (!text.empty() && NumeralLength(text) == text.size() && NumeralValue(text, value)) continue;
    r.Trouble = std::string(field.Name) + ": expected a number";
    r.Box = field.Box;
    return r;
  }
  r.Made.Name = Trimmed(texts[Name]);
  r.Made.Source = Trimmed(texts[Source]);
  r.Trouble = CheckPropellant(r.Made);
  constexpr std::pair<const char *, Ctl> about[] = {{"a:", Ctl::Fuel_a},
                                                    {"n:", Ctl::Fuel_n},
                                                    {"density:", Ctl::Fuel_Density},
                                                    {"cstar:", Ctl::Fuel_c_star},
                                                    {"isp:", Ctl::Fuel_Isp},
                                                    {"lowest_pressure:", Ctl::Fuel_Lowest},
                                                    {"highest_pressure:", Ctl::Fuel_Highest},
                                                    {"source:", Ctl::Fuel_Source}};
  for (const auto &[words, box] : about) {
    if (!r.Trouble.starts_with(words)) continue;
    r.Box = box;
    for (const FormField &field : Fields)
      if (field.Box == box) r.Trouble = field.Name + r.Trouble.substr(r.Trouble.find(':'));
  }
  return r;
}

int &Chosen(Screen &out) { return out[Ctl::Fuel_List].Index; }

void ShowNote(Workbench &bench) {
  Screen &out = bench.Out;
  const auto &entries = bench.Motor.Form.Entry;
  const int chosen = Chosen(out);
  const bool any = chosen >= 0 && chosen < static_cast<int>(entries.size());
  const Reading r = any ? ReadTexts(entries[static_cast<std::size_t>(chosen)]) : Reading{};
  out[Ctl::Fuel_Note].Text = any ? r.Trouble : "";
  for (const FormField &field : Fields) out[field.Box].Enabled = any;
  out[Ctl::Fuel_Delete].Enabled = any;
}

void ShowList(Workbench &bench, int chosen) {
  Screen &out = bench.Out;
  const auto &entries = bench.Motor.Form.Entry;
  Control &list = out[Ctl::Fuel_List];
  list.Item.clear();
  for (const Texts &texts : entries)
    list.Item.push_back(Trimmed(texts[Name]).empty() ? "(no name)" : texts[Name]);
  list.Index = std::min(chosen, static_cast<int>(entries.size()) - 1);
  for (std::size_t i = 0; i < Fields.size(); ++i)
    out[Fields[i].Box].Text = list.Index < 0 ? "" : entries[static_cast<std::size_t>(list.Index)][i];
  ShowNote(bench);
}

bool HasName(const PropellantsCopy &form, const std::string &name, std::size_t except) {
  for (std::size_t i = 0; i < form.Entry.size(); ++i)
    if (i != except && Trimmed(form.Entry[i][Name]) == name) return true;
  return false;
}

// A new entry holds the figures of the boxes beside the chart.
void Add(Workbench &bench) {
  PropellantsCopy &form = bench.Motor.Form;
  Propellant fresh = bench.Motor.Inputs.Fuel;
  fresh.Source.clear();
  fresh.LowestPressure = fresh.HighestPressure = 0;
  fresh.Name = "New propellant";
  for (int i = 2; HasName(form, fresh.Name, form.Entry.size()); ++i)
    fresh.Name = "New propellant " + std::to_string(i);
  form.Entry.push_back(TextsOf(fresh));
  ShowList(bench, static_cast<int>(form.Entry.size()) - 1);
  bench.Out.Focus = Ctl::Fuel_Name;
}

void Delete(Workbench &bench) {
  PropellantsCopy &form = bench.Motor.Form;
  const int chosen = Chosen(bench.Out);
  if (chosen < 0 || chosen >= static_cast<int>(form.Entry.size())) return;
  form.Entry.erase(form.Entry.begin() + chosen);
  ShowList(bench, chosen);
}

void Refuse(Workbench &bench, int entry, Ctl box, const std::string &words) {
  bench.Out.Ask({words, "Propellants", Buttons::Ok, Icon::Exclamation});
  if (entry >= 0) ShowList(bench, entry);
  bench.Out.Focus = box;
}

void Accept(Workbench &bench) {
  PropellantsCopy &form = bench.Motor.Form;
  std::vector<Propellant> list;
  for (std::size_t i = 0; i < form.Entry.size(); ++i) {
    const Reading r = ReadTexts(form.Entry[i]);
    if (!r.Trouble.empty())
      return Refuse(bench, static_cast<int>(i), r.Box, form.Entry[i][Name] + ": " + r.Trouble);
    if (FindPropellant(list, r.Made.Name))
      return Refuse(bench, static_cast<int>(i), Ctl::Fuel_Name, r.Made.Name + ": the name stands twice");
    list.push_back(r.Made);
  }
  const std::string trouble = WritePropellants(bench.Folders.AppDir + "propellants.txt", list);
  if (!trouble.empty()) return Refuse(bench, -1, Ctl::Fuel_OK, trouble);
  form.Accepted = true;
  bench.Out[Ctl::Propellants_Form].Visible = false;
}

void ChooseEntry(Workbench &bench, const std::string &item) {
  const auto &items = bench.Out[Ctl::Fuel_List].Item;
  for (std::size_t i = 0; i < items.size(); ++i)
    if (items[i] == item) return ShowList(bench, static_cast<int>(i));
}

void TypeInto(Workbench &bench, Ctl box, const std::string &text) {
  auto &entries = bench.Motor.Form.Entry;
  const int chosen = Chosen(bench.Out);
  if (chosen < 0 || chosen >= static_cast<int>(entries.size())) return;
  for (std::size_t i = 0; i < Fields.size(); ++i)
    if (Fields[i].Box == box) {
      entries[static_cast<std::size_t>(chosen)][i] = text;
      ShowList(bench, chosen);
    }
}

} // namespace

void EditPropellants(Workbench &bench) {
  Screen &out = bench.Out;
  Pressure &state = bench.Motor;
  state.Form = {};
  int chosen = 0;
  for (const Propellant &p : state.Library) {
    if (p.Name == state.Inputs.Fuel.Name) chosen = static_cast<int>(state.Form.Entry.size());
    state.Form.Entry.push_back(TextsOf(p));
  }
  ShowList(bench, chosen);
  out[Ctl::Propellants_Form].Visible = true;
  out.Focus = Ctl::Fuel_List;
  out.RunModal(Form::Propellants);
  out[Ctl::Propellants_Form].Visible = false;
  if (!state.Form.Accepted) return;
  const std::string held = state.Inputs.Fuel.Name;
  LoadPropellantLibrary(bench);
  ReadPressureInputs(bench);
  if (state.Inputs.Fuel.Name != held) state.Chosen.clear();
}

void PropellantFormEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::Propellants_Form].Visible) return;
  switch (ActOf(event, Ctl::Fuel_OK, Ctl::Fuel_Cancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: bench.Out[Ctl::Propellants_Form].Visible = false; return;
  case FormAct::None: break;
  }
  if (event.What == Event::Kind::Text) return TypeInto(bench, event.Target, event.Text);
  if (event.What != Event::Kind::Press) return;
  if (event.Target == Ctl::Fuel_Add) return Add(bench);
  if (event.Target == Ctl::Fuel_Delete) return Delete(bench);
  if (event.Target == Ctl::Fuel_List) ChooseEntry(bench, event.Text);
}
