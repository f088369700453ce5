#include "drafting/rotation_draw.h"

Entity TurnedRow(const Entity &, double) { return {}; }
void AppendCopies(const RotationDraw &, const Entity &, std::vector<Entity> &) {}
int ImageOf(const EntityTable &, const Entity &, double, double) { return {}; }
Solution SolveWithImages(const Drafting &, std::span<const PickedRow>,
                         const std::function<Solution(const EntityTable &, std::span<const PickedRow>)> &) {
  return {};
}
bool RepeatOriginCircle(Drafting &, const Entity &) { return {}; }
bool TransformationQuery(Drafting &) { return {}; }
std::span<const ButtonRow> RotationButtons() { return {}; }
