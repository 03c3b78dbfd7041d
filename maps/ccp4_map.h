// CCP4/MRC density maps (.ccp4, .mrc, .map), read through libccp4's cmaplib.
//
// A file is such a map when bytes 209 to 212 hold "MAP ", whatever its name.
// Its section becomes the program's map as a .bin would: the whole cell's
// grid (the header's sampling MX, MY, MZ) in rho with x fastest, whatever
// the file's axis order; the section placed at its start indices, and the
// rest of the cell filled from the space group's operators. Points that
// neither the file nor its symmetry reach take the mean of the file's values.
#pragma once

#include <string>

// True when the file can be read and bytes 209 to 212 hold "MAP ".
bool is_ccp4_map(const std::string& path);

// Loads the map into the globals: titulo (the first label), celda, the group
// by its number (a number of 0, as electron microscopy maps have, is P 1),
// ngrid, rho and rhonew (memory_maps, proc_carga), denmin, denmax, denave
// and densigma of the whole cell; the limits are those of the file's section when it does not
// cover the cell. No atoms, no peaks. When part of the cell stays unreached
// the user is told the fraction. A damaged or truncated file shows a message
// naming the file and sets kerror.
void read_ccp4_map(const std::string& path);
