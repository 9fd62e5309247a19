#ifndef NETWORK_ADJUSTMENT_PROGRESS_BAR_H
#define NETWORK_ADJUSTMENT_PROGRESS_BAR_H

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace network {

// "inverting [#####.....]  50 %"
std::string progress_line(const std::string& title, int percent);

// Draws a bar on standard error while another thread works, from the percentage that the work advances. Without a
// terminal there, nothing is drawn and percentage() is null.
//
// RareInversion stores whole values into the int, so that the drawing thread may load them; both do it atomically. It
// orders nothing by what it sees, the bar alone depends on it. The end of the work is told through the mutex, not
// through the int.
class ProgressBar {
public:
  explicit ProgressBar(const std::string& title);
  ~ProgressBar() { finish(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Where the work writes its percentage, or null. Valid while the bar lives.
  int* percentage() { return drawer_.joinable() ? &percentage_ : nullptr; }

  // Stops drawing and wipes the bar. May be called more than once.
  void finish();

private:
  void draw_until_done();

  std::string title_;
  int percentage_ = 0;
  bool done_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::thread drawer_;
};

}  // namespace network

#endif
