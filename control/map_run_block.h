// The run block of a map file: the control data of the run that made the
// map. One field list serves reading and writing (crystal/binary_stream.h),
// the program's map reader and sintrel's writer alike. Its two parts are
// read with a message each.
#pragma once

#include <cstddef>

#include "control/control_data.h"

namespace map_run_block {

constexpr std::size_t file_name_length = 150;

// File names and the list directive.
template <typename Stream>
void files(Stream& s) {
  namespace qp = quelmora_parametros;
  s.text(qp::filinp, file_name_length);
  s.text(qp::filbin, file_name_length);
  s.text(qp::filfou, file_name_length);
  s.text(qp::filatm, file_name_length);
  s.numbers(qp::lugar);
  s.number(qp::jlist);
  s.number(qp::dist1);
  s.number(qp::dist2);
  s.number(qp::dist3);
}

// The synthesis and its limits; npeaks above 0 says that the peak block follows.
template <typename Stream>
void variables(Stream& s) {
  namespace qp = quelmora_parametros;
  s.number(qp::f000);
  s.number(qp::f000s);
  s.number(qp::ntype);
  s.number(qp::smin);
  s.number(qp::smax);
  s.number(qp::sigm);
  s.number(qp::npeaks);
}

}  // namespace map_run_block
