#include "burnback/profile.h"

#include "burnback/outline_check.h"
#include "burnback/pieces.h"
#include "burnback/reach.h"

#include <algorithm>
#include <cmath>

void SetFeet(const Profile &p, BurnEntity &row, double from, double to) {
  const Source &s = p.Sources[row.Source];
  if (s.What != Source::Kind::Line) {
    const auto unit = [&](double foot, double &x, double &y) {
      x = std::cos(s.Start + foot);
      y = std::sin(s.Start + foot);
    };
    if (from != row.From || row.To == 0) unit(from, row.FromX, row.FromY);
    if (to != row.To) unit(to, row.ToX, row.ToY);
    // Below half a turn from the halved sine, which keeps its digits; any bound will do above.
    const double quarter = (to - from) / 4;
    row.Height = to - from < Pi ? 2 * std::sin(quarter) * std::sin(quarter) : 2;
  }
  row.From = from;
  row.To = to;
}

void SetEnds(const Profile &p, BurnEntity &row) {
  const Source &s = p.Sources[row.Source];
  if (s.What == Source::Kind::Line) {
    FrontPoint(s, row.From, p.BurnDist, row.BurnX1, row.BurnY1);
    FrontPoint(s, row.To, p.BurnDist, row.BurnX2, row.BurnY2);
    return;
  }
  row.BurnX1 = s.X + row.Radius * row.FromX, row.BurnY1 = s.Y + row.Radius * row.FromY;
  row.BurnX2 = s.X + row.Radius * row.ToX, row.BurnY2 = s.Y + row.Radius * row.ToY;
}

void TurnPoint(double &x, double &y, double angle) {
  const double c = std::cos(angle), s = std::sin(angle), px = x;
  x = px * c - y * s;
  y = px * s + y * c;
}

void Init(Profile &p, const EntityTable &table, double grainRadius, double joinTolerance) {
  p = Profile{};
  p.GrainRadius = grainRadius;
  p.DesignEntCount = table.EntCount + 1;
  const BurnTolerance tol = ToleranceOf(grainRadius);
  joinTolerance = std::max(joinTolerance, 1e-9 * grainRadius); // a file may hold 0
  std::vector<Entity> copy;
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    if (LengthOf(e) > tol.Sliver) copy.push_back(e); // a row of no length burns nothing
  }
  const auto refuse = [&] { TurnPoint(p.ChainTipX, p.ChainTipY, -p.Turn); };
  TurnOffAxes(copy, p.ProfileRotation, p.Turn);
  std::vector<ChainLink> chain;
  bool encloses = true;
  if (copy.size() == 1 && WholeTurn(copy[0])) {
    copy[0].EntType = CircleType;
    copy[0].StartAngle = 0;
    copy[0].EndAngle = TwoPi;
    chain.push_back({copy[0], false});
  } else {
    const auto circle = std::find_if(copy.begin(), copy.end(), WholeTurn);
    if (copy.empty() || circle != copy.end()) {
      if (!copy.empty()) p.ChainTipX = circle->CenterX + circle->Radius, p.ChainTipY = circle->CenterY;
      return refuse();
    }
    if (!WalkChain(copy, joinTolerance, chain, p.ChainTipX, p.ChainTipY)) return refuse();
    encloses = FaceClockwise(chain, grainRadius);
  }
  const double noise = 1e-7 * grainRadius;
  const std::vector<char> bridge = chain.size() == 1 ? std::vector<char>{0} : MakeJointsTrue(chain, noise);
  std::vector<Piece> pieces = PiecesOf(chain, bridge, noise);
  for (Piece &piece : pieces) FinishSource(piece.Src, tol.Slack);
  std::vector<Source> outline;
  for (const Piece &piece : pieces) outline.push_back(piece.Src);
  if (CrossesItself(outline, grainRadius, p.ChainTipX, p.ChainTipY)) return refuse();
  if (!encloses) {
    EndOf(chain[0], false, p.ChainTipX, p.ChainTipY);
    return refuse();
  }
  if (chain.size() > 1) pieces = GetAngleIO(pieces);
  pieces = ClipToGrain(pieces, grainRadius);

  const int n = static_cast<int>(pieces.size());
  for (int i = 0; i < n; ++i) {
    BurnEntity &row = pieces[i].Row;
    Source &s = pieces[i].Src;
    FinishSource(s, tol.Slack);
    s.FirstRow = i;
    row.Source = i;
    if (row.EntType != LineType) {
      FrontPoint(s, 0, 0, row.X1, row.Y1);
      FrontPoint(s, s.Length, 0, row.X2, row.Y2);
    }
    row.BurnX1 = row.X1, row.BurnY1 = row.Y1, row.BurnX2 = row.X2, row.BurnY2 = row.Y2;
    if (pieces[i].JointBefore && n > 1) {
      s.Prev = (i + n - 1) % n;
      pieces[s.Prev].Src.Next = i;
    }
  }
  for (Piece &piece : pieces) {
    p.BurnTable.push_back(piece.Row);
    p.Sources.push_back(piece.Src);
  }
  for (BurnEntity &row : p.BurnTable) SetFeet(p, row, 0, p.Sources[row.Source].Length);
  AddPoints(p.Sources);
  p.ProfileOK = true;
}
