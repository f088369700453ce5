#include "view3d/grain_section.h"

#include "base/number_text.h"
#include "burnback/regression.h"
#include "burnback/run_driver.h"

#include <algorithm>
#include <cmath>

namespace {

struct WalkEnd {
  double X = 0, Y = 0;
  bool AtWall = false;
  int Partner = -1; // the piece that the boundary goes on with, or comes from
};

struct Front {
  SectionPiece Piece;
  WalkEnd First, Last;
  double OutX = 0, OutY = 0, InX = 0, InY = 0; // directions of leaving the first and reaching the last end
};

void SetDirections(Front &f) {
  const SectionPiece &p = f.Piece;
  if (!p.Arc) {
    const double x = f.Last.X - f.First.X, y = f.Last.Y - f.First.Y, l = std::hypot(x, y);
    f.OutX = f.InX = x / l, f.OutY = f.InY = y / l;
    return;
  }
  const double s = p.Sweep > 0 ? 1 : -1, end = p.Start + p.Sweep;
  f.OutX = -s * std::sin(p.Start), f.OutY = s * std::cos(p.Start);
  f.InX = -s * std::sin(end), f.InY = s * std::cos(end);
}

Front FrontOf(const BurnEntity &row, double turn) {
  Front f;
  SectionPiece &p = f.Piece;
  const double c = std::cos(turn), s = std::sin(turn);
  const auto back = [&](double x, double y, double &toX, double &toY) {
    toX = x * c + y * s;
    toY = y * c - x * s;
  };
  p.Source = row.Source;
  p.Arc = row.EntType != LineType;
  const bool backwards = p.Arc && row.Side > 0;
  if (p.Arc) {
    back(row.CenterX, row.CenterY, p.CenterX, p.CenterY);
    p.Radius = row.Radius;
    p.Sweep = row.To - row.From;
    if (backwards) p.Sweep = -p.Sweep;
  }
  back(row.BurnX1, row.BurnY1, f.First.X, f.First.Y);
  back(row.BurnX2, row.BurnY2, f.Last.X, f.Last.Y);
  f.First.AtWall = row.CaseFrom, f.Last.AtWall = row.CaseTo;
  if (backwards) std::swap(f.First, f.Last);
  if (p.Arc) p.Start = std::atan2(f.First.Y - p.CenterY, f.First.X - p.CenterX);
  SetDirections(f);
  return f;
}

// Each last end goes on with the nearest first end. Where several meet at one point, the sharpest turn to the
// left keeps pieces of propellant apart that only touch.
bool JoinFronts(std::vector<Front> &front, double R) {
  const double same = 1e-9 * R, near = 1e-5 * R;
  const auto join = [&](double within) {
    for (std::size_t i = 0; i < front.size(); ++i) {
      Front &f = front[i];
      if (f.Last.AtWall || f.Last.Partner >= 0) continue;
      double best = within, turn = -10;
      int to = -1;
      for (std::size_t j = 0; j < front.size(); ++j) {
        const Front &g = front[j];
        if (g.First.AtWall || g.First.Partner >= 0) continue;
        const double away = std::hypot(g.First.X - f.Last.X, g.First.Y - f.Last.Y);
        if (away >= best + same) continue;
        const double t = std::atan2(f.InX * g.OutY - f.InY * g.OutX, f.InX * g.OutX + f.InY * g.OutY);
        if (to >= 0 && away > best - same && t <= turn) continue;
        best = std::min(best, away);
        turn = t;
        to = static_cast<int>(j);
      }
      if (to < 0) continue;
      f.Last.Partner = to;
      front[to].First.Partner = static_cast<int>(i);
    }
  };
  join(near);
  // An end that rounding has kept from being told as one at the wall.
  const auto settle = [&](WalkEnd &end) {
    if (!end.AtWall && end.Partner < 0) end.AtWall = std::abs(std::hypot(end.X, end.Y) - R) < near;
  };
  for (Front &f : front) settle(f.First), settle(f.Last);
  join(1e-3 * R);
  return std::all_of(front.begin(), front.end(), [](const Front &f) {
    return (f.First.AtWall || f.First.Partner >= 0) && (f.Last.AtWall || f.Last.Partner >= 0);
  });
}

struct WallEnd {
  double Angle = 0;
  int Front = -1;
  bool Arrives = false; // the front's last end: propellant follows counter-clockwise
};

// The ends at the wall once around, taking turns.
bool SortWallEnds(const std::vector<Front> &front, std::vector<WallEnd> &ends) {
  for (std::size_t i = 0; i < front.size(); ++i)
    for (const bool last : {false, true}) {
      const WalkEnd &e = last ? front[i].Last : front[i].First;
      if (e.AtWall) ends.push_back({NormalAngle(std::atan2(e.Y, e.X)), static_cast<int>(i), last});
    }
  std::sort(ends.begin(), ends.end(), [](const WallEnd &a, const WallEnd &b) { return a.Angle < b.Angle; });
  const std::size_t n = ends.size();
  if (n % 2) return false;
  // Two at one place may stand the wrong way round.
  for (std::size_t i = 0; i + 1 < n; ++i)
    if (i > 0 && ends[i].Arrives == ends[i - 1].Arrives && ends[i + 1].Arrives != ends[i].Arrives &&
        ends[i + 1].Angle - ends[i].Angle < 1e-5)
      std::swap(ends[i], ends[i + 1]);
  for (std::size_t i = 0; i < n; ++i)
    if (ends[i].Arrives == ends[(i + 1) % n].Arrives) return false;
  return true;
}

int AddJoint(GrainSection &s, double x, double y) {
  s.Joint.push_back({x, y});
  return static_cast<int>(s.Joint.size()) - 1;
}

void AddWall(GrainSection &s, const std::vector<WallEnd> &ends, std::vector<int> &after) {
  const double R = s.GrainRadius;
  SectionPiece wall;
  wall.Arc = true;
  wall.Radius = R;
  const std::size_t n = ends.size();
  for (std::size_t i = 0; i < n; ++i) {
    const WallEnd &a = ends[i], &b = ends[(i + 1) % n];
    wall.What = a.Arrives ? SectionPiece::Kind::Wall : SectionPiece::Kind::Bare;
    wall.From = a.Arrives ? s.Piece[a.Front].To : s.Piece[a.Front].From;
    wall.To = b.Arrives ? s.Piece[b.Front].To : s.Piece[b.Front].From;
    wall.Start = a.Angle;
    wall.Sweep = b.Angle - a.Angle + (i + 1 == n ? TwoPi : 0);
    after[i] = static_cast<int>(s.Piece.size());
    s.Circle.push_back(after[i]);
    s.Piece.push_back(wall);
  }
  if (n > 0) return;
  wall.What = SectionPiece::Kind::Wall;
  wall.From = wall.To = AddJoint(s, R, 0);
  wall.Sweep = TwoPi;
  s.Circle.push_back(static_cast<int>(s.Piece.size()));
  s.Propellant.push_back(s.Circle);
  s.Piece.push_back(wall);
}

// Loops of pieces, each followed by next[]; -1 for pieces of none.
void Collect(const std::vector<int> &next, std::vector<std::vector<int>> &loops) {
  std::vector<char> done(next.size(), 0);
  for (std::size_t i = 0; i < next.size(); ++i) {
    if (done[i] || next[i] < 0) continue;
    loops.emplace_back();
    for (int at = static_cast<int>(i); !done[at]; at = next[at]) {
      done[at] = 1;
      loops.back().push_back(at);
    }
  }
}

double LoopArea(const GrainSection &s, const std::vector<int> &loop) { // below 0 for a hole
  double twice = 0;
  for (const int i : loop) {
    const SectionPiece &p = s.Piece[i];
    const SectionJoint &a = s.Joint[p.From], &b = s.Joint[p.To];
    twice += a.X * b.Y - b.X * a.Y;
    if (p.Arc) twice += p.Radius * p.Radius * (p.Sweep - std::sin(p.Sweep));
  }
  return twice / 2;
}

// Only propellant that goes all around at the grain circle has holes: a port in one piece stays in one until
// it reaches the wall.
void SeperateGroups(GrainSection &s) {
  int around = -1;
  for (const std::vector<int> &loop : s.Propellant) {
    const double area = LoopArea(s, loop);
    s.Area += area;
    const bool hole = area < 0;
    s.GroupNo.push_back(hole ? -1 : static_cast<int>(s.Group.size()));
    if (hole) continue;
    SectionGroup group;
    group.Area = area;
    for (const int i : loop) {
      if (s.Piece[i].What != SectionPiece::Kind::Wall) continue;
      group.Loose = false;
      if (s.Piece[i].From == s.Piece[i].To) around = s.GroupNo.back();
    }
    s.Group.push_back(group);
  }
  if (s.Group.empty()) return;
  for (std::size_t i = 0; i < s.GroupNo.size(); ++i) {
    if (s.GroupNo[i] >= 0) continue;
    s.GroupNo[i] = std::max(around, 0);
    s.Group[s.GroupNo[i]].Area += LoopArea(s, s.Propellant[i]);
  }
}

bool Assemble(std::vector<Front> &front, GrainSection &s) {
  std::vector<WallEnd> ends;
  if (!JoinFronts(front, s.GrainRadius) || !SortWallEnds(front, ends)) return false;
  const std::size_t n = front.size();
  for (Front &f : front) s.Piece.push_back(f.Piece);
  for (std::size_t i = 0; i < n; ++i) {
    const WalkEnd &first = front[i].First;
    const double grow = first.AtWall ? s.GrainRadius / std::hypot(first.X, first.Y) : 1;
    s.Piece[i].From = AddJoint(s, first.X * grow, first.Y * grow);
    if (first.Partner >= 0) s.Piece[first.Partner].To = s.Piece[i].From;
    const WalkEnd &last = front[i].Last;
    if (!last.AtWall) continue;
    const double out = s.GrainRadius / std::hypot(last.X, last.Y);
    s.Piece[i].To = AddJoint(s, last.X * out, last.Y * out);
  }
  std::vector<int> after(ends.size());
  AddWall(s, ends, after);
  std::vector<int> along(s.Piece.size(), -1), back(s.Piece.size(), -1); // around propellant, around port
  for (std::size_t i = 0; i < n; ++i) {
    along[i] = front[i].Last.Partner;
    back[i] = front[i].First.Partner;
  }
  for (std::size_t i = 0; i < ends.size(); ++i) {
    const int next = ends[(i + 1) % ends.size()].Front;
    (ends[i].Arrives ? along : back)[ends[i].Front] = after[i];
    (ends[i].Arrives ? along : back)[after[i]] = next;
  }
  Collect(along, s.Propellant);
  Collect(back, s.Port);
  SeperateGroups(s);
  return true;
}

void AdvanceTo(const FrontStart &start, double w, Regression &g) {
  g.Chain = start.Start;
  StartRegression(g, 2, std::max(w, 1e-6 * start.GrainRadius));
  if (w <= 0) return;
  g.Chain.BurnIncrement = w;
  StepFront(g);
}

} // namespace

