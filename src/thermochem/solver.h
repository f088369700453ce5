#pragma once
#include "thermochem/tables.h"

// The working tables of a run, sized once: nothing below allocates. Slot 0 is not used.
struct Solver {
  int ElementCount = 0, SpeciesCount = 0, GasCount = 0;
  double TotalWeight = 0;               // g
  double MinMoles = 0;                  // floor of a mole number
  int Pass = 1;                         // 1..20
  bool BasisStale = true;               // flag 1: the basis has to be chosen again
  bool Moved = false;                   // flag 4: the last pass moved a species by more than the limit
  double ThermoAt = 0;                  // K, of the terms below; 0: none yet
  double PassPressure = 0, PassGas = 0; // atm, mol: what LogScale follows within a pass
  double LogScale = 0;                  // ln(P/N) while iterating, the slot behind the species; then P/N

  double Cp = 0, GasMoles = 0, Enthalpy = 0, Entropy = 0; // of PropertySums: cal/K, mol, cal, cal/K

  std::array<double, MaxElements + 1> ElementTotal{};
  std::array<ElementRow, MaxSpecies + 1> AtomMatrix{};
  std::array<double, MaxSpecies + 1> Moles{};
  std::array<float, MaxSpecies + 1> CpTerm{}, HTerm{}, STerm{}, GibbsTerm{};
  std::array<double, MaxSpecies + 1> LogK{}, Key{};
  std::array<double, MaxElements + 1> LogBasis{};  // ln of the basis moles, worked out when asked for
  std::array<bool, MaxElements + 1> LogBasisOld{}; // and these moved since
  double LogFloor = 0;                             // ln MinMoles
  bool Plenty = false; // no basis species is near the floor, so that what stands there need not be looked at
  std::array<std::int16_t, MaxSpecies + 1> SpeciesStatus{};
  std::array<int, MaxSpecies + 1> Order{};
  std::array<int, MaxElements + 1> BasisList{};
  std::array<std::array<double, MaxElements + 1>, MaxElements + 1>
      BasisMatrix{}; // its inverse after PickBasis
  std::array<std::array<double, MaxElements + 1>, MaxSpecies + 1> ReactionMatrix{};
  const SpeciesTable *Species = nullptr;
};

// Status of a species.
inline constexpr std::int16_t InBasis = 0, UnderAdjustment = 1, SetDirectly = 8, OutOfBasis = 9;

// A species outside its ranges carries this in GibbsTerm, and counts as excluded at the limit below.
inline constexpr double RangePenalty = 1e12;
inline constexpr float ExcludedFrom = 899999989760.0F;
inline bool Excluded(const Solver &s, int species) { return s.GibbsTerm[species] >= ExcludedFrom; }

// The tables of a new run. The species table must outlive the solver.
void StartSolver(Solver &, const ElementTable &, const SpeciesTable &, double totalWeight);
