// The program's entry: the real screen through the X11 face of the toolkit.
// Without a display there is nothing the program can show, so it says so and
// stops.
#include <cstdio>
#include <string>

#include "app/quelmora_main.h"
#include "toolkit/x11/x11_face.h"

int main(int argc, char** argv) {
  std::string why;
  if (!x11_install(why)) {
    std::fprintf(stderr, "quelmora: %s; the program needs an X display to show its window.\n",
                 why.c_str());
    return 1;
  }
  return quelmora_main(argc, argv);
}
