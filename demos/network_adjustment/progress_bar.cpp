#include "progress_bar.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

#include "common/text.h"

namespace network {
namespace {

constexpr int kCells = 40;
constexpr std::chrono::milliseconds kPeriod(40);

bool standard_error_is_terminal() {
#if defined(_WIN32)
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(fileno(stderr)) != 0;
#endif
}

// Atomic, as the store in RareInversion is. std::atomic_ref would say the same from C++20 on.
int load(const int& percentage) {
#if defined(__GNUC__)
  return __atomic_load_n(&percentage, __ATOMIC_RELAXED);
#else
  return static_cast<const volatile int&>(percentage);
#endif
}

void draw(const std::string& line) {
  std::fprintf(stderr, "\r%s", line.c_str());
  std::fflush(stderr);
}

}  // namespace

std::string progress_line(const std::string& title, int percent) {
  const int shown = std::clamp(percent, 0, 100);
  const auto filled = static_cast<std::size_t>(shown * kCells / 100);
  return title + " [" + std::string(filled, '#') + std::string(kCells - filled, '.') + demo::format("] %3d %%", shown);
}

ProgressBar::ProgressBar(const std::string& title) : title_(title) {
  if (standard_error_is_terminal()) {
    drawer_ = std::thread([this] { draw_until_done(); });
  }
}

void ProgressBar::draw_until_done() {
  std::unique_lock<std::mutex> lock(mutex_);
  do {
    draw(progress_line(title_, load(percentage_)));
  } while (!changed_.wait_for(lock, kPeriod, [this] { return done_; }));
}

void ProgressBar::finish() {
  if (!drawer_.joinable()) {
    return;
  }
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    done_ = true;
  }
  changed_.notify_one();
  drawer_.join();
  const std::string full = progress_line(title_, 100);
  draw(full);
  draw(std::string(full.size(), ' ') + "\r");
}

}  // namespace network
