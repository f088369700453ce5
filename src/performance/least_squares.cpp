#include "performance/least_squares.h"

#include <cmath>
#include <utility>

std::optional<std::vector<double>> GaussElim(std::vector<std::vector<double>> matrix) {
  const std::size_t n = matrix.size();
  for (const std::vector<double> &row : matrix)
    if (row.size() != n + 1) return std::nullopt;
  for (std::size_t r = 0; r < n; ++r) {
    if (matrix[r][r] == 0)
      for (std::size_t lower = r + 1; lower < n; ++lower)
        if (matrix[lower][r] != 0)
          for (std::size_t c = r; c <= n; ++c) std::swap(matrix[r][c], matrix[lower][c]);
    const double pivot = matrix[r][r];
    if (pivot == 0) return std::nullopt;
    for (std::size_t c = r; c <= n; ++c) matrix[r][c] /= pivot;
    for (std::size_t other = 0; other < n; ++other) {
      if (other == r) continue;
      const double factor = matrix[other][r];
      for (std::size_t c = r; c <= n; ++c) matrix[other][c] -= factor * matrix[r][c];
    }
  }
  std::vector<double> solution;
  for (const std::vector<double> &row : matrix) {
    if (!std::isfinite(row[n])) return std::nullopt;
    solution.push_back(row[n]);
  }
  return solution;
}

std::optional<std::vector<double>> LeastSquaresPoly(const std::vector<double> &xs,
                                                    const std::vector<double> &ys, int degree) {
  if (degree < 0 || xs.empty() || xs.size() != ys.size()) return std::nullopt;
  const std::size_t n = static_cast<std::size_t>(degree) + 1;
  std::vector<std::vector<double>> matrix(n, std::vector<double>(n + 1, 0));
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t point = 0; point < xs.size(); ++point) {
      for (std::size_t j = 0; j < n; ++j) matrix[i][j] += std::pow(xs[point], static_cast<double>(i + j));
      matrix[i][n] += ys[point] * std::pow(xs[point], static_cast<double>(i));
    }
  return GaussElim(std::move(matrix));
}
