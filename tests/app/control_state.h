// The shared state a control file or the input data dialog sets, as text by
// the names the data files of the tests use.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "state/quelmora_parametros.h"
#include "tests/app/shell_fixture.h"

namespace qp = quelmora_parametros;

// The part of the state a reading sets, by the names the data file uses.
inline std::string value_of(const std::string& name) {
  const auto& c = qp::celda;
  const auto& t = qp::trans;
  const std::map<std::string, std::function<std::string()>> values = {
      {"kerror", [] { return joined(qp::kerror); }},
      {"title", [] { return qp::titulo; }},
      {"cell", [&] { return joined(c.cell[0], c.cell[1], c.cell[2], c.ang[0], c.ang[1], c.ang[2]); }},
      {"f000", [] { return joined(qp::f000, qp::f000s); }},
      {"spgr", [] { return qp::spgr; }},
      {"atoms", [] {
         std::string s;
         for (const atom_type& a : qp::atomos.atom)
           s += (s.empty() ? "" : "| ") + joined(a.lab, a.chem_symb, a.x[0], a.x[1], a.x[2], a.occ, a.active);
         return qp::atomos.natoms == static_cast<std::int32_t>(qp::atomos.atom.size()) ? s : "natoms differs";
       }},
      {"ntype", [] { return joined(qp::ntype); }},
      {"trans", [&] { return joined(t[0][0], t[0][1], t[0][2], t[1][0], t[1][1], t[1][2], t[2][0], t[2][1], t[2][2]); }},
      {"limits", [] { return joined(qp::smin, qp::smax, qp::sigm); }},
      {"grid", [] { return joined(qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]); }},
      {"lugar", [] {
         std::string s;
         for (std::int32_t v : qp::lugar) s += joined(v);
         return s;
       }},
      {"files", [] { return joined(qp::filfou, qp::filatm, qp::filbin); }},
      {"npeaks", [] { return joined(qp::npeaks); }},
      {"list", [] { return joined(qp::jlist, qp::dist1, qp::dist2, qp::dist3); }},
      {"marks", [] {
         return joined(qp::jtitle, qp::jcell, qp::jspace, qp::jgrid, qp::jatoms, qp::jfourier, qp::jtrans, qp::jreflim,
                       qp::jpeaks, qp::jfiles, qp::jbin, qp::jform);
       }},
  };
  const auto it = values.find(name);
  if (it == values.end()) return "unknown value " + name;
  std::string s = it->second();
  return s.substr(0, s.find_last_not_of(' ') + 1);
}

