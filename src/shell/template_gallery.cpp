#include "shell/template_gallery.h"

#include "base/whole_file.h"
#include "drafting/ask_question.h"
#include "outputs/bitmap.h"
#include "shell/template_picture.h"
#include "shell/template_play.h"

#include <algorithm>

namespace {
constexpr int EnterKey = 13, EscapeKey = 27, UpKey = 38, DownKey = 40, DeleteKey = 46, F2 = 113;
constexpr int RightButton = 2, AltKey = 4;
constexpr const char *Filter = "All Files (*.*)|*.*|Templates (*.Mac)|*.Mac";

std::size_t Chosen(const Workbench &bench) { // past the end: none
  const int index = bench.Out[Ctl::ListView1].Index;
  return index < 0 ? bench.Template.Entry.size() : static_cast<std::size_t>(index);
}

PictureItem ItemOf(const TemplateFolders &folders, const TemplateEntry &entry) {
  PictureItem item{entry.Key, entry.Description, FindPicture(folders, entry.Key), {}};
  if (std::string bytes; !ReadWhole(item.PictureFile, bytes).empty() || !IsWholeBitmap(bytes))
    item.PictureFile.clear();
  MacFile mac;
  if (item.PictureFile.empty() && ReadMacFile(FindTemplate(folders, entry.Key), mac).empty())
    item.Drawing = TemplateSurface(mac);
  return item;
}

void ShowList(Workbench &bench, std::size_t chosen) {
  Screen &out = bench.Out;
  TemplateState &state = bench.Template;
  Control &list = out[Ctl::ListView1];
  list.Item.clear();
  out.Gallery.clear();
  for (const TemplateEntry &entry : state.Entry) {
    list.Item.push_back(entry.Key);
    out.Gallery.push_back(ItemOf(state.Folders, entry));
  }
  ++out.GalleryNumber;
  list.Index = std::min(static_cast<int>(chosen), static_cast<int>(list.Item.size()) - 1);
  out[Ctl::Use_Template].Enabled = list.Index >= 0;
  out[Ctl::Gallery_Note].Text =
      list.Index >= 0 ? "" : "There are no templates yet: record one by Make Template, or add a file.";
}

void Tell(Workbench &bench, const std::string &text, const char *title) {
  bench.Out.Ask({text, title, Buttons::Ok, Icon::Exclamation});
}

void AddGeometry(Workbench &bench) {
  TemplateState &state = bench.Template;
  const auto path = bench.Out.AskFile(FileUse::Open, Filter, state.Folders.Template);
  if (!path || path->empty()) return;
  MacFile mac;
  if (const std::string trouble = AddTemplate(state.Folders, state.Entry, *path, mac); !trouble.empty())
    return Tell(bench, trouble,
                trouble.starts_with("Error: Duplicate") ? "Duplication Error" : "Add Template");
  const std::string trouble = WriteTemplatePicture(state.Folders, KeyOf(*path), mac);
  ShowList(bench, state.Entry.size() - 1);
  if (!trouble.empty()) Tell(bench, trouble, "Add Template");
}

void Use(Workbench &bench) {
  if (Chosen(bench) >= bench.Template.Entry.size()) return;
  bench.Template.PlayName = bench.Template.Entry[Chosen(bench)].Key;
  bench.Out[Ctl::Grain_Selection_Window].Visible = false;
}

void Rename(Workbench &bench) {
  const std::size_t at = Chosen(bench);
  if (at >= bench.Template.Entry.size()) return;
  std::string &description = bench.Template.Entry[at].Description;
  const std::string text = AskText(bench.Out, "Description:", "Rename Description", description);
  if (text.empty()) return;
  description = text;
  ShowList(bench, at);
}

void Move(Workbench &bench, int by) {
  const std::size_t at = Chosen(bench), to = at + static_cast<std::size_t>(by);
  if (MoveTemplate(bench.Template.Entry, at, to)) ShowList(bench, to);
}

void Remove(Workbench &bench) {
  auto &entries = bench.Template.Entry;
  const std::size_t at = Chosen(bench);
  if (at >= entries.size()) return;
  entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(at));
  ShowList(bench, at);
}

void ShowFile(Workbench &bench) {
  if (Chosen(bench) >= bench.Template.Entry.size()) return;
  Screen &out = bench.Out;
  const std::string &key = bench.Template.Entry[Chosen(bench)].Key;
  const std::string path = FindTemplate(bench.Template.Folders, key);
  std::string bytes;
  const std::string trouble = path.empty() ? MissingTemplate() : ReadWhole(path, bytes);
  if (!trouble.empty()) return Tell(bench, trouble, "Show File");
  std::erase(bytes, '\r');
  out[Ctl::Template_File].Text = path;
  out[Ctl::Template_File_Text].Text = bytes;
  out[Ctl::Template_File].Visible = true;
  out.RunModal(Form::TemplateFile);
  out[Ctl::Template_File].Visible = false;
}

