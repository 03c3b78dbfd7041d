#include "toolkit/messages/backend.h"

namespace {

// Stands in while no backend is set: a program run without a face ends at
// its first wait instead of hanging.
class inert_backend final : public toolkit_backend {
 public:
  void next_event(std::int32_t& type, message_record& record) override {
    record = message_record{};
    type = msg_close_request;
  }
  int message_box(int, int, int default_button, const std::string&, const std::string&) override {
    return default_button;
  }
  bool select_file(const std::string&, int, std::string&, const std::string&) override { return false; }
};

inert_backend inert;
toolkit_backend* active = &inert;

}  // namespace

void set_toolkit_backend(toolkit_backend* backend) { active = backend ? backend : &inert; }

toolkit_backend& current_backend() { return *active; }
