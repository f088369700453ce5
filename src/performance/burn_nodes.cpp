#include "performance/burn_nodes.h"

#include <algorithm>
#include <cmath>

namespace {

struct Front {
  double Dist = 0, Perimeter = 0, Section = 0, Fall = 1;
};

// What is left behind the last front. A perimeter that goes to 0 as a power of the way left keeps
// section / perimeter in proportion to that way, so the last two fronts tell power and way: 1 for the corner
// of a sliver, 1/2 for a lens. One that ends on an edge goes on evenly.
Front EndOf(const std::vector<Front> &front, double step) {
  const Front &last = front.back(), &before = front[front.size() - 2];
  const double P = last.Perimeter, left = std::max(last.Section, 0.0);
  const double fall = (last.Dist - before.Dist) / (before.Section / before.Perimeter - left / P) - 1;
  if (fall > 0.25 && fall < 3) {
    const double way = (1 + fall) * left / P;
    if (way > 0 && way <= step) return {last.Dist + way, 0, 0, fall};
  }
  const double slope = (P - before.Perimeter) / (last.Dist - before.Dist);
  const double end = std::sqrt(std::max(P * P + 2 * slope * left, 0.0));
  const double way = std::clamp(2 * left / (P + end), 1e-9 * step, step);
  return {last.Dist + way, std::max(2 * left / way - P, 0.0), 0};
}

std::vector<Front> FrontsOf(const BurnRun &run) {
  std::vector<Front> front;
  const double first = run.StepDist[0], P = run.StepPerimeter[0];
  const double start = 2 * (run.SectionAtStart - run.StepSection[0]) / first - P;
  // An event within the first half step leaves a start that is no perimeter.
  front.push_back({0, start > P / 2 && start < 2 * P ? start : P, run.SectionAtStart});
  for (std::size_t i = 0; i < run.StepDist.size(); ++i)
    front.push_back({run.StepDist[i], run.StepPerimeter[i], run.StepSection[i]});
  front.push_back(EndOf(front, run.BurnIncrement));
  return front;
}

BurnNode NodeOf(const Front &f, double length, int ends) {
  const double left = std::max(length - ends * f.Dist, 0.0);
  return {f.Dist, f.Section, left * f.Perimeter + ends * f.Section, left * f.Section, f.Fall};
}

// The front between two, linear in the perimeter.
Front Between(const Front &a, const Front &b, double dist) {
  const double part = (dist - a.Dist) / (b.Dist - a.Dist);
  const double P = a.Perimeter + part * (b.Perimeter - a.Perimeter);
  const double section = a.Section - (dist - a.Dist) * (a.Perimeter + P) / 2;
  return {dist, P, std::clamp(section, b.Section, a.Section)};
}

} // namespace

std::vector<BurnNode> BurnNodes(const BurnRun &run, double length, int endsExposed) {
  std::vector<BurnNode> node;
  if (run.StepDist.empty() || !(length > 0)) return node;
  const int ends = (endsExposed & 1) + (endsExposed >> 1 & 1);
  const std::vector<Front> front = FrontsOf(run);
  const double meet = ends > 0 ? length / ends : 2 * front.back().Dist;
  for (std::size_t i = 0; i < front.size(); ++i) {
    if (i > 0 && front[i].Dist >= meet) {
      node.push_back(NodeOf(Between(front[i - 1], front[i], meet), length, ends));
      break;
    }
    node.push_back(NodeOf(front[i], length, ends));
  }
  return node;
}
