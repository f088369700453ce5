#pragma once
#include "macros/template_trials.h"
#include "outputs/named_figures.h"

#include <cstdint>
#include <functional>
#include <memory>

// The best values of a template's variables: by controlled random search over the ranges, then by descent
// from the best so far, again and again on the whole ranges and on what lies around the best.

struct SearchRange {
  double Least = 0, Most = 0;
  bool Whole = false; // whole numbers only
};

struct SearchRule { // a figure that is to be kept
  std::string Figure;
  bool Below = true; // at most Limit, else at least
  double Limit = 0;
};

struct Search {
  TemplateTrials Template;
  std::vector<SearchRange> Range; // of each name that varies
  std::vector<double> Start;      // values to try first; empty: none
  Propellant Fuel;
  bool TopEnd = true;
  std::string Figure; // a key of named_figures
  bool Maximise = false;
  std::vector<SearchRule> Rule;
  std::uint64_t Seed = 1; // the same seed tries the same values in the same order
  std::size_t MostTrials = 20000;
  double Seconds = 20; // at most
};

struct SearchTrial {
  std::string Trouble; // of drawing, burn or motor; empty: the figures are there
  std::vector<double> Value;
  std::vector<NamedFigure> Figure;
  double Goal = 0;   // the figure that is sought
  double Excess = 0; // how far the rules are broken, relative; 0: all are kept
};

// Why it cannot begin: an unknown figure (the known ones are listed), a range that is none, no variable.
std::string CheckSearch(const Search &);
// "FIGURE<VALUE", "FIGURE>VALUE", also with "=" behind the sign. The trouble, or empty.
std::string ReadRule(const std::string &text, SearchRule &);

// The design and the figures of these values.
SearchTrial TrySearch(TemplatePlayer &, const Search &, std::span<const double> value, Design &);

struct SearchProgress {
  std::size_t Trials = 0;
  const SearchTrial &Best;
  bool Better = false; // than all before it
};
// Returns the best trial; its Value is empty when none could be drawn. `step` is called after each trial;
// false ends the search. Not for two threads at once with one generator: each thread has its own.
SearchTrial RunSearch(const Search &, const std::function<bool(const SearchProgress &)> &step);
