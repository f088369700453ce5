#include "shell/template_search.h"

#include "base/number_text.h"
#include "shell/burn_chart.h"
#include "shell/template_rows.h"
#include "shell/template_search_inputs.h"

#include <algorithm>
#include <chrono>

namespace {
constexpr int EnterKey = 13;
const std::vector<std::string> Ways = {"Maximise", "Minimise"}, Sides = {"at least", "at most"};

Ctl Rule(Ctl first, int i) { return TemplateControl(first, i); }

bool OfPanel(Ctl c) { return c >= Ctl::Template_Optimise && c <= Ctl::Optimise_Note; }

void Offer(Screen &out, Ctl list, const std::vector<std::string> &items) {
  Control &shown = out[list];
  shown.Item = items;
  const auto held = std::find(items.begin(), items.end(), shown.Text);
  shown.Index = held == items.end() ? -1 : static_cast<int>(held - items.begin());
}

void Mark(Workbench &bench, const std::string &words, Ctl field) {
  for (int c = static_cast<int>(Ctl::Optimise_Frame); c <= static_cast<int>(Ctl::Optimise_Note); ++c)
    bench.Out[static_cast<Ctl>(c)].Hint = static_cast<Ctl>(c) == field ? words : "";
  bench.Out[Ctl::Optimise_Note].Text = words;
}

// "Neutrality 94.3 %, volume loading 80 % (at least 80 %)"
std::string BestText(const Search &search, const SearchTrial &best) {
  std::string text = "Best so far\n" + FigureName(search.Figure) + " " + FigureTold(best, search.Figure);
  for (const SearchRule &rule : search.Rule) {
    text += "\n" + FigureName(rule.Figure) + " " + FigureTold(best, rule.Figure) +
            (rule.Below ? ", at most " : ", at least ") + FigureTold(rule.Figure, rule.Limit);
  }
  return text;
}

// What the search has told so far; the best values into the rows.
void Take(Workbench &bench) {
  Screen &out = bench.Out;
  TemplateSeeking &seek = bench.Template.Ask.Seek;
  SearchNews &news = *seek.Running;
  SearchTrial best;
  std::size_t better = 0;
  {
    const std::lock_guard hold(news.Lock);
    better = news.Better;
    if (better != seek.Shown) best = news.Best;
    const double part =
        std::max(news.Seconds / seek.Asked->Seconds,
                 static_cast<double>(news.Trials) / static_cast<double>(seek.Asked->MostTrials));
    out[Ctl::Optimise_Bar].Text = std::to_string(static_cast<int>(100 * std::min(part, 1.0)));
    out[Ctl::Optimise_Progress].Text = FormatMask(static_cast<double>(news.Trials), "##,##0") + " trials, " +
                                       FormatMask(news.Seconds, "0.0") + " s";
  }
  if (better == seek.Shown) return;
  seek.Shown = better;
  if (!best.Trouble.empty()) return;
  out[Ctl::Optimise_Best].Text = BestText(*seek.Asked, best);
  seek.Found = seek.From;
  for (std::size_t i = 0; i < seek.Row.size(); ++i) {
    seek.Found.Answer[At(seek.Row[i])] = PlainText(best.Value[i]);
    seek.Found.Touched[At(seek.Row[i])] = true;
  }
  PutAnswers(bench, seek.Found);
}

void Finish(Workbench &bench, const char *how) {
  TemplateSeeking &seek = bench.Template.Ask.Seek;
  Take(bench);
  const std::shared_ptr<SearchNews> news = std::exchange(seek.Running, nullptr);
  const std::lock_guard hold(news->Lock);
  bench.Out[Ctl::Optimise_Progress].Text += std::string(". ") + how;
  std::string words;
  if (news->Trials == 0)
    words = "Nothing was tried";
  else if (!news->Best.Trouble.empty())
    words = "None of these values can be worked out: " + news->Best.Trouble;
  else if (news->Best.Excess > 0)
    words = "No trial keeps all that is to be kept; this one comes nearest";
  Mark(bench, words, Ctl::Count);
  ShowRows(bench);
}

void Run(const Search &search, SearchNews &news, const std::function<void()> &tell) {
  const auto begun = std::chrono::steady_clock::now();
  RunSearch(search, [&](const SearchProgress &now) {
    {
      const std::lock_guard hold(news.Lock);
      news.Trials = now.Trials;
      news.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
      if (now.Better) {
        news.Best = now.Best;
        ++news.Better;
      }
    }
    tell();
    return !news.Stop;
  });
}

void Start(Workbench &bench) {
  TemplateAsking &ask = bench.Template.Ask;
  TemplateSeeking &seek = ask.Seek;
  Search search;
  std::vector<int> rows;
  Ctl field = Ctl::Count;
  std::string trouble;
  if (!EvaluateAnswers(bench)) {
    trouble = ask.Trouble;
    field = TemplateControl(Ctl::VariableName0, std::max(ask.AtFault, 0));
  } else {
    trouble = ReadSearch(bench, search, rows, field);
    if (trouble.empty()) trouble = CheckSearch(search);
  }
  Mark(bench, trouble, field);
  if (!trouble.empty()) {
    bench.Out.Focus = field;
    return;
  }
  if (!seek.HasBefore || ask.Given != seek.Found) seek.Before = ask.Given;
  seek.HasBefore = true;
  seek.From = ask.Given;
  // A length by a formula of the diameter is what it is now.
  if (rows.front() == 0 && !bench.Out[Ctl::Optimise_Vary1].Checked)
    seek.From.Answer[1] = PlainText(ask.Doc.GrainLength);
  seek.Found = seek.From;
  seek.Row = std::move(rows);
  seek.Shown = 0;
  ask.Before = BurnCurve(ask.Run);
  bench.Out[Ctl::Optimise_Best].Text.clear();
  const auto asked = std::make_shared<const Search>(std::move(search));
  const auto news = std::make_shared<SearchNews>();
  seek.Asked = asked;
  seek.Running = news;
  Take(bench);
  ShowRows(bench);
  bench.Out.Focus = Ctl::Optimise_Stop;
  const auto mine = [&bench, news] { return bench.Template.Ask.Seek.Running == news; };
  bench.Out.StartSearch([asked, news](const std::function<void()> &tell) { Run(*asked, *news, tell); },
                        [&bench, mine] {
                          if (mine()) Take(bench);
                        },
                        [&bench, mine] {
                          if (mine()) Finish(bench, "Done");
                        });
}

void Restore(Workbench &bench) {
  TemplateSeeking &seek = bench.Template.Ask.Seek;
  if (!seek.HasBefore) return;
  seek.HasBefore = false;
  for (const Ctl c : {Ctl::Optimise_Progress, Ctl::Optimise_Best}) bench.Out[c].Text.clear();
  Mark(bench, {}, Ctl::Count);
  PutAnswers(bench, TemplateAnswers(seek.Before));
}

void Choose(Workbench &bench, Ctl list, const std::string &item) {
  const std::vector<std::string> &items = bench.Out[list].Item;
  if (std::find(items.begin(), items.end(), item) != items.end()) bench.Out[list].Text = item;
}

void Press(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  TemplateSeeking &seek = bench.Template.Ask.Seek;
  const int row = RowAmong(event.Target, Ctl::Optimise_Vary0);
  if (event.Target == Ctl::Template_Optimise) {
    seek.Open = !seek.Open;
    if (!seek.Open) StopSearch(bench);
    ShowRows(bench);
    if (seek.Open) out.Focus = Ctl::Optimise_Start;
  } else if (event.Target == Ctl::Optimise_Start) {
    Start(bench);
  } else if (event.Target == Ctl::Optimise_Stop) {
    StopSearch(bench);
  } else if (event.Target == Ctl::Optimise_Restore) {
    Restore(bench);
  } else if (row >= 0) {
    out[event.Target].Checked = !out[event.Target].Checked;
  } else {
    Choose(bench, event.Target, event.Text);
  }
}

void Typed(Workbench &bench, Ctl field, const std::string &text) {
  for (const Ctl first : {Ctl::Optimise_From0, Ctl::Optimise_To0})
    if (const int row = RowAmong(field, first); row >= 0) bench.Template.Ask.Seek.Ranged[At(row)] = true;
  bench.Out[field].Text = text;
}
} // namespace

