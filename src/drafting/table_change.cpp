#include "drafting/table_change.h"

#include "geometry/carrier.h"
#include "geometry/find_entity.h"

#include <algorithm>
#include <bitset>
#include <cmath>
#include <utility>

namespace {

// Along a row: mm from a line's first end, radians counter-clockwise from an arc's start.
struct Course {
  const Entity &Row;
  double Length = 0, Least = 0;
  Carrier Line;

  Course(const Entity &row, double tolerance) : Row(row) {
    if (row.EntType == LineType) {
      Line = CarrierOf(row);
      Length = GetLineLength(row);
      Least = tolerance;
    } else {
      Length = row.EntType == CircleType ? TwoPi : ArcSweep(row);
      Least = tolerance / std::max(row.Radius, tolerance);
    }
  }
  double Begin() const { return Row.EntType == ArcType ? Row.StartAngle : 0; }
  Entity Piece(double from, double to) const {
    if (Row.EntType == LineType) {
      const Point a = PointAlong(Line, from), b = PointAlong(Line, to);
      return MakeLine(a.X, a.Y, b.X, b.Y);
    }
    if (to - from > TwoPi - Least) return CircleRow(CentreOf(Row), Row.Radius);
    return MakeArc(Row.CenterX, Row.CenterY, Row.Radius, NormalAngle(Begin() + from),
                   NormalAngle(Begin() + to));
  }
  bool Carries(const Entity &e, double tolerance) const {
    if ((e.EntType == LineType) != (Row.EntType == LineType)) return false;
    if (Row.EntType == LineType)
      return std::abs(AsideOf(Line, {e.X1, e.Y1})) < tolerance &&
             std::abs(AsideOf(Line, {e.X2, e.Y2})) < tolerance;
    return std::abs(Row.Radius - e.Radius) < tolerance && Distance(CentreOf(Row), CentreOf(e)) < tolerance;
  }
  // The stretches that a row on the same carrier covers: one, or two of a round one past the start.
  template <typename Take>
  void Spans(const Entity &e, Take take) const {
    if (Row.EntType == LineType) {
      const double a = AlongOf(Line, {e.X1, e.Y1}), b = AlongOf(Line, {e.X2, e.Y2});
      return take(std::min(a, b), std::max(a, b));
    }
    const double sweep = e.EntType == CircleType ? TwoPi : ArcSweep(e);
    double from = e.EntType == CircleType ? 0 : NormalAngle(e.StartAngle - Begin());
    if (TwoPi - from < Least) from = 0; // a start that is this one's own
    take(from, std::min(from + sweep, TwoPi));
    if (from + sweep > TwoPi) take(0.0, from + sweep - TwoPi);
  }
  double Shared(const Entity &e) const {
    double shared = 0;
    Spans(e, [&](double from, double to) {
      shared += std::max(0.0, std::min(to, Length) - std::max(from, 0.0));
    });
    return shared;
  }
};

using Taken = std::bitset<301>;

int FindTwin(const EntityTable &table, const Entity &row, int near, const Taken &taken) {
  const auto fits = [&](int i) {
    return !taken[static_cast<std::size_t>(i)] && SameGeometry(RowAt(table, i), row);
  };
  if (near <= table.EntCount && fits(near)) return near;
  for (int i = 0; i <= table.EntCount; ++i)
    if (fits(i)) return i;
  return -1;
}

// Rows that are equal are taken in pairs: a second one like it is another row.
void Differing(const EntityTable &before, const EntityTable &after, TableChange &change) {
  change.Before.clear();
  change.After.clear();
  Taken taken;
  int near = 0; // rows move up behind one that was deleted
  for (int i = 0; i <= before.EntCount; ++i) {
    const int twin = FindTwin(after, RowAt(before, i), near, taken);
    if (twin >= 0)
      taken.set(static_cast<std::size_t>(twin));
    else
      change.Before.push_back(RowAt(before, i));
    near = twin >= 0 ? twin + 1 : near + (after.EntCount >= before.EntCount);
  }
  for (int i = 0; i <= after.EntCount; ++i)
    if (!taken[static_cast<std::size_t>(i)]) change.After.push_back({RowAt(after, i), -1});
}

void Pair(TableChange &change, double tolerance) {
  for (TableChange::Pairing &made : change.After) {
    const auto has = [&](int on) {
      return std::any_of(change.After.data(), &made, [on](const auto &other) { return other.On == on; });
    };
    double most = 0;
    for (std::size_t i = 0; i < change.Before.size(); ++i) {
      const Course course(change.Before[i], tolerance);
      if (!course.Carries(made.Row, tolerance)) continue;
      const double shared = course.Shared(made.Row);
      const bool nearer = shared > std::max(course.Least, most + course.Least);
      const bool free = shared > most - course.Least && shared > course.Least && made.On >= 0 &&
                        has(made.On) &&
                        !has(static_cast<int>(i)); // of rows one upon the other each has its own
      if (!nearer && !free) continue;
      most = shared;
      made.On = static_cast<int>(i);
    }
  }
}

void FindBreaks(TableChange &change, int on, double tolerance) {
  for (std::size_t i = 0; i < change.After.size(); ++i)
    for (std::size_t j = i + 1; j < change.After.size(); ++j) {
      if (change.After[i].On != on || change.After[j].On != on) continue;
      for (const Point p : EndsOf(change.After[i].Row))
        for (const Point q : EndsOf(change.After[j].Row))
          if (Distance(p, q) < tolerance) change.Breaks.push_back(p);
    }
}

// A changed row against all that lies on it now.
void Cover(TableChange &change, int on, double tolerance) {
  const Course course(change.Before[static_cast<std::size_t>(on)], tolerance);
  const auto add = [&](std::vector<Entity> &to, double from, double until) {
    if (until - from > course.Least) to.push_back(course.Piece(from, until));
  };
  change.Span.clear();
  for (const TableChange::Pairing &made : change.After)
    if (made.On == on)
      course.Spans(made.Row, [&](double from, double to) {
        add(change.Made, from, std::min(to, 0.0));
        add(change.Made, std::max(from, course.Length), to);
        if (std::min(to, course.Length) > std::max(from, 0.0))
          change.Span.emplace_back(std::max(from, 0.0), std::min(to, course.Length));
      });
  std::sort(change.Span.begin(), change.Span.end());
  double reached = 0;
  for (const auto &[from, to] : change.Span) {
    add(change.Gone, reached, from);
    add(change.Kept, std::max(from, reached), to);
    reached = std::max(reached, to);
  }
  add(change.Gone, reached, course.Length);
  if (change.Span.size() > 1) FindBreaks(change, on, tolerance);
}

} // namespace

bool SameGeometry(const Entity &a, const Entity &b) {
  if (a.EntType != b.EntType) return false;
  if (a.EntType == LineType) return a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 && a.Y2 == b.Y2;
  const bool round = a.CenterX == b.CenterX && a.CenterY == b.CenterY && a.Radius == b.Radius;
  return round && (a.EntType == CircleType || (a.StartAngle == b.StartAngle && a.EndAngle == b.EndAngle));
}

void CompareTables(const EntityTable &before, const EntityTable &after, double tolerance,
                   TableChange &change) {
  for (std::vector<Entity> *list : {&change.Gone, &change.Kept, &change.Made}) list->clear();
  change.Breaks.clear();
  Differing(before, after, change);
  Pair(change, tolerance);
  for (std::size_t i = 0; i < change.Before.size(); ++i) Cover(change, static_cast<int>(i), tolerance);
  for (const TableChange::Pairing &made : change.After)
    if (made.On < 0) change.Made.push_back(made.Row);
}
