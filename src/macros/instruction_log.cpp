#include "macros/instruction_log.h"

#include <utility>

void LogStep(InstructionLog &log, Instruction step) {
  if (log.On) log.Row.push_back(std::move(step));
}
