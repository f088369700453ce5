#include "shell/help_pages.h"

#include "base/whole_file.h"
#include "drafting/command_table.h"
#include "drafting/hot_keys.h"

#include <algorithm>

namespace {
constexpr int EscapeKey = 27;
constexpr std::string_view AnchorHead = "<a id=\"", AnchorTail = "\"></a>";

// Takes the anchors out of a heading.
std::vector<std::string> TakeAnchors(std::string &heading) {
  std::vector<std::string> names;
  for (auto from = heading.find(AnchorHead); from != heading.npos; from = heading.find(AnchorHead)) {
    const auto to = heading.find(AnchorTail, from);
    if (to == heading.npos) break;
    const auto name = from + AnchorHead.size();
    names.push_back(heading.substr(name, to - name));
    heading.erase(from, to + AnchorTail.size() - from);
  }
  return names;
}

std::string Bare(std::string text) { // without the line ends around it
  while (!text.empty() && text.back() == '\n') text.pop_back();
  const auto first = text.find_first_not_of('\n');
  return first == text.npos ? std::string() : text.substr(first);
}

// The place of the page about a control; -1: there is none.
int PageOf(const std::vector<HelpPage> &pages, Ctl about) {
  for (std::size_t i = 0; i < pages.size(); ++i)
    for (const std::string &name : pages[i].Anchor)
      if (FindControl(name) == about) return static_cast<int>(i);
  return -1;
}

std::vector<HelpPage> ShippedPages(const Workbench &bench, std::string &trouble) {
  std::string text;
  trouble = ReadWhole(bench.Folders.Install + "docs/tools.md", text);
  if (!trouble.empty()) return {};
  auto pages = SplitHelp(text);
  if (pages.empty()) trouble = bench.Folders.Install + "docs/tools.md holds no page";
  return pages;
}

// The keys that start the tools a page is about.
std::string KeysOf(const Workbench &bench, const HelpPage &page) {
  std::string keys;
  for (const std::string &name : page.Anchor) {
    const auto control = FindControl(name);
    const auto slot = static_cast<std::size_t>(control ? SlotOf(*control) : 0);
    const std::string key = HotKeyText(bench.Draft.HotKeyTable[slot]);
    if (slot != 0 && !key.empty() && keys.find(key) == keys.npos) keys += (keys.empty() ? "" : ", ") + key;
  }
  return keys.empty() ? keys : "\n\nHot key: " + keys;
}

void ShowPage(Workbench &bench, const std::vector<HelpPage> &pages, std::size_t i) {
  Screen &out = bench.Out;
  Control &list = out[Ctl::Help_List];
  list.Item.clear();
  for (const HelpPage &page : pages) list.Item.push_back(page.Title);
  list.Index = static_cast<int>(i);
  out[Ctl::Help_Text].Text = pages[i].Text + KeysOf(bench, pages[i]);
  out[Ctl::Help_Window].Text = "Help - " + pages[i].Title;
  out[Ctl::Help_Window].Visible = true;
}
} // namespace

std::vector<HelpPage> SplitHelp(std::string_view markdown) {
  std::vector<HelpPage> pages;
  bool open = false, fenced = false; // a line of the text belongs to a page; # is no heading in a code block
  while (!markdown.empty()) {
    const auto end = markdown.find('\n');
    std::string line(markdown.substr(0, end));
    markdown.remove_prefix(end == markdown.npos ? markdown.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.starts_with("```")) fenced = !fenced;
    const auto level = fenced ? 0 : std::min(line.find_first_not_of('#'), line.size());
    if (level == 1 || level == 2) {
      HelpPage page{TakeAnchors(line), {}, line + "\n"};
      page.Title = line.substr(std::min(line.size(), level + 1));
      open = !page.Anchor.empty();
      if (open) pages.push_back(std::move(page));
    } else if (open) {
      pages.back().Text += line + "\n";
    }
  }
  for (HelpPage &page : pages) page.Text = Bare(page.Text);
  return pages;
}

void ShowHelp(Workbench &bench, Ctl about) {
  std::string trouble;
  const auto pages = ShippedPages(bench, trouble);
  if (trouble.empty())
    return ShowPage(bench, pages, static_cast<std::size_t>(std::max(0, PageOf(pages, about))));
  Screen &out = bench.Out;
  out[Ctl::Help_List].Item.clear();
  out[Ctl::Help_List].Index = -1;
  out[Ctl::Help_Text].Text = "The help pages cannot be shown. " + trouble;
  out[Ctl::Help_Window].Visible = true;
}

void HelpKey(Workbench &bench, Ctl target) {
  const CommandRow *running = FindCommand(bench.Draft.Cmd.CmdNo);
  const bool field = target == Ctl::X_Input || target == Ctl::Y_Input || target == Ctl::DrawPanel;
  ShowHelp(bench, field && running ? running->Button : target);
}

void HelpEvent(Workbench &bench, const Event &event) {
  const bool escape = event.What == Event::Kind::Key && event.KeyCode == EscapeKey;
  if (event.What == Event::Kind::Close || escape) {
    bench.Out[Ctl::Help_Window].Visible = false;
    return;
  }
  if (event.What != Event::Kind::Press || event.Target != Ctl::Help_List) return;
  std::string trouble;
  const auto pages = ShippedPages(bench, trouble);
  for (std::size_t i = 0; i < pages.size(); ++i)
    if (pages[i].Title == event.Text) return ShowPage(bench, pages, i);
}
