#include "shell/tool_finder.h"

#include "drafting/command_table.h"
#include "shell/form_answer.h"

#include <algorithm>
#include <cctype>

namespace {
constexpr int UpKey = 38, DownKey = 40;

// What people call a tool who do not know its name here.
struct ToolWords {
  Ctl Target;
  const char *Words;
};
constexpr ToolWords Synonyms[] = {
    {Ctl::Sing_Line, "segment edge straight"},
    {Ctl::Str_Line, "polyline chain path connected multiline"},
    {Ctl::LineHorizontal, "level flat"},
    {Ctl::LineVertical, "upright plumb"},
    {Ctl::LineHorzVert, "orthogonal square axis"},
    {Ctl::LineAngle, "inclined slanted sloped"},
    {Ctl::LineParaDist, "offset copy shifted"},
    {Ctl::LineParaPoint, "offset"},
    {Ctl::LinePerp, "normal square orthogonal"},
    {Ctl::LineTanPnt, "touching"},
    {Ctl::LineTan2Crc, "touching belt arc common"},
    {Ctl::LinePrepPrep, "normal shortest connection"},
    {Ctl::Circle_Radius, "hole bore disc tube"},
    {Ctl::Circle_Diameter, "hole bore disc tube"},
    {Ctl::Circle_CtrEdge, "hole bore disc tube centre middle"},
    {Ctl::Circle_2pts, "hole"},
    {Ctl::Circle_3pts, "hole through"},
    {Ctl::Circle2Tangents, "touching inscribed ttr"},
    {Ctl::Circle3Tangents, "touching inscribed incircle ttt"},
    {Ctl::Arc_Radius, "bow curve"},
    {Ctl::Arc_Diameter, "bow curve"},
    {Ctl::Arc_CtrEdge, "bow curve centre"},
    {Ctl::Arc_Angle, "bow curve included sweep"},
    {Ctl::Arc_3_Points, "bow curve through"},
    {Ctl::ArcTTRad, "touching curve"},
    {Ctl::ArcTTT, "touching curve"},
    {Ctl::BoxWidthHeight, "rectangle square slot"},
    {Ctl::BoxEdges, "rectangle square slot"},
    {Ctl::LinePoly, "hexagon pentagon octagon triangle ngon sides"},
    {Ctl::LineSegment, "explode approximate facets flatten segments"},
    {Ctl::FilletArc, "round radius corner blend smooth"},
    {Ctl::FilletArc2, "round radius corner blend"},
    {Ctl::FilletChamfer, "bevel corner cut"},
    {Ctl::FilletEnd, "cap slot fin tip full"},
    {Ctl::TrimSingle, "extend cut shorten lengthen"},
    {Ctl::TrimBoth, "extend corner join connect close"},
    {Ctl::TrimDouble, "extend cut between"},
    {Ctl::TrimDivide, "cut gap open middle"},
    {Ctl::TrimMulti, "extend cut several"},
    {Ctl::BreakSingle, "split cut"},
    {Ctl::BreakBoth, "split cut crossing"},
    {Ctl::BreakDouble, "split cut"},
    {Ctl::BreakMulti, "split cut several"},
    {Ctl::Cut_Section, "trim piece remove clip power"},
    {Ctl::XFormDelta, "shift translate displace copy array"},
    {Ctl::XFormOldNew, "shift translate drag copy"},
    {Ctl::XFormRotate, "turn spin array copies polar pattern"},
    {Ctl::XFormScale, "resize enlarge shrink size copies"},
    {Ctl::XFormMirror, "reflect flip symmetry copy"},
    {Ctl::XFormBoxMove, "move lengthen resize"},
    {Ctl::EraseSingle, "erase remove rubber"},
    {Ctl::DeleteEntities, "erase remove clear"},
    {Ctl::RotateDraw, "array polar pattern symmetry repeat star copies"},
    {Ctl::DeactivateRDraw, "array polar pattern end"},
    {Ctl::Verify, "properties inspect list info query"},
    {Ctl::VerifyPos, "coordinates point id locate"},
    {Ctl::VerifyDist, "measure length ruler dimension"},
    {Ctl::VerifyAngle, "measure degrees"},
    {Ctl::VerifyPerim, "measure length circumference"},
    {Ctl::VerifyArea, "measure surface section centroid"},
    {Ctl::Zoom_Window, "magnify enlarge"},
    {Ctl::Zoom_Reset, "fit whole all extents"},
    {Ctl::Zoom_x2, "magnify closer"},
    {Ctl::Zoom_1h, "farther smaller"},
    {Ctl::mnuRefresh, "redraw repaint regenerate"},
    {Ctl::mnuGrid, "raster spacing colors snap"},
    {Ctl::RunSim2, "simulate burn start calculate kn"},
    {Ctl::Design_Mode, "edit drawing results"},
    {Ctl::mnuDims, "diameter length throat size grain"},
    {Ctl::mnuOptions, "settings preferences defaults tolerance"},
    {Ctl::mnuIncrements, "contours steps"},
    {Ctl::mnuEditUndo, "revert back"},
    {Ctl::mnuEditRedo, "again repeat"},
};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char &c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words(1);
  for (const char c : Lower(text))
    if (std::isalnum(static_cast<unsigned char>(c)))
      words.back() += c;
    else if (!words.back().empty())
      words.emplace_back();
  if (words.back().empty()) words.pop_back();
  return words;
}

