#include "cli/interrupts.h"

#include <csignal>

void HoldInterrupts() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  sigaddset(&set, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

bool Interrupted() {
  sigset_t waiting;
  sigpending(&waiting);
  return sigismember(&waiting, SIGINT) == 1 || sigismember(&waiting, SIGTERM) == 1;
}
