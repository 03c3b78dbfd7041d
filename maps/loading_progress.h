// The "Loading..." dialog (111) over the read of a large map: it comes up as
// soon as the read and the closing after it look set to last more than about
// half a second, its bar follows the bytes read, and it goes when the load
// ends, however it ends.
#pragma once

#include <chrono>
#include <cstddef>

// When the dialog comes up and how many bytes are read between two moves of
// the bar; tests make both small.
struct loading_pace_type {
  std::chrono::duration<double> long_load{0.5};
  std::size_t chunk = std::size_t{16} << 20;
};
inline loading_pace_type loading_pace;

class loading_progress {
 public:
  explicit loading_progress(std::size_t total);
  ~loading_progress() { finish(); }
  loading_progress(const loading_progress&) = delete;
  loading_progress& operator=(const loading_progress&) = delete;

  // done of the total bytes are read: shows the dialog when the whole load,
  // at the pace so far, would outlast long_load, and moves its bar.
  void advanced(std::size_t done);
  // Takes the dialog down (before a message box, say); the destructor does too.
  void finish();

 private:
  std::size_t total_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  bool shown_ = false;
  int percent_ = -1;
};
