// sintrel: the Fourier synthesis of a control file.
//
//   sintrel FILE.inp [--columns F,PHI]
//
// writes FILE.bin (the map), FILE.out (the listing) and, when peaks were
// asked for, FILE.pks. When the reflection file is an MTZ file, --columns
// names its amplitude and phase columns. The exit status is 0 on success, 1
// when the run failed, 2 on a wrong command line.
#include <cstdio>
#include <cstring>

#include "synthesis/sintrel_run.h"

int main(int argc, char** argv) {
  if (argc != 2 && !(argc == 4 && std::strcmp(argv[2], "--columns") == 0)) {
    std::fprintf(stderr, "usage: sintrel FILE.inp [--columns F,PHI]\n");
    return 2;
  }
  return run_sintrel(argv[1], argc == 4 ? argv[3] : "");
}
