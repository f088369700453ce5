#include "drafting/cutting.h"

#include "drafting/command_machine.h"
#include "drafting/cutting_picks.h"
#include "drafting/report.h"
#include "geometry/section.h"

#include <array>

namespace {
Section SectionAt(const Drafting &d, Point at) {
  const double grainRadius = static_cast<double>(d.Grain.Doc.GrainRadius);
  if (d.Play.On) {
    const Section there = SectionTrim(d.Grain.Table, at, grainRadius);
    const int row = d.Play.Row;
    if (row < 0 || row > d.Grain.Table.EntCount || (there.Found && there.Cut.Index == row)) return there;
    if (d.Play.RowType != 0 && RowAt(d.Grain.Table, row).EntType != d.Play.RowType) return there;
    PickScope recorded;
    recorded.SnapActive = true;
    recorded.SnapEntity = row;
    return SectionTrim(d.Grain.Table, at, grainRadius, recorded);
  }
  PickScope scope;
  scope.SnapActive = d.Track.Target.SnapActive && at.X == d.Cmd.TrackX && at.Y == d.Cmd.TrackY;
  scope.SnapEntity = d.Track.Target.SnapEntity;
  return SectionTrim(d.Grain.Table, at, grainRadius, scope);
}
} // namespace

void ClickSection(Drafting &d, Point at) {
  const Section section = SectionAt(d, at);
  if (!section.Found) return Report(d, "Entity not found");
  d.Log.PickedType = section.Cut.Row.EntType;
  const std::array picks{section.Cut, section.Left, section.Right};
  const bool done = ApplyPicks(d, picks, [](const EntityTable &, std::span<const PickedRow> p) {
    Section image;
    image.Found = true;
    image.Cut = p[0];
    image.Left = p[1];
    image.Right = p[2];
    return SectionCut(image);
  });
  if (!done) return;
  LogInput(d, LogFoundEnt, section.Cut.Index, at.X, at.Y);
  RestartCommand(d);
}
