#include "desktop/live_burn_worker.h"

#include <utility>

LiveBurnWorker::LiveBurnWorker(std::function<void()> after) : After(std::move(after)) {}

LiveBurnWorker::~LiveBurnWorker() {
  {
    const std::lock_guard hold(Lock);
    Ending = true;
  }
  Wake.notify_one();
  if (Thread.joinable()) Thread.join();
}

void LiveBurnWorker::Start(std::function<void()> work, std::function<void()> done) {
  {
    const std::lock_guard hold(Lock);
    Waiting = Job{std::move(work), std::move(done)};
  }
  if (!Thread.joinable()) Thread = std::thread([this] { Run(); });
  Wake.notify_one();
}

void LiveBurnWorker::Run() {
  for (;;) {
    std::unique_lock hold(Lock);
    Wake.wait(hold, [this] { return Ending || Waiting; });
    if (Ending) return;
    const Job job = *std::exchange(Waiting, std::nullopt);
    hold.unlock();
    job.Work();
    Post(job.Done);
  }
}

void LiveBurnWorker::Tell(std::function<void()> news) {
  constexpr std::chrono::milliseconds apart(50);
  const auto now = std::chrono::steady_clock::now();
  if (now - Told < apart) return;
  Told = now;
  Post(std::move(news));
}

void LiveBurnWorker::Post(std::function<void()> call) {
  const auto take = [this, call = std::move(call)] {
    call();
    After();
  };
  QMetaObject::invokeMethod(&Window, take, Qt::QueuedConnection);
}
