// sintrel: the Fourier synthesis of a control file.
//
//   sintrel FILE.inp
//
// writes FILE.bin (the map), FILE.out (the listing) and, when peaks were
// asked for, FILE.pks. The exit status is 0 on success, 1 when the run
// failed, 2 on a wrong command line.
#include <cstdio>

#include "synthesis/sintrel_run.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: sintrel FILE.inp\n");
    return 2;
  }
  return run_sintrel(argv[1]);
}
