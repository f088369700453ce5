#pragma once
#include <optional>
#include <vector>

constexpr const char *LeastSquaresMessage = "Error finding least squares for polynomial";

// Solves a linear system by Gauss-Jordan elimination; a pivot of exactly 0 is exchanged for a lower row's.
// `matrix` is augmented: n rows of n + 1 values. Nothing when the system is singular, not of that shape, or
// the solution is not finite.
std::optional<std::vector<double>> GaussElim(std::vector<std::vector<double>> matrix);

// Coefficients, in ascending power, of the polynomial of this degree with the least sum of squared distances
// from the points (normal equations). Nothing, to be told as LeastSquaresMessage: degree below 0, no points,
// unequal counts, or too few different xs.
std::optional<std::vector<double>> LeastSquaresPoly(const std::vector<double> &xs,
                                                    const std::vector<double> &ys, int degree);