constexpr struct {
  const char *Item;
  void (*Action)(Workbench &);
} ShortCuts[] = {{"Use Template...", Use},
                 {"Rename Description...", Rename},
                 {"Move Up", [](Workbench &b) { Move(b, -1); }},
                 {"Move Down", [](Workbench &b) { Move(b, 1); }},
                 {"Remove from List", Remove},
                 {"Show File...", ShowFile}};

void Press(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  if (!out[event.Target].Enabled) return;
  out[Ctl::ShortCutMenu].Visible = false;
  switch (event.Target) {
  case Ctl::ListView1:
    for (std::size_t i = 0; i < bench.Template.Entry.size(); ++i)
      if (bench.Template.Entry[i].Key == event.Text) out[Ctl::ListView1].Index = static_cast<int>(i);
    out[Ctl::ShortCutMenu].Visible =
        event.Button == RightButton && Chosen(bench) < bench.Template.Entry.size();
    return;
  case Ctl::ShortCutMenu:
    for (const auto &row : ShortCuts)
      if (event.Text == row.Item) row.Action(bench);
    return;
  case Ctl::Use_Template: return Use(bench);
  case Ctl::Add_Grain_Geometry: return AddGeometry(bench);
  case Ctl::Gallery_Close: out[Ctl::Grain_Selection_Window].Visible = false; return;
  default: return;
  }
}

void Key(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  const bool alt = event.Shift == AltKey, list = event.Target == Ctl::ListView1;
  if (event.KeyCode == EscapeKey) {
    Control &menu =
        out[Ctl::ShortCutMenu].Visible ? out[Ctl::ShortCutMenu] : out[Ctl::Grain_Selection_Window];
    menu.Visible = false;
    return;
  }
  if (!list) return;
  if (event.KeyCode == EnterKey) Use(bench);
  if (event.KeyCode == DeleteKey) Remove(bench);
  if (event.KeyCode == F2) Rename(bench);
  if (alt && event.KeyCode == UpKey) Move(bench, -1);
  if (alt && event.KeyCode == DownKey) Move(bench, 1);
}
} // namespace

std::string TakeShippedTemplates(Workbench &bench) {
  constexpr const char *section = "Templates", *key = "Offered";
  constexpr char parted = '/'; // no template's name holds it
  std::string text = GetSetting(bench.Settings, section, key);
  std::vector<std::string> offered;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(parted, at), text.size());
    offered.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  const std::size_t before = offered.size();
  std::string trouble =
      SetUpTemplates(bench.Template.Folders, ShippedTemplates(bench.Folders.Install), offered);
  if (offered.size() == before) return trouble;
  text.clear();
  for (const std::string &name : offered) text += (text.empty() ? "" : "/") + name;
  SaveSetting(bench.Settings, section, key, text);
  return trouble.empty() ? WriteSettings(bench.Settings) : trouble;
}

std::string ListTemplate(TemplateState &state, const std::string &key, const MacFile &mac) {
  if (const std::string trouble = WriteTemplatePicture(state.Folders, key, mac); !trouble.empty())
    return trouble;
  std::vector<TemplateEntry> list;
  if (const std::string trouble = ReadTemplateIndex(state.Folders, list); !trouble.empty()) return trouble;
  const bool there =
      std::any_of(list.begin(), list.end(), [&](const TemplateEntry &e) { return e.Key == key; });
  if (there) return {};
  list.push_back({key, key});
  return WriteTemplateIndex(state.Folders, list);
}

void ShowGallery(Workbench &bench) {
  TemplateState &state = bench.Template;
  Screen &out = bench.Out;
  std::string trouble = TakeShippedTemplates(bench);
  if (trouble.empty()) trouble = ReadTemplateIndex(state.Folders, state.Entry);
  if (!trouble.empty()) return Tell(bench, trouble, "Grain Templates"); // the list is not written over
  state.PlayName.clear();
  ShowList(bench, 0);
  out[Ctl::ShortCutMenu].Item.clear();
  for (const auto &row : ShortCuts) out[Ctl::ShortCutMenu].Item.emplace_back(row.Item);
  out[Ctl::ShortCutMenu].Visible = false;
  out[Ctl::Grain_Selection_Window].Visible = true;
  out.Focus = Ctl::ListView1;
  out.RunModal(Form::Gallery);
  out[Ctl::Grain_Selection_Window].Visible = false;
  trouble = WriteTemplateIndex(state.Folders, state.Entry);
  if (!trouble.empty()) Tell(bench, trouble, "Grain Templates");
  if (!state.PlayName.empty()) MacroPlay2_Click(bench, state.PlayName);
}

void GalleryEvent(Workbench &bench, const Event &event) {
  switch (event.What) {
  case Event::Kind::Close: bench.Out[Ctl::Grain_Selection_Window].Visible = false; return;
  case Event::Kind::Press: return Press(bench, event);
  case Event::Kind::Key: return Key(bench, event);
  default: return;
  }
}

void TemplateFileEvent(Workbench &bench, const Event &event) {
  const bool escape = event.What == Event::Kind::Key && event.KeyCode == EscapeKey;
  const bool press = event.What == Event::Kind::Press && event.Target == Ctl::Template_File_Close;
  if (escape || press || event.What == Event::Kind::Close) bench.Out[Ctl::Template_File].Visible = false;
}
