// The binary map file (.bin), the map Sintrel writes and this program reads:
// title, version, cell, space group, atoms, run parameters, grid, density
// summary, density grid and, when peaks were searched, the peak list. Each
// reader stops at the first failed transfer, shows the message of that
// block and sets kerror; what was read until then stays in the globals.
#pragma once

#include <iosfwd>
#include <string>

#include "crystal/vant_atom_typedef.h"

// Unit 25: the binary map file being loaded, opened as a stream of bytes.
// open_filebin returns false when the file cannot be opened (the caller
// shows "Error opening the binary file"); opening again closes the earlier
// file first.
bool open_filebin(const std::string& name);
void close_filebin();
std::istream& filebin_unit();

// Blocks 1 to 8: titulo, the version (any five bytes pass), celda,
// grp_espacial, atomos, the run block, the grid block, denave and densigma.
// Also refuses a grid that the rest of the file cannot hold, with the
// density map's message, before anything is sized from it.
void read_filebin_head();

// The five version bytes of the last head read, for display only: nothing
// compares them, files of every version load.
const std::string& filebin_version();

// Block 9 into rho (sized by memory_maps), then proc_carga; a long read
// shows the "Loading..." dialog (maps/loading_progress.h) until both end.
void read_filebin_rho();

// Block 10 over atomos, when npeaks is above 0: peaks replace the atoms.
void read_filebin_atm_pks();

// The whole load as the shell does it: head, memory_maps, density (with
// proc_carga) and, when asked, the peaks; each step runs only while kerror is
// clear.
void read_filebin(bool with_peaks);

// Writers of the same layout, from the globals. write_filebin_peaks writes
// block 10 only when npeaks is above 0.
void write_filebin_head(std::ostream& out);
void write_filebin_rho(std::ostream& out);
void write_filebin_peaks(std::ostream& out, const atom_list_type& peaks);