void OfferSearch(Workbench &bench) {
  Screen &out = bench.Out;
  for (int row = 0; row < TemplateRows; ++row)
    out[TemplateControl(Ctl::Optimise_Vary0, row)].Checked = row >= FirstUserVariable;
  for (const Ctl c : {Ctl::Optimise_Progress, Ctl::Optimise_Best}) out[c].Text.clear();
  Mark(bench, {}, Ctl::Count);
}

void ShowSearch(Workbench &bench) {
  Screen &out = bench.Out;
  const TemplateAsking &ask = bench.Template.Ask;
  const TemplateSeeking &seek = ask.Seek;
  const bool running = seek.Running != nullptr;
  for (int c = static_cast<int>(Ctl::Optimise_Frame); c <= static_cast<int>(Ctl::Optimise_Note); ++c) {
    out[static_cast<Ctl>(c)].Visible = seek.Open;
    out[static_cast<Ctl>(c)].Enabled = !running;
  }
  out[Ctl::Template_Optimise].Visible = !ask.Prompts;
  out[Ctl::Template_Optimise].Checked = seek.Open;
  for (int row = 0; row < TemplateRows; ++row) {
    const auto v = VariableOf(ask, row);
    for (const Ctl first : {Ctl::Optimise_Vary0, Ctl::Optimise_From0, Ctl::Optimise_To0})
      out[TemplateControl(first, row)].Visible = seek.Open && v;
    if (!v || seek.Ranged[At(row)]) continue;
    out[TemplateControl(Ctl::Optimise_From0, row)].Text = SliderText(*v, v->Least);
    out[TemplateControl(Ctl::Optimise_To0, row)].Text = SliderText(*v, v->Most);
  }
  Offer(out, Ctl::Optimise_Way, Ways);
  Offer(out, Ctl::Optimise_Figure, SearchFigures());
  std::vector<std::string> kept = SearchFigures();
  kept.insert(kept.begin(), "");
  for (int i = 0; i < SearchRules; ++i) {
    Offer(out, Rule(Ctl::Optimise_Rule0, i), kept);
    Offer(out, Rule(Ctl::Optimise_Side0, i), Sides);
  }
  out[Ctl::Optimise_Start].Visible = seek.Open && !running;
  out[Ctl::Optimise_Stop].Visible = running;
  for (const Ctl c : {Ctl::Optimise_Stop, Ctl::Optimise_Progress, Ctl::Optimise_Bar, Ctl::Optimise_Best})
    out[c].Enabled = true;
  out[Ctl::Optimise_Restore].Enabled = !running && seek.HasBefore && ask.Given != seek.Before;
}

bool SearchEvent(Workbench &bench, const Event &event) {
  if (!OfPanel(event.Target)) return false;
  const Control &control = bench.Out[event.Target];
  if (!control.Visible || !control.Enabled) return true;
  switch (event.What) {
  case Event::Kind::Press: Press(bench, event); break;
  case Event::Kind::Text: Typed(bench, event.Target, event.Text); break;
  case Event::Kind::Key:
    if (event.KeyCode != EnterKey) return false; // the form's
    Start(bench);
    break;
  default: break;
  }
  ShowSearch(bench);
  return true;
}

void StopSearch(Workbench &bench) {
  TemplateSeeking &seek = bench.Template.Ask.Seek;
  if (!seek.Running) return;
  seek.Running->Stop = true;
  Finish(bench, "Stopped");
}
