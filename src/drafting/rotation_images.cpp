#include "drafting/rotation_draw.h"

#include "geometry/carrier.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double SameRow = 1e-6; // mm: rows so near are one and the same

bool WholeTurn(const Entity &arc) { return ArcSweep(arc) > TwoPi - 1e-12; }

Point ArcPoint(const Entity &arc, double angle) {
  return {arc.CenterX + arc.Radius * std::cos(angle), arc.CenterY + arc.Radius * std::sin(angle)};
}

// The largest distance between things that should be one, mm.
double Deviation(const Entity &a, const Entity &b) {
  if (a.EntType != b.EntType) return std::numeric_limits<double>::infinity();
  if (a.EntType == LineType) {
    const Point a1{a.X1, a.Y1}, a2{a.X2, a.Y2}, b1{b.X1, b.Y1}, b2{b.X2, b.Y2};
    return std::min(std::max(Distance(a1, b1), Distance(a2, b2)),
                    std::max(Distance(a1, b2), Distance(a2, b1)));
  }
  const double round = std::max(Distance(CentreOf(a), CentreOf(b)), std::abs(a.Radius - b.Radius));
  if (a.EntType == CircleType) return round;
  return std::max({round, Distance(ArcPoint(a, a.StartAngle), ArcPoint(b, b.StartAngle)),
                   Distance(ArcPoint(a, a.EndAngle), ArcPoint(b, b.EndAngle))});
}

bool SameCarrier(const Entity &a, const Entity &b) {
  if ((a.EntType == LineType) != (b.EntType == LineType)) return false;
  if (a.EntType == LineType) {
    const Carrier c = CarrierOf(a);
    return std::abs(AsideOf(c, {b.X1, b.Y1})) < SameRow && std::abs(AsideOf(c, {b.X2, b.Y2})) < SameRow;
  }
  return Distance(CentreOf(a), CentreOf(b)) < SameRow && std::abs(a.Radius - b.Radius) < SameRow;
}

// The point of the entity nearest to a place.
Point NearestOn(const Entity &e, Point p) {
  if (e.EntType == LineType) {
    const Carrier c = CarrierOf(e);
    return PointAlong(c, std::clamp(AlongOf(c, p), 0.0, GetLineLength(e)));
  }
  const double angle = Bearing(CentreOf(e), p);
  if (e.EntType == CircleType || AngleInArc(angle, e, ArcEnds::Closed)) return ArcPoint(e, angle);
  const Point first = ArcPoint(e, e.StartAngle), second = ArcPoint(e, e.EndAngle);
  return Distance(first, p) < Distance(second, p) ? first : second;
}

struct RowHistory {
  int Id = 0;   // the index before the change; new rows count on from there
  int Root = 0; // the Id of the row it was split from, else its own
};

// The table while the rounds go on.
struct Rounds {
  const EntityTable &Before;
  EntityTable Table;
  std::vector<RowHistory> History; // by row of Table
  std::vector<bool> Touched;       // by Id
  int NextId = 0;

  explicit Rounds(const EntityTable &before) : Before(before), Table(before) {
    NextId = before.EntCount + 1;
    Touched.resize(static_cast<std::size_t>(NextId));
    for (int i = 0; i < NextId; ++i) History.push_back({i, i});
  }
  const RowHistory &At(int row) const { return History.at(static_cast<std::size_t>(row)); }
};

// The table's own refusal when it is full.
Box Advance(Rounds &r, Solution step) {
  const auto madeBefore = [&](const Entity &e) {
    for (int i = 0; i <= r.Table.EntCount; ++i)
      if (r.At(i).Id > r.Before.EntCount && Deviation(RowAt(r.Table, i), e) < SameRow) return true;
    return false;
  };
  std::erase_if(step.Added, madeBefore);
  std::vector<RowHistory> born;
  for (const Entity &e : step.Added) {
    RowHistory h{r.NextId, r.NextId};
    ++r.NextId;
    for (const RowChange &c : step.Changed)
      if (SameCarrier(c.Row, e)) h.Root = r.At(c.Index).Root;
    born.push_back(h);
  }
  if (Box full = Commit(r.Table, step); !full.Text.empty()) return full;
  for (const RowChange &c : step.Changed)
    if (const int id = r.At(c.Index).Id; id <= r.Before.EntCount)
      r.Touched[static_cast<std::size_t>(id)] = true;
  r.History.insert(r.History.end(), born.begin(), born.end());
  std::sort(step.Deleted.begin(), step.Deleted.end(), std::greater<>());
  for (const int i : step.Deleted) r.History.erase(r.History.begin() + i);
  return {};
}