bool PrepareFront(const Design &design, FrontStart &start, BurnRefusal &refusal) {
  refusal = {};
  const double R = design.Doc.GrainRadius;
  const auto refuse = [&](const char *text, bool badUse) {
    refusal.Text = text;
    refusal.BadUse = badUse;
    return false;
  };
  if (!(R > 0)) return refuse("The grain diameter must be greater than 0", true);
  if (design.Table.EntCount < 0) return refuse("Can't Simulate End Burning Geometries", false);
  BurnRun run;
  if (!CheckOutline(design, run, refusal)) return false;
  FrontStart fresh;
  fresh.GrainRadius = R;
  Init(fresh.Start, design.Table, R, design.Doc.JoinTolerance);
  if (!fresh.Start.ProfileOK) {
    refusal.HasPlace = true;
    refusal.X = fresh.Start.ChainTipX;
    refusal.Y = fresh.Start.ChainTipY;
    return refuse("Error: Can't Connect Entities", false);
  }
  if (fresh.Start.Sources.empty()) return refuse("Can't Simulate End Burning Geometries", false);
  start = std::move(fresh);
  return true;
}

std::string SectionAt(const FrontStart &start, double w, GrainSection &section) {
  const double R = start.GrainRadius;
  if (!(w >= 0) || !std::isfinite(w)) return "The burn distance must be 0 mm or more";
  const auto gone = [&] {
    return "Nothing is left to burn at " + PlainText(w) + " mm: the section is burnt out at " +
           PlainText(static_cast<float>(BurnEndOf(start))) + " mm";
  };
  if (w > 2 * R) return gone();
  Regression g;
  AdvanceTo(start, w, g);
  std::vector<Front> front;
  for (const BurnEntity &row : g.Chain.BurnTable) {
    if (row.BurntOut) continue;
    if (row.EntType != LineType && !(row.Radius > 0)) continue; // a corner's arc before the burn
    const Source &s = g.Chain.Sources[row.Source];
    if (FrontLength(s, row.From, row.To, w) < 1e-8 * R && !row.CaseFrom && !row.CaseTo) continue;
    front.push_back(FrontOf(row, g.Chain.Turn));
  }
  if (front.empty()) return gone();
  GrainSection fresh;
  fresh.GrainRadius = R;
  fresh.BurnDist = w;
  if (!Assemble(front, fresh)) return "The front at " + PlainText(w) + " mm does not close";
  section = std::move(fresh);
  return {};
}

