#pragma once
#include "burnback/chain.h"
#include "burnback/source.h"

#include <vector>

// A piece of the walk: its row and its source.
struct Piece {
  BurnEntity Row;
  Source Src;
  bool JointBefore = false; // runs on uncut from the piece before it
};

// The pieces of a chain; bridge as MakeJointsTrue leaves it. Entities of no more length than noise (mm) are
// left out.
std::vector<Piece> PiecesOf(const std::vector<ChainLink> &chain, const std::vector<char> &bridge,
                            double noise);

// Adds a zero-radius arc at each corner of the port that reaches into the propellant; it grows with the burn.
std::vector<Piece> GetAngleIO(const std::vector<Piece> &chain);

// Clips the chain to the grain circle and adds the edge arcs at the cuts.
std::vector<Piece> ClipToGrain(const std::vector<Piece> &chain, double grainRadius);

// Adds the Points: the vertices at which the propellant reaches into the port, and the cuts at the wall. They
// have no front of their own; but while the front is younger than a fin of propellant is thick it can leap
// over the fin's tip in one step, and there the tip itself must swallow it.
void AddPoints(std::vector<Source> &sources);
