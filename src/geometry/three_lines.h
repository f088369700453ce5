#pragma once
#include "geometry/solution.h"

enum class ThreeLineUse { Circle, Arc, RoundEnd }; // commands 25, 35, 58

// The circle that touches three lines, on the side of the mean of the three picks. An arc runs from the first
// line's tangent point to the third's through the second's; its angles go through the 32-bit ArcCosine, the
// tangent points are exact. RoundEnd puts the line that touches the other two with its two ends (closer than
// grainRadius/1000, mm) in the middle, cuts the sides to the arc and deletes the middle; the third line keeps
// the midpoint it had. Failures: "Error: Can't solve for 3 parallel lines"; "Error: Can't Find Solution" when
// no circle lies on that side, a pick is no line, or a side would turn over.
Solution Circle3Tan(const PickedRow &, const PickedRow &, const PickedRow &, ThreeLineUse,
                    double grainRadius);
