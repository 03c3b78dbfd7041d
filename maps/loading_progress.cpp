#include "maps/loading_progress.h"

#include "toolkit/dialogs/wdialog.h"

namespace {

constexpr int loading_dialog = 111, loading_bar = 1048;

}  // namespace

loading_progress::loading_progress(std::size_t total) : total_(total) {}

void loading_progress::advanced(std::size_t done) {
  if (total_ == 0) return;
  const double share = static_cast<double>(done) / static_cast<double>(total_);
  if (!shown_) {
    // The closing of the map that follows the read takes about as long again.
    const auto spent = std::chrono::steady_clock::now() - start_;
    if (share >= 1.0 || 2 * spent / share < loading_pace.long_load) return;
    wdialogload(loading_dialog);
    wdialogshow(-1, -1, 0, 2);
    shown_ = true;
  }
  const int percent = static_cast<int>(100.0 * share);
  if (percent == percent_) return;
  percent_ = percent;
  wdialogselect(loading_dialog);
  wdialogputinteger(loading_bar, percent);
}

void loading_progress::finish() {
  if (!shown_) return;
  shown_ = false;
  wdialogselect(loading_dialog);
  wdialogunload();
}
