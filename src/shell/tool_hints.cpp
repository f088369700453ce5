#include "shell/tool_hints.h"

#include "drafting/hot_keys.h"

namespace {
constexpr ToolHint Hints[] = {
    {Ctl::Sing_Line, "Line: two points, or one point and a typed length and angle"},
    {Ctl::Str_Line, "String of Lines: point after point, each line begins where the last one ended"},
    {Ctl::LineHorizontal, "Horizontal Line: a position, then the end"},
    {Ctl::LineVertical, "Vertical Line: a position, then the end"},
    {Ctl::LineHorzVert, "Horizontal or Vertical Line: the longer way to the end point decides"},
    {Ctl::LineAngle, "Line at Angle: pick a line, give the angle to it, then the two ends"},
    {Ctl::LineParaDist, "Parallel at Distance: give the distance, pick a line, then click its side"},
    {Ctl::LineParaPoint, "Parallel through Point: pick a line, then the point"},
    {Ctl::LinePerp, "Perpendicular Line: pick a line, then the point it starts from"},
    {Ctl::LineTanPnt, "Tangent from Point: pick a circle or arc near the tangent, then the point"},
    {Ctl::LineTan2Crc, "Tangent to Two Circles: pick both on the side where the line shall touch"},
    {Ctl::LinePrepPrep, "Perpendicular to Two: pick a line, circle or arc, then a circle or arc"},
    {Ctl::Circle_Radius, "Circle by Radius: give the radius, then click each center"},
    {Ctl::Circle_Diameter, "Circle by Diameter: give the diameter, then click each center"},
    {Ctl::Circle_CtrEdge,
     "Circle by Center and Edge: the center, then a point of the circle or a typed diameter"},
    {Ctl::Circle_2pts, "Circle by 2 Points: the two ends of a diameter"},
    {Ctl::Circle_3pts, "Circle by 3 Points: three points of the circle"},
    {Ctl::Circle2Tangents, "Circle Tangent to 2: pick two entities, then type the radius"},
    {Ctl::Circle3Tangents, "Circle Tangent to 3 Lines: pick three lines on the circle's side"},
    {Ctl::Arc_Radius, "Arc by Radius: give radius and angles, then click each center"},
    {Ctl::Arc_Diameter, "Arc by Diameter: give diameter and angles, then click each center"},
    {Ctl::Arc_CtrEdge, "Arc by Center and Edge: give the angles, then the center and a point of the arc"},
    {Ctl::Arc_Angle, "Arc by 2 Points and Angle: give the angle, then both ends"},
    {Ctl::Arc_3_Points, "Arc by 3 Points: start, a point between, end"},
    {Ctl::ArcTTRad, "Arc Tangent to 2: pick two entities, then type the radius"},
    {Ctl::ArcTTT, "Arc Tangent to 3 Lines: pick three lines, the arc ends on the outer two"},
    {Ctl::BoxWidthHeight, "Box by Width and Height: give both and the point the click places"},
    {Ctl::BoxEdges, "Box by Corners: two opposite corners"},
    {Ctl::LinePoly, "Polygon: give sides and radius, then click the center"},
    {Ctl::LineSegment, "Circle or Arc to Lines: pick it, then give the number of lines and the angles"},
    {Ctl::FilletArc, "Fillet: give the radius, then pick both sides of the corner; they are cut back"},
    {Ctl::FilletArc2, "Fillet Without Trimming: as the fillet, both sides stay whole"},
    {Ctl::FilletChamfer, "Chamfer: give two distances, then pick the two lines"},
    {Ctl::FilletEnd, "Round End: pick three lines, an arc takes the place of the middle one"},
    {Ctl::TrimSingle, "Trim: pick what to trim or extend on the part that stays, then what cuts it"},
    {Ctl::TrimBoth, "Trim Both: pick two entities on the parts that stay, each cuts the other"},
    {Ctl::TrimDouble, "Trim Both Ends: pick the part that stays, then what cuts it on either side"},
    {Ctl::TrimDivide, "Divide: pick the entity, then two that cut; the part between goes"},
    {Ctl::TrimMulti, "Trim Many: pick what cuts, then each entity on the part that stays"},
    {Ctl::BreakSingle, "Break: pick an entity, then the one that breaks it; both parts stay"},
    {Ctl::BreakBoth, "Break Both: pick two entities, each breaks the other"},
    {Ctl::BreakDouble, "Break Twice: pick an entity, then the two that break it"},
    {Ctl::BreakMulti, "Break Many: pick what breaks, then each entity to be broken"},
    {Ctl::Cut_Section, "Cut Section: click the piece between two crossings, it goes"},
    {Ctl::XFormDelta, "Move by Offset: select, then give the offset in X and Y"},
    {Ctl::XFormOldNew, "Move by 2 Points: select, then a base and where it goes"},
    {Ctl::XFormRotate, "Rotate: select, give the angle, then click the center"},
    {Ctl::XFormScale, "Scale: select, give the factor, then click the origin"},
    {Ctl::XFormMirror, "Mirror: select, then the mirror line"},
    {Ctl::XFormBoxMove, "Stretch Box: two corners; ends inside the box move, those outside stay"},
    {Ctl::EraseSingle, "Delete One: each click deletes one entity"},
    {Ctl::DeleteEntities, "Delete Selection: select, then Enter (or select first and press Delete)"},
    {Ctl::RotateDraw, "Rotation Draw: repeats whatever is drawn around the grain center"},
    {Ctl::DeactivateRDraw, "Rotation Draw Off: draws once again"},
    {Ctl::Verify, "Attributes: all numbers of the entity clicked"},
    {Ctl::VerifyPos, "Position: the place of a point and its distance from the grain center"},
    {Ctl::VerifyDist, "Distance: between two points"},
    {Ctl::VerifyAngle, "Angle: between two lines"},
    {Ctl::VerifyPerim, "Perimeter: the length of what is selected"},
    {Ctl::VerifyArea, "Area: of a closed outline, and its centroid"},
    {Ctl::Cursor, "Cursor: the point clicked"},
    {Ctl::End_Ent, "End: the end nearest to the click"},
    {Ctl::Center_of_Ent, "Center: of a circle or arc, the middle of a line"},
    {Ctl::Intersection, "Intersection: where two entities cross"},
    {Ctl::Along_Line, "Along Line: at a distance from the nearer end"},
    {Ctl::Key_In, "Key In: typed X and Y, for one point"},
    {Ctl::Delta, "Delta: the next point lies off the one given, by X and Y"},
    {Ctl::AutoPoint, "Auto: ends, centers and curves near the pointer are taken by themselves"},
    {Ctl::Zoom_Window, "Zoom Window: two corners; the running tool goes on after it"},
    {Ctl::tbBack, "Back: one step back in the running tool (right mouse button)"},
    {Ctl::tbEscape, "Escape: leaves the running tool (Esc)"},
    {Ctl::tbRotationDraw, "Rotation Draw: repeats whatever is drawn around the grain center"},
    {Ctl::tbConfigure, "Configure: the values that the tools offer first"},
    {Ctl::mnuOptions, "Options: the values that the tools offer first"},
    {Ctl::mnuGrid, "Grid & Snap: spacing, line type, snap and the drawing's colors"},
    {Ctl::mnuIncrements, "Sim Increment Display: burn steps from one contour to the next"},
    {Ctl::mnuFindTool, "Find a Tool: by its name or by what it is called elsewhere (Ctrl+K)"},
    {Ctl::mnuHelpTools, "Tools: what each of them does and how it is used (F1 on a tool)"},
    {Ctl::mnuRecord, "Record: writes what you do into a script that does the same again"},
    {Ctl::Empty_Circle, "Starts the circle by center and edge"},
};
} // namespace

std::span<const ToolHint> ToolHints() { return Hints; }

void NameHotKeys(Screen &out, const std::array<HotKey, 101> &table) {
  constexpr std::pair<int, Ctl> alike[] = {{97, Ctl::tbRotationDraw}, {99, Ctl::tbRefresh}};
  for (int slot = 1; slot < static_cast<int>(table.size()); ++slot) {
    const HotKey keys = table[static_cast<std::size_t>(slot)];
    const Ctl tool = keys.Key == 0 ? Ctl::Count : HotKeyControl(slot);
    if (tool == Ctl::Count) continue;
    const std::string name = " (" + HotKeyText(keys) + ")";
    out[tool].Hint += name;
    for (const auto &[same, button] : alike)
      if (same == slot) out[button].Hint += name;
  }
}
