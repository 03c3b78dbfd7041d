#include "toolkit/messages/backend.h"

void toolkit_backend::next_event(std::int32_t& type, message_record& record) {
  record = message_record{};
  type = msg_close_request;
}

int toolkit_backend::message_box(int, int, int default_button, const std::string&, const std::string&) {
  return default_button;
}

bool toolkit_backend::select_file(const std::string&, int, std::string&, const std::string&) { return false; }

namespace {
toolkit_backend no_user;
toolkit_backend* active = &no_user;
}  // namespace

void set_toolkit_backend(toolkit_backend* backend) { active = backend ? backend : &no_user; }

toolkit_backend& current_backend() { return *active; }
