#pragma once
#include "drafting/command_table.h"

#include <functional>

// Drawing repeated about the origin. Active while DeactivateRDraw is enabled.

Entity TurnedRow(const Entity &, double angle); // about the origin; arc angles in 0..2*pi; Selected off
// The copies of a new row for k = 1..RotationCount-1, appended to `to`.
void AppendCopies(const RotationDraw &, const Entity &, std::vector<Entity> &to);
// The row of the table that is this row turned by the angle, ends and radius within tolerance; -1 when none.
int ImageOf(const EntityTable &, const Entity &, double angle, double tolerance);

// A solver's answer for the picks and then for their images, as one change: the solver runs on the table as
// the rounds before left it. It ends quietly at the first image that is not there or not to be solved; a
// failure of the first round is returned, and a table that grows full. Rows are matched by geometry before
// the change, else by the turned place; of a row that was split the part nearest to the turned place is
// meant. A circle on the origin that the first round opens goes through OpenOriginCircle. A new row equal to
// one made by an earlier round is left out.
Solution
SolveWithImages(const Drafting &, std::span<const PickedRow>,
                const std::function<Solution(const EntityTable &, std::span<const PickedRow>)> &solve);

// A circle on the origin is its own image. Where `once` opens one, leaving one stretch, the same is done
// `times` times a pitch apart: a stretch no longer than a pitch is repeated, else what was removed is removed
// again. Where removals would overlap, and for anything else, `once` comes back as it is.
Solution OpenOriginCircle(const RotationDraw &, const EntityTable &before, const Solution &once, int times);
bool OnOrigin(const Entity &, double tolerance); // a circle about the origin

// Asks before a circle on the origin is repeated; true: repeat.
bool RepeatOriginCircle(Drafting &, const Entity &);
// "Transformation Query" when the selected rows' extents enclose the grain centre (Dont_Rotate) while the
// mode is on; false: the command is to be left.
bool TransformationQuery(Drafting &);
std::span<const ButtonRow> RotationButtons(); // RotateDraw, DeactivateRDraw, tbRotationDraw
void RefreshRotation(Drafting &);             // their captions and states
