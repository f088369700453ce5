#include "geometry/row_ends.h"

#include "geometry/carrier.h"
#include "geometry/find_entity.h"
#include "geometry/row_measure.h"

#include <algorithm>
#include <limits>
#include <queue>

namespace {
double SquareApart(Point a, Point b) { return (a.X - b.X) * (a.X - b.X) + (a.Y - b.Y) * (a.Y - b.Y); }

constexpr double Far = std::numeric_limits<double>::infinity();

struct Candidate {
  double Square = Far;
  std::size_t From = 0, To = 0;
  bool operator>(const Candidate &o) const { return Square > o.Square; }
};

// Outward along X, as far as something nearer can stand.
Candidate Nearest(const std::vector<RowEnd> &byX, const std::vector<bool> &taken, std::size_t from) {
  Candidate best{Far, from, from};
  const auto look = [&](std::size_t i) {
    const double dx = byX[i].At.X - byX[from].At.X;
    if (dx * dx >= best.Square) return false;
    if (taken[i] || byX[i].Index == byX[from].Index) return true;
    const double square = SquareApart(byX[i].At, byX[from].At);
    if (square < best.Square) best = {square, from, i};
    return true;
  };
  for (std::size_t i = from + 1; i < byX.size() && look(i); ++i) continue;
  for (std::size_t i = from; i > 0 && look(i - 1); --i) continue;
  return best;
}
} // namespace

std::vector<RowEnd> RowEnds(const EntityTable &table, const std::vector<bool> &leftOut) {
  std::vector<RowEnd> ends;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    if (leftOut[static_cast<std::size_t>(i)] || IsWholeTurn(e)) continue;
    const auto at = EndsOf(e);
    ends.push_back({i, 0, at[0]});
    ends.push_back({i, 1, at[1]});
  }
  std::sort(ends.begin(), ends.end(), [](const RowEnd &a, const RowEnd &b) { return a.At.X < b.At.X; });
  return ends;
}

std::vector<EndPair> PairsWithin(const std::vector<RowEnd> &byX, double distance) {
  std::vector<EndPair> pairs;
  for (std::size_t i = 0; i < byX.size(); ++i)
    for (std::size_t j = i + 1; j < byX.size() && byX[j].At.X - byX[i].At.X <= distance; ++j) {
      if (byX[i].Index == byX[j].Index) continue;
      const double apart = Distance(byX[i].At, byX[j].At);
      if (apart <= distance) pairs.push_back({i, j, apart});
    }
  std::stable_sort(pairs.begin(), pairs.end(),
                   [](const EndPair &a, const EndPair &b) { return a.Apart < b.Apart; });
  return pairs;
}

std::vector<EndPair> NearestPairs(const std::vector<RowEnd> &byX) {
  std::vector<bool> taken(byX.size());
  std::vector<EndPair> pairs;
  std::priority_queue<Candidate, std::vector<Candidate>, std::greater<>> waiting;
  for (std::size_t i = 0; i < byX.size(); ++i) waiting.push(Nearest(byX, taken, i));
  // A candidate whose partner went to another end is looked up anew: what it finds then lies no nearer.
  while (!waiting.empty() && waiting.top().Square < Far) {
    const Candidate next = waiting.top();
    waiting.pop();
    if (taken[next.From]) continue;
    if (taken[next.To]) {
      waiting.push(Nearest(byX, taken, next.From));
      continue;
    }
    taken[next.From] = taken[next.To] = true;
    pairs.push_back({next.From, next.To, Distance(byX[next.From].At, byX[next.To].At)});
  }
  std::vector<std::size_t> left;
  for (std::size_t i = 0; i < byX.size(); ++i)
    if (!taken[i]) left.push_back(i);
  if (left.size() == 2) pairs.push_back({left[0], left[1], Distance(byX[left[0]].At, byX[left[1]].At)});
  return pairs;
}
