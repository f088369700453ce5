#include "macros/instruction_log.h"

#include <algorithm>
#include <utility>

void LogStep(InstructionLog &log, Instruction step) {
  if (!log.On) return;
  log.Row.push_back(std::move(step));
  log.Number.push_back(log.Given++);
}

void CutLog(InstructionLog &log, std::size_t rows) {
  log.Row.resize(std::min(rows, log.Row.size()));
  log.Number.resize(log.Row.size());
}

std::vector<Instruction> TakeLog(InstructionLog &log) {
  log.Number.clear();
  return std::exchange(log.Row, {});
}
