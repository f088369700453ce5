#include "burnback/live_burn.h"

#include "base/fault.h"

#include <algorithm>
#include <tuple>

namespace {
bool SameRow(const Entity &a, const Entity &b) {
  const auto circle = [](const Entity &e) { return std::tie(e.CenterX, e.CenterY, e.Radius); };
  const auto arc = [](const Entity &e) { return std::tie(e.StartAngle, e.EndAngle); };
  const auto ends = [](const Entity &e) { return std::tie(e.X1, e.Y1, e.X2, e.Y2); };
  if (a.EntType != b.EntType) return false;
  if (a.EntType != LineType && circle(a) != circle(b)) return false;
  if (a.EntType == ArcType && arc(a) != arc(b)) return false;
  return a.EntType == CircleType || ends(a) == ends(b);
}
} // namespace

bool SameBurn(const Design &a, const Design &b) {
  const auto grain = [](const GrainDoc &d) {
    return std::tie(d.GrainRadius, d.GrainLength, d.ThroatDiam, d.EndsExposed, d.JoinTolerance);
  };
  const auto rows = [](const Design &d) { return d.Table.Row.begin() + d.Table.EntCount + 1; };
  return a.Table.EntCount == b.Table.EntCount && grain(a.Doc) == grain(b.Doc) &&
         std::equal(a.Table.Row.begin(), rows(a), b.Table.Row.begin(), SameRow);
}

LiveResult BurnLive(const LiveRequest &request) {
  LiveResult result;
  result.Number = request.Number;
  BurnRefusal refusal;
  try {
    result.Burnt = BurnDesign(request.Grain, {}, result.Run, refusal);
  } catch (const Fault &fault) {
    refusal.Text = fault.Text;
  }
  result.Open = refusal.Open;
  result.Trouble = refusal.Text;
  return result;
}
