// Any bytes as the user's settings file and as the suite's settings file,
// whose last directory is then taken.
#include "app/quelmora_initialize.h"
#include "app/quelmora_settings.h"
#include "fuzz/fuzz_input.h"
#include "toolkit/messages/ios.h"

namespace {
std::string start_folder;  // where to come back after a directory change
}

// The program's start, with the scratch folder as home.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  init_var_prog();
  setenv("HOME", scratch_folder().c_str(), 1);
  iosdirname(start_folder);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  input_file(data, size, ".ksu/quelmora.set");
  input_file(data, size, ".ksu/ksb.set");
  load_settings_file("KELDRANE");
  directory_update();
  iosdirchange(start_folder);
  return 0;
}
