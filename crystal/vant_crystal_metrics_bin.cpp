// The cell block of the binary map file (298 bytes). Derived values are taken
// as they stand in the file: nothing is recomputed, so a map shows the cell
// its writer made. reserved and cell_vol_sigma are not in the block.
#include "crystal/binary_stream.h"
#include "crystal/vant_crystal_metrics.h"

namespace {

// The block's fields in file order, for the reader and the writer alike.
template <typename Stream, typename Cell>
void cell_fields(Stream& s, Cell& c) {
  s.numbers(c.cell);
  s.numbers(c.ang);
  s.numbers(c.cell_sigma);
  s.numbers(c.ang_sigma);
  s.numbers(c.rcell);
  s.numbers(c.rang);
  s.matrix(c.gd);
  s.matrix(c.gr);
  s.matrix(c.cr_orth);
  s.matrix(c.orth_cr);
  s.matrix(c.bl_m);
  s.matrix(c.bl_minv);
  s.number(c.cell_vol);
  s.number(c.rcell_vol);
  s.text(c.cart_type, 2);
}

}  // namespace

void read_bin_crystal_cell(cell_metrics_type& cell, std::istream& in, bool& ok) {
  binary_stream::byte_reader r{in};
  cell_fields(r, cell);
  ok = r.ok;
}

void write_bin_crystal_cell(const cell_metrics_type& cell, std::ostream& out) {
  binary_stream::byte_writer w{out};
  cell_fields(w, cell);
}
