#pragma once
#include "burnback/burn_row.h"

#include <vector>

// An entity in the order of the walk.
struct ChainLink {
  Entity Ent;
  bool Forward = true; // walked from the record's first end to its second
};

void EndOf(const ChainLink &, bool far, double &x, double &y); // where the walk enters it, or (far) leaves it
double SweepOf(const Entity &);                                // of an arc, radians, above 0
bool WholeTurn(const Entity &);                                // a circle, or an arc that closes on itself
double LengthOf(const Entity &);                               // mm

// Turns the copy about the origin until no line is horizontal or vertical, by steps of 12.5 degrees that are
// halved after five; rotation is the angle as the rule adds it up, turn the true one (radians).
void TurnOffAxes(std::vector<Entity> &copy, double &rotation, double &turn);

// Orders the entities end to end, from the one whose lower end is highest; each next one is that with the
// nearest end within joinTolerance (mm). False: they do not close; tip is the free end.
bool WalkChain(const std::vector<Entity> &copy, double joinTolerance, std::vector<ChainLink> &chain,
               double &tipX, double &tipY);

// Turns the chain so that it walks clockwise, the port on its right. False: it encloses nothing.
bool FaceClockwise(std::vector<ChainLink> &chain, double grainRadius);

// Joints whose ends lie more than noise (mm) apart are made true: lines are drawn to the joint. 1 for each
// entity behind which two arcs need a short line between them.
std::vector<char> MakeJointsTrue(std::vector<ChainLink> &chain, double noise);