// 2 the word itself, 1 the beginning of one, 0 neither.
int Fits(const std::vector<std::string> &words, const std::string &asked) {
  int best = 0;
  for (const std::string &word : words)
    if (word.starts_with(asked)) best = std::max(best, word == asked ? 2 : 1);
  return best;
}

// The button of rotation draw shows its count, the page's heading its name.
std::string NameOf(Ctl tool) {
  return tool == Ctl::RotateDraw ? "Rotation Draw" : std::string(RowOf(tool).Text);
}

int Score(const Screen &out, const ToolWords &tool, const std::vector<std::string> &asked) {
  const auto name = WordsOf(NameOf(tool.Target)), other = WordsOf(tool.Words),
             hint = WordsOf(out[tool.Target].Hint);
  int score = name == asked ? 100 : 0;
  for (const std::string &word : asked) {
    const int best = std::max({Fits(name, word) * 4, Fits(other, word) * 4, Fits(hint, word)});
    if (best == 0) return -1;
    score += best;
  }
  return score;
}

bool CanStart(const Screen &out, Ctl tool) {
  const bool drawing = CommandOf(tool) || tool == Ctl::RotateDraw; // sleeps while results are shown
  return out[tool].Enabled && out[tool].Visible && (!drawing || !out[Ctl::Design_Mode].Visible);
}

void Fill(Screen &out, const std::string &query) {
  Control &list = out[Ctl::Find_List];
  out[Ctl::Find_Text].Text = query;
  list.Item.clear();
  for (const Ctl tool : FindTools(out, query)) {
    const std::string &hint = out[tool].Hint;
    list.Item.push_back(hint.starts_with(NameOf(tool)) ? hint : NameOf(tool));
  }
  list.Index = list.Item.empty() ? -1 : 0;
}

void Close(Screen &out) { out[Ctl::Find_Tool].Visible = false; }
} // namespace

std::vector<Ctl> FindTools(const Screen &out, std::string_view query) {
  const auto asked = WordsOf(query);
  std::vector<std::pair<int, Ctl>> found;
  for (const ToolWords &tool : Synonyms)
    if (const int score = CanStart(out, tool.Target) ? Score(out, tool, asked) : -1; score >= 0)
      found.emplace_back(score, tool.Target);
  std::stable_sort(found.begin(), found.end(),
                   [](const auto &a, const auto &b) { return a.first > b.first; });
  std::vector<Ctl> tools;
  for (const auto &[score, tool] : found) tools.push_back(tool);
  return tools;
}

std::optional<Ctl> AskTool(Workbench &bench) {
  Screen &out = bench.Out;
  Fill(out, "");
  out[Ctl::Find_Tool].Visible = true;
  out.Focus = Ctl::Find_Text;
  out.RunModal(Form::FindTool);
  Close(out);
  out.Focus = Ctl::DrawPanel;
  const auto tools = FindTools(out, out[Ctl::Find_Text].Text);
  const int chosen = out[Ctl::Find_List].Index;
  if (chosen < 0 || chosen >= static_cast<int>(tools.size())) return std::nullopt;
  return tools[static_cast<std::size_t>(chosen)];
}

void FindToolEvent(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  if (!out[Ctl::Find_Tool].Visible) return;
  Control &list = out[Ctl::Find_List];
  const int last = static_cast<int>(list.Item.size()) - 1;
  if (event.What == Event::Kind::Text && event.Target == Ctl::Find_Text) return Fill(out, event.Text);
  if (event.What == Event::Kind::Press && event.Target == Ctl::Find_List) {
    const auto item = std::find(list.Item.begin(), list.Item.end(), event.Text);
    if (item == list.Item.end()) return;
    list.Index = static_cast<int>(item - list.Item.begin());
    return Close(out);
  }
  switch (ActOf(event, Ctl::Count, Ctl::Count)) {
  case FormAct::Accept:
    if (last >= 0) Close(out);
    return;
  case FormAct::Cancel: list.Index = -1; return Close(out);
  case FormAct::None: break;
  }
  if (event.What != Event::Kind::Key) return;
  if (event.KeyCode == UpKey) list.Index = std::max(list.Index - 1, std::min(0, last));
  if (event.KeyCode == DownKey) list.Index = std::min(list.Index + 1, last);
}