Solution WholeChange(const Rounds &r) {
  Solution whole;
  std::vector<bool> here(r.Touched.size());
  for (int i = 0; i <= r.Table.EntCount; ++i) {
    const int id = r.At(i).Id;
    if (id > r.Before.EntCount) {
      whole.Added.push_back(RowAt(r.Table, i));
      continue;
    }
    here[static_cast<std::size_t>(id)] = true;
    if (r.Touched[static_cast<std::size_t>(id)]) whole.Changed.push_back({id, RowAt(r.Table, i)});
  }
  for (int id = 0; id <= r.Before.EntCount; ++id)
    if (!here[static_cast<std::size_t>(id)]) whole.Deleted.push_back(id);
  return whole;
}

int NearestRow(const Rounds &r, Point place, double within, const std::function<bool(int)> &fits) {
  int best = -1;
  for (int i = 0; i <= r.Table.EntCount; ++i) {
    if (!fits(i)) continue;
    const double off = Distance(NearestOn(RowAt(r.Table, i), place), place);
    if (best < 0 ? off <= within : off < within) {
      best = i;
      within = off;
    }
  }
  return best;
}

PickedRow ImagePick(const Rounds &r, const PickedRow &pick, double angle, const GrainDoc &doc) {
  if (!pick.Found) return pick;
  const Point at = Turned(pick.At, angle);
  if (pick.Index > r.Before.EntCount) { // the grain's edge, its own image
    PickedRow edge = pick;
    edge.Index = r.Table.EntCount + 1;
    edge.At = at;
    return edge;
  }
  const Entity &was = RowAt(r.Before, pick.Index);
  if (const int image = ImageOf(r.Before, was, angle, doc.JoinTolerance); image >= 0) {
    const int part = NearestRow(r, at, std::numeric_limits<double>::infinity(),
                                [&](int i) { return r.At(i).Root == image; });
    return part < 0 ? PickedRow{} : RowPick(r.Table, part, at);
  }
  const Point on = Turned(NearestOn(was, pick.At), angle);
  const int there = NearestRow(r, on, doc.JoinTolerance, [&](int i) {
    return (RowAt(r.Table, i).EntType == LineType) == (was.EntType == LineType);
  });
  return there < 0 ? PickedRow{} : RowPick(r.Table, there, at);
}

// False when one of them is not there.
bool ImagePicks(const Rounds &r, std::span<const PickedRow> picks, double angle, const GrainDoc &doc,
                std::vector<PickedRow> &images) {
  images.clear();
  for (const PickedRow &pick : picks) {
    images.push_back(ImagePick(r, pick, angle, doc));
    if (pick.Found && !images.back().Found) return false;
  }
  return true;
}

bool Opens(const EntityTable &before, const RowChange &c) {
  return c.Row.EntType == ArcType && OnOrigin(RowAt(before, c.Index), SameRow);
}

// The one stretch that the pieces of an opened circle make; false when they are apart or still whole.
bool KeptStretch(const std::vector<Entity> &piece, double &start, double &end) {
  if (piece.empty() || piece.size() > 2) return false;
  start = piece[0].StartAngle;
  end = piece[0].EndAngle;
  if (piece.size() == 1) return !WholeTurn(piece[0]);
  const bool after = SameAngle(end, piece[1].StartAngle), before = SameAngle(piece[1].EndAngle, start);
  if (after) end = piece[1].EndAngle;
  if (before) start = piece[1].StartAngle;
  return after != before;
}

} // namespace

Entity TurnedRow(const Entity &row, double angle) {
  Entity e = row;
  e.Selected = false;
  if (e.EntType == LineType) {
    const Point a = Turned({row.X1, row.Y1}, angle), b = Turned({row.X2, row.Y2}, angle);
    SetLineEnds(e, a, b);
    SetLineSlope(e);
    return e;
  }
  const Point centre = Turned(CentreOf(row), angle);
  e.CenterX = centre.X;
  e.CenterY = centre.Y;
  if (e.EntType == ArcType && !WholeTurn(row)) {
    e.StartAngle = NormalAngle(row.StartAngle + angle);
    e.EndAngle = NormalAngle(row.EndAngle + angle);
    SetArcEnds(e);
  } else { // angles a whole turn apart would fall together
    e.EntType = CircleType;
    e.X1 = e.X2 = e.CenterX + e.Radius;
    e.Y1 = e.Y2 = e.CenterY;
  }
  return e;
}

