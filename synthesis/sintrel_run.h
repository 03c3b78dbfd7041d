// One run of sintrel on a control file <stem>.inp: reads it with the
// program's reader, reads the reflection file (file fou, or <stem>.fou),
// computes the map and its peaks, and writes <stem>.bin, <stem>.pks (when
// peaks were asked for) and the listing <stem>.out. Every file is written
// whole or not at all; a failed run leaves no map. Errors go to the listing
// and to standard error.
#pragma once

#include <string>

// The reflection file may be an MTZ file of map coefficients; columns names
// its amplitude and phase columns ("F,PHI"), or is empty for the usual pairs.
// The exit status: 0 done, 1 failed.
int run_sintrel(const std::string& control_file, const std::string& columns = {});
