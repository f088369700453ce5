#pragma once
#include <cstdint>
#include <vector>

// When each ordered pair of sources is to be looked at next. The gap between a front piece and another source
// cannot close faster than two millimetres for each burnt one, so a pair seen at a gap sleeps until it could
// have closed. Pairs of a step stand in a linked list through Next; nothing is allocated while the run goes
// on.
struct PairWatch {
  int Sources = 0, Steps = 0;
  std::vector<std::int32_t> Head; // by kind (0 lines, 1 line and arc, 2 arcs) and step
  std::vector<std::int32_t> Link; // by pair: of * Sources + by
};

inline void StartWatch(PairWatch &w, int sources, int steps) {
  w.Sources = sources;
  w.Steps = steps;
  w.Head.assign(3u * (static_cast<unsigned>(steps) + 2u), -1);
  w.Link.assign(static_cast<std::size_t>(sources) * sources, -1);
}

inline void WatchPair(PairWatch &w, int kind, std::int32_t pair, std::int64_t step) {
  if (step > w.Steps) return; // never in this run
  std::int32_t &head = w.Head[static_cast<std::size_t>(step) * 3u + kind];
  w.Link[pair] = head;
  head = pair;
}

// Takes the list of a step out; walk it by Link, reading the next one before watching the pair again.
inline std::int32_t TakePairs(PairWatch &w, int kind, int step) {
  std::int32_t &head = w.Head[static_cast<std::size_t>(step) * 3u + kind];
  const std::int32_t first = head;
  head = -1;
  return first;
}
