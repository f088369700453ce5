#include "base/fault.h"

#include <cmath>

double Quotient(double a, double b) {
  if (b == 0) throw Fault{11, "Division by zero"};
  return a / b;
}

double Root(double x) {
  if (x < 0) throw Fault{5, "Invalid procedure call"};
  return std::sqrt(x);
}
