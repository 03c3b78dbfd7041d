// Page 118, Atoms List: no atoms, the atoms of a structure file, or a list
// typed into the grid. The grid has a row per atom and never fewer than
// three; the rows past the count are read only. Rows keep the order typed.
#include <algorithm>
#include <vector>

#include "app/data_dialog.h"
#include "app/data_page.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/wgrid.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t no_atoms = 1003, atoms_file = 1004, atoms_list = 1005;
constexpr std::int32_t file_field = 1006, browse_button = 1271, count_field = 1268, grid = 1007;
constexpr std::int32_t columns = 6;  // label, x/a, y/b, z/c, Occ, B
constexpr std::int32_t max_atoms = 800;

void all_off() { fields_on({file_field, browse_button, count_field, grid}, false); }

// Rows for `count` atoms, at least three, labelled "Atom n"; the rows past
// the count are read only.
void atom_rows(std::int32_t count) {
  const std::int32_t rows = std::max(count, 3);
  wgridrows(grid, rows);
  for (std::int32_t r = 1; r <= rows; ++r) {
    wgridlabelrow(grid, r, "Atom " + std::to_string(r));
    for (std::int32_t c = 1; c <= columns; ++c) wgridstatecell(grid, c, r, r <= count ? 1 : 2);
  }
}

// The grid follows the count: on with its rows above 0, off at 0.
void count_changed() {
  std::int32_t count = 0;
  wdialoggetinteger(count_field, count);
  fields_on({grid}, count > 0);
  if (count > 0) atom_rows(count);
}

// The reals of one column of the atoms, from the first atom on.
std::vector<float> column_of(std::int32_t column) {
  std::vector<float> values;
  for (std::int32_t i = 0; i < qp::atomos.natoms; ++i) {
    const atom_type& a = qp::atomos.atom[static_cast<std::size_t>(i)];
    values.push_back(column <= 4 ? a.x[static_cast<std::size_t>(column - 2)] : column == 5 ? a.occ : a.biso);
  }
  return values;
}

void write_list() {
  wdialogputradiobutton(atoms_list);
  fields_on({file_field, browse_button}, false);
  fields_on({count_field, grid}, true);
  const std::int32_t n = qp::atomos.natoms;
  wdialogputinteger(count_field, n);
  atom_rows(n);
  std::vector<std::string> labels;
  for (std::int32_t i = 0; i < n; ++i) labels.push_back(qp::atomos.atom[static_cast<std::size_t>(i)].lab);
  wgridputstring(grid, 1, labels, n);
  for (std::int32_t c = 2; c <= columns; ++c) wgridputreal(grid, c, column_of(c), n, "(f8.4)");
}

void write() {
  const bool atoms = qp::atomos.natoms > 0 && static_cast<std::int32_t>(qp::atomos.atom.size()) >= qp::atomos.natoms;
  if (!atoms) {
    wdialogputradiobutton(no_atoms);
    all_off();
  } else if (!fixed_text::is_blank(qp::filatm)) {
    wdialogputradiobutton(atoms_file);
    wdialogputstring(file_field, qp::filatm);
    fields_on({file_field, browse_button}, true);
    fields_on({count_field, grid}, false);
  } else {
    write_list();
  }
}

// The grid's rows into the atoms; the list gets room when it is short.
void read_list(std::int32_t count, bool& fault) {
  if (count == 0) {
    qp::atomos.natoms = 0;
    return;
  }
  // A grid with fewer rows than the count gets them, blank, so that the read
  // fails on the empty cells and the user sees where to type.
  if (winfogrid(grid, 2) < count) {
    fields_on({grid}, true);
    atom_rows(count);
  }
  std::vector<std::string> labels;
  std::vector<float> values[columns];
  wgridgetstring(grid, 1, labels, count);
  for (std::int32_t c = 2; c <= columns; ++c) wgridgetreal(grid, c, values[c - 1], count);
  const auto short_of_rows = [count](std::size_t size) { return static_cast<std::int32_t>(size) < count; };
  if (short_of_rows(labels.size()) || std::any_of(values + 1, values + columns, [&](const std::vector<float>& v) {
        return short_of_rows(v.size());
      })) {
    fault = true;
    return;
  }
  if (static_cast<std::int32_t>(qp::atomos.atom.size()) < count) allocate_atom_list(count, qp::atomos);
  qp::atomos.natoms = count;
  for (std::int32_t i = 0; i < count; ++i) {
    const auto k = static_cast<std::size_t>(i);
    atom_type& a = qp::atomos.atom[k];
    a.lab = fixed_text::assigned(labels[k], 20);
    a.x = {values[1][k], values[2][k], values[3][k]};
    a.occ = values[4][k];
    a.biso = values[5][k];
  }
}

void read() {
  begin_page_read();
  bool fault = false;
  std::int32_t radio = 0;
  wdialoggetradiobutton(no_atoms, radio);
  if (radio == 1) {
    qp::jatoms = 0;
  } else if (radio == 2) {
    wdialoggetstring(file_field, qp::filatm);
    qp::filatm = fixed_text::assigned(qp::filatm, 150);
    fault = fixed_text::is_blank(qp::filatm);
  } else {
    std::int32_t count = 0;
    wdialoggetinteger(count_field, count);
    if (count >= 0 && count <= max_atoms) read_list(count, fault);
    else fault = true;
  }
  end_page_read(fault, "Some fields on Atoms informations are undefined");
}

void browse() { browse_into(file_field, "Fourier Atoms File|*.atm|", "Load Atoms File"); }

void modify() {
  if (chosen(no_atoms)) all_off();
  if (chosen(atoms_file)) {
    fields_on({file_field, browse_button}, true);
    fields_on({count_field, grid}, false);
  }
  if (chosen(atoms_list)) {
    fields_on({file_field, browse_button}, false);
    fields_on({count_field}, true);
    count_changed();
  }
  if (chosen(count_field)) count_changed();
}

void init() {
  wdialogputradiobutton(no_atoms);
  all_off();
}

}  // namespace

void dialogtab_atoms(const std::string& action) { run_page(118, action, {init, write, read, modify, browse}); }
