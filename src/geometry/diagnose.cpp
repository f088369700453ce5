#include "geometry/diagnose.h"

#include "base/number_text.h"
#include "geometry/closed_outline.h"
#include "geometry/row_ends.h"
#include "geometry/row_measure.h"
#include "geometry/self_crossings.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {
constexpr std::size_t MostCrossings = 100; // an outline in the making; the first ones are shown
// Three digits of a length, no finer than a nanometre.
std::string Length(double mm) {
  const int places = std::clamp(2 - static_cast<int>(std::floor(std::log10(std::max(mm, 1e-6)))), 0, 6);
  return PlainText(RoundPlaces(mm, places)) + " mm";
}

std::string Counted(std::size_t n, const char *one, const char *many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::string WordsOf(const Diagnosis &d) {
  std::string words;
  const auto add = [&](const std::string &part) { words += (words.empty() ? "" : ", ") + part; };
  if (d.Closed) add("The outline is closed");
  if (d.Gaps.size() == 1) add("1 gap of " + Length(d.Gaps[0].Apart));
  if (d.Gaps.size() > 1)
    add(Counted(d.Gaps.size(), "", "gaps") + ", largest " +
        Length(std::max_element(d.Gaps.begin(), d.Gaps.end(), [](const Gap &a, const Gap &b) {
                 return a.Apart < b.Apart;
               })->Apart));
  if (d.OpenEnds.size() > 2 * d.Gaps.size())
    add(Counted(d.OpenEnds.size() - 2 * d.Gaps.size(), "end without a partner", "ends without a partner"));
  if (const std::size_t n = d.Extra.Duplicates.size(); n > 0)
    add(Counted(n, "duplicate entity", "duplicate entities"));
  if (const std::size_t n = d.Extra.NoLength.size(); n > 0)
    add(Counted(n, "entity of no length", "entities of no length"));
  if (d.Crossings.size() >= MostCrossings)
    add(std::to_string(MostCrossings) + " crossings or more");
  else if (!d.Crossings.empty())
    add(Counted(d.Crossings.size(), "crossing", "crossings"));
  if (!d.Branches.empty()) add("more than two ends meet in " + Counted(d.Branches.size(), "place", "places"));
  if (d.Outlines > 1) add(std::to_string(d.Outlines) + " separate outlines");
  return words;
}

// The rows as groups hanging together by their ends.
int Groups(int rows, const std::vector<RowEnd> &ends, const std::vector<EndPair> &joints,
           const std::vector<bool> &leftOut) {
  std::vector<int> root(static_cast<std::size_t>(rows));
  std::iota(root.begin(), root.end(), 0);
  const auto find = [&](int i) {
    while (root[static_cast<std::size_t>(i)] != i) i = root[static_cast<std::size_t>(i)];
    return i;
  };
  for (const EndPair &pair : joints)
    root[static_cast<std::size_t>(find(ends[pair.One].Index))] = find(ends[pair.Other].Index);
  int groups = 0;
  for (int i = 0; i < rows; ++i) groups += !leftOut[static_cast<std::size_t>(i)] && find(i) == i;
  return groups;
}

// One point for all the ends that meet there.
std::vector<Point> BranchPlaces(const std::vector<RowEnd> &ends, const std::vector<int> &partners,
                                double tolerance) {
  std::vector<Point> places;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    const Point at = ends[i].At;
    const bool told = std::any_of(places.begin(), places.end(), [&](Point p) {
      return std::hypot(p.X - at.X, p.Y - at.Y) <= 2 * tolerance;
    });
    if (partners[i] > 1 && !told) places.push_back(at);
  }
  return places;
}
} // namespace

Diagnosis Diagnose(const EntityTable &table, const GrainDoc &doc) {
  Diagnosis d;
  if (table.EntCount < 0) return d;
  // A file may hold 0, which the burn takes for this.
  const double tolerance = std::max(doc.JoinTolerance, 1e-9 * static_cast<double>(doc.GrainRadius));
  d.Closed = !ClosedOutline(table, tolerance).empty();
  d.Extra = SurplusRows(table);
  const std::vector<bool> extra = Flags(table, d.Extra);
  const std::vector<RowEnd> ends = RowEnds(table, extra);
  const std::vector<EndPair> joints = PairsWithin(ends, tolerance);
  std::vector<int> partners(ends.size());
  for (const EndPair &pair : joints) ++partners[pair.One], ++partners[pair.Other];
  std::vector<RowEnd> open;
  for (std::size_t i = 0; i < ends.size(); ++i)
    if (partners[i] == 0) open.push_back(ends[i]);
  for (const RowEnd &end : open) d.OpenEnds.push_back(end.At);
  for (const EndPair &pair : NearestPairs(open))
    d.Gaps.push_back({open[pair.One].At, open[pair.Other].At, pair.Apart});
  std::vector<Entity> rows;
  for (int i = 0; i <= table.EntCount; ++i)
    if (!extra[static_cast<std::size_t>(i)]) rows.push_back(RowAt(table, i));
  d.Crossings = SelfCrossings(rows, tolerance, MostCrossings);
  if (!d.Closed && open.empty()) {
    d.Branches = BranchPlaces(ends, partners, tolerance);
    d.Outlines = Groups(table.EntCount + 1, ends, joints, extra);
  }
  d.Words = WordsOf(d);
  return d;
}
