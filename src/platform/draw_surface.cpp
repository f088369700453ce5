#include "platform/draw_surface.h"

#include <algorithm>
#include <utility>

void Draw(DrawSurface &surface, DrawItem item) {
  if (item.Inverse) {
    const auto twin = std::find(surface.Item.rbegin(), surface.Item.rend(), item);
    if (twin != surface.Item.rend()) {
      surface.Item.erase(std::next(twin).base());
      return;
    }
  }
  surface.Item.push_back(std::move(item));
}
