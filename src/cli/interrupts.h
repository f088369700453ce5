#pragma once

constexpr int InterruptedCode = 130; // the exit code of work that was broken off

// Ctrl+C is kept waiting while work is done, and looked at between its steps.
void HoldInterrupts();
bool Interrupted();