double CutThroughPort(const GrainSection &s, double x, double y) {
  double least = HUGE_VAL, most = -HUGE_VAL;
  const auto take = [&](double px, double py) {
    const double at = px * x + py * y;
    least = std::min(least, at), most = std::max(most, at);
  };
  for (const std::vector<int> &loop : s.Port)
    for (const int i : loop) {
      const SectionPiece &p = s.Piece[i];
      take(s.Joint[p.From].X, s.Joint[p.From].Y);
      take(s.Joint[p.To].X, s.Joint[p.To].Y);
      for (const double way : {std::atan2(y, x), std::atan2(-y, -x)}) {
        const double turn = NormalAngle(p.Sweep > 0 ? way - p.Start : p.Start - way);
        if (p.Arc && turn <= std::abs(p.Sweep))
          take(p.CenterX + p.Radius * std::cos(way), p.CenterY + p.Radius * std::sin(way));
      }
    }
  if (!(least <= most)) return 0;
  const double hair = 0.2 * (most - least);
  const bool missed = least > -hair || most < hair, inside = std::max(-least, most) < 0.98 * s.GrainRadius;
  return missed && inside ? (least + most) / 2 : 0;
}

double BurnEndOf(const FrontStart &start) {
  double live = 0, dead = 2 * start.GrainRadius;
  while (dead - live > 1e-9 * start.GrainRadius) {
    const double w = (live + dead) / 2;
    Regression g;
    AdvanceTo(start, w, g);
    (g.LiveRows > 0 ? live : dead) = w;
  }
  return live;
}
