#pragma once

// Times the stages of a benchmark program inside the process itself, so that process start and exit stay out of the
// figures. Each stage prints one line: "STAGE name user=S sys=S wall=S peakMiB=M".

#include <sys/resource.h>

#include <chrono>
#include <cstdio>

namespace bench {

class StageTimer {
 public:
  StageTimer() : m_last(now()) {}

  /// Prints what has passed since the last stage ended, or since the timer was made, under this name.
  void endStage(const char* name) {
    const Reading reading = now();
    std::printf("STAGE %s user=%.4f sys=%.4f wall=%.4f peakMiB=%.1f\n", name, reading.userSeconds - m_last.userSeconds,
                reading.systemSeconds - m_last.systemSeconds, reading.wallSeconds - m_last.wallSeconds,
                reading.peakMebibytes);
    std::fflush(stdout);
    m_last = now();
  }

 private:
  struct Reading {
    double userSeconds;
    double systemSeconds;
    double wallSeconds;
    double peakMebibytes;  // the most that was resident since the process began
  };

  static double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  }

  static Reading now() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now().time_since_epoch();
    return {seconds(usage.ru_utime), seconds(usage.ru_stime), wall.count(),
            static_cast<double>(usage.ru_maxrss) / 1024.0};
  }

  Reading m_last;
};

}  // namespace bench