void AppendCopies(const RotationDraw &rotation, const Entity &row, std::vector<Entity> &to) {
  for (int k = 1; k < rotation.RotationCount; ++k) to.push_back(TurnedRow(row, k * rotation.RotationPitch));
}

int ImageOf(const EntityTable &table, const Entity &row, double angle, double tolerance) {
  const Entity turned = TurnedRow(row, angle);
  int best = -1;
  double least = tolerance;
  for (int i = 0; i <= table.EntCount; ++i)
    if (const double off = Deviation(RowAt(table, i), turned); off <= least && (best < 0 || off < least)) {
      least = off;
      best = i;
    }
  return best;
}

bool OnOrigin(const Entity &e, double tolerance) {
  return e.EntType == CircleType && std::hypot(e.CenterX, e.CenterY) < tolerance;
}

Solution OpenOriginCircle(const RotationDraw &rotation, const EntityTable &before, const Solution &once,
                          int times) {
  const auto opened = std::find_if(once.Changed.begin(), once.Changed.end(),
                                   [&](const RowChange &c) { return Opens(before, c); });
  if (!once.Solved() || times < 2 || opened == once.Changed.end()) return once;
  std::vector<Entity> piece{opened->Row};
  for (const Entity &e : once.Added)
    if (e.EntType == ArcType && SameCarrier(e, opened->Row)) piece.push_back(e);
  double start = 0, end = 0;
  if (!KeptStretch(piece, start, end)) return once;

  const double pitch = rotation.RotationPitch, kept = NormalAngle(end - start), removed = TwoPi - kept;
  const bool repeatKept = kept <= pitch + 1e-9;
  if (!repeatKept && pitch - removed <= 1e-9) return once;
  std::vector<Entity> arcs;
  for (int k = 0; k < times; ++k) {
    const bool last = k == times - 1;
    Entity arc = opened->Row;
    arc.StartAngle = NormalAngle(start + k * pitch);
    arc.EndAngle = NormalAngle(repeatKept ? end + k * pitch : last ? end : end + (k + 1) * pitch);
    SetArcEnds(arc);
    arcs.push_back(arc);
  }
  Solution whole = once;
  whole.Changed[static_cast<std::size_t>(opened - once.Changed.begin())].Row = arcs[0];
  std::erase_if(whole.Added,
                [&](const Entity &e) { return e.EntType == ArcType && SameCarrier(e, opened->Row); });
  whole.Added.insert(whole.Added.end(), arcs.begin() + 1, arcs.end());
  return whole;
}

Solution
SolveWithImages(const Drafting &d, std::span<const PickedRow> picks,
                const std::function<Solution(const EntityTable &, std::span<const PickedRow>)> &solve) {
  const EntityTable &before = d.Grain.Table;
  const Solution once = solve(before, picks);
  if (!once.Solved() || !d.Rotation.Active) return once;

  Rounds rounds(before);
  std::vector<PickedRow> images;
  const double pitch = d.Rotation.RotationPitch;
  if (std::any_of(once.Changed.begin(), once.Changed.end(),
                  [&](const RowChange &c) { return Opens(before, c); })) {
    int times = 1;
    while (times < d.Rotation.RotationCount && ImagePicks(rounds, picks, times * pitch, d.Grain.Doc, images))
      ++times;
    Solution opened = OpenOriginCircle(d.Rotation, before, once, times);
    if (opened.Added.size() != once.Added.size()) return opened;
  }
  Box full = Advance(rounds, once);
  for (int k = 1; k < d.Rotation.RotationCount && full.Text.empty(); ++k) {
    if (!ImagePicks(rounds, picks, k * pitch, d.Grain.Doc, images)) break;
    const Solution step = solve(rounds.Table, images);
    if (!step.Solved()) break;
    full = Advance(rounds, step);
  }
  if (full.Text.empty()) return WholeChange(rounds);
  Solution failed;
  failed.Failure = full;
  return failed;
}
