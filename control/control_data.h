// The data of a Fourier calculation: what a control file (.inp) holds, and
// what every map file carries in its run block. They belong to the shared
// state quelmora_parametros (state/quelmora_parametros.h holds the rest);
// they live here so that the control file's reader and writer, and sintrel,
// use them without the program's windows.
//
// Conventions as in the shared state: char(n) variables are std::string
// without trailing blanks; ngrid(1..3) is ngrid[0..2].
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystal_metrics.h"
#include "crystal/vector_types.h"

namespace quelmora_parametros {

// The version written into every map file.
inline std::string version = "04.06";  // char(5)

// The files of a run, char(150) each: control file, map, reflections, atoms.
inline std::string filinp, filbin, filfou, filatm;

inline std::string titulo;  // char(80)
inline std::string spgr;    // char(20)
inline cell_metrics_type celda;
inline atom_list_type atomos;
// Kind of synthesis: 1 Fo, 2 Fc, 3 Fo - Fc, 4 Patterson Fo^2, 5 Patterson
// Fc^2, 6 and 7 A + iB.
inline std::int32_t ntype = 0;
inline std::array<std::int32_t, 3> ngrid{};
inline float f000 = 0.0f, f000s = 1.0f;
inline float smin = 0.0f, smax = 0.0f, sigm = 0.0f;
inline std::array<std::int32_t, 9> lugar{};  // columns of h,k,l,fo,fc,si,ph,a,b
inline mat3f trans{};
inline std::int32_t npeaks = 0;
// Which directives the control file held (the j markers of the reader).
inline std::int32_t jtitle = 0, jcell = 0, jspace = 0, jgrid = 0, jatoms = 0, jfourier = 0,
                    jtrans = 0, jreflim = 0, jpeaks = 0, jfiles = 0, jbin = 0, jform = 0,
                    jlist = 0;
inline float dist1 = 0.0f, dist2 = 0.0f, dist3 = 0.0f;

}  // namespace quelmora_parametros
