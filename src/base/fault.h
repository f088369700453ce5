#pragma once
#include <string>

// The one thing that is thrown: an unforeseen fault, caught by Guarded() alone.
struct Fault {
  int Number = 0;
  std::string Text;
};

double Quotient(double a, double b); // a/b; Fault 11 "Division by zero" when b is 0
double Root(double x);               // square root; Fault 5 "Invalid procedure call" when x is below 0
