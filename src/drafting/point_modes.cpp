#include "drafting/point_modes.h"

PickedRow PickEntity(Drafting &, Point, int, std::string_view, int, bool, bool) { return {}; }
bool PointInput(Drafting &, Point) { return {}; }
void TakePosition(Drafting &, Point) {}
void TrackPointer(Drafting &, Point) {}
Point HeldPosition(Drafting &, Point) { return {}; }
void MarkPoint(Drafting &, Point) {}
std::span<const ButtonRow> PointButtons() { return {}; }
void RefreshPoints(Drafting &) {}
void FieldText(Drafting &, const Event &) {}
void FieldKey(Drafting &, const Event &) {}
void PreviewPoints(Drafting &, Point) {}
