#pragma once
#include <QObject>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

// One thread beside the window's. While it is at work only the newest job waits; what waited before is
// dropped unbegun.
class LiveBurnWorker final {
public:
  explicit LiveBurnWorker(std::function<void()> after); // runs in the window's thread, after each `done`
  ~LiveBurnWorker();                                    // waits for the job at work
  LiveBurnWorker(const LiveBurnWorker &) = delete;
  LiveBurnWorker &operator=(const LiveBurnWorker &) = delete;

  // `work` runs in the thread, `done` in the window's, from its event loop.
  void Start(std::function<void()> work, std::function<void()> done);
  // From the job at work: `news` runs in the window's thread, not sooner after the last one than a picture
  // takes; what comes sooner is left out.
  void Tell(std::function<void()> news);

private:
  struct Job {
    std::function<void()> Work, Done;
  };
  void Run();
  void Post(std::function<void()> call);

  std::function<void()> After;
  QObject Window; // lives in the window's thread: calls queued for it end with it
  std::mutex Lock;
  std::condition_variable Wake;
  std::optional<Job> Waiting;
  bool Ending = false;
  std::chrono::steady_clock::time_point Told; // by the job
  std::thread Thread;                         // from the first job on
};
