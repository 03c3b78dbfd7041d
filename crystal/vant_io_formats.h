// Structure files: VTL, CIF, SHELX (.ins/.res) and KDC readers that fill a
// cell, a space group and an atom list. A file is held as its lines (each cut
// to 180 characters, tabs turned to blanks); first and last (counted from 1)
// bound the range a reader works on. Every reader sets err_form and a text in
// err_form_mess on the first fault and returns, keeping what it had read. A
// failure inside set_spacegroup stays in err_symm: the caller tests both.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"

inline bool err_form = false;
inline std::string err_form_mess;  // char(150)

void init_err_form();

// First and last line of one phase of a file.
struct interval_type {
  std::int32_t mina = 0;
  std::int32_t maxb = 0;
};

// A job described in a VTL file: its title, phases and patterns.
struct job_info_type {
  std::string title;                      // char(120)
  std::int32_t num_phases = 0;
  std::vector<std::string> patt_typ;      // one per pattern: "XRAY_2THE", "NEUT_TOF", ...
  std::vector<std::array<float, 5>> uvwxy;
  std::vector<std::int32_t> backgd_points;
  std::vector<float> step;
  std::vector<std::string> cmd;           // the "CMDL" lines
};

using file_lines = std::vector<std::string>;

// The lines first to last (counted from 1) that the file has: each reader
// takes its range through this before it reads.
void clamp_to_file(const file_lines& lines, std::int32_t& first, std::int32_t& last);

// Reads filenam whole and hands it to the reader of mode ("vtl", the default,
// "cif", "shx" or "kdc"; the first three letters count, in any case).
// iphase picks a phase of a VTL, CIF or KDC file holding several.
void readn_set_xtal_structure_split(const std::string& filenam, cell_metrics_type& cell, space_group_type& spg,
                                    atom_list_type& a, const std::string& mode = {},
                                    std::optional<std::int32_t> iphase = std::nullopt,
                                    job_info_type* job_type = nullptr);

void readn_set_xtal_vtl(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype = {},
                        std::optional<std::int32_t> iphase = std::nullopt, job_info_type* job = nullptr);
void readn_set_xtal_cif(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype = {},
                        std::optional<std::int32_t> phase = std::nullopt);
void readn_set_xtal_shx(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype = {});
void readn_set_xtal_kdc(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype = {},
                        std::optional<std::int32_t> phase = std::nullopt);

// ---- pieces shared by the readers ----

// The "cell" line: exactly six numbers, with uncertainties in brackets.
void read_file_cellt(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                     const std::optional<std::string>& cartype = {});
// The group named by "spgr" (or "subg" with sub), "spaceg" or "shub", built by
// set_spacegroup; a missing key gives the space group message.
void read_file_spg(const file_lines& lines, std::int32_t first, std::int32_t last, space_group_type& spg,
                   bool sub = false);
// Every "atom" line of the range, each followed perhaps by its "u_ij",
// "b_ij" or "beta" line, into the first entries of a.
void read_file_atomlist(const file_lines& lines, std::int32_t first, std::int32_t last, atom_list_type& a);
// One "atom label symbol x y z [biso] [occ] [moment] [charge] [# info]
// [Moment: mx my mz]" line.
void read_atom(const std::string& line, atom_type& atom);
// Six anisotropic values behind a keyword, of the kind type.
void read_uvals(const std::string& line, atom_type& atom, const std::string& type);
// The blocks of a job: title, patterns, their types, UVWXY, background and
// step, and the command lines.
void get_job_info(const file_lines& lines, std::int32_t first, std::int32_t last, job_info_type& job);

// The pieces of the CIF reader, each on one data block.
void read_cif_cell(const file_lines& lines, const interval_type& range, cell_metrics_type& cell,
                   const std::optional<std::string>& cartype = {});
// The loop of atoms ("?" and "." are absent values) and the anisotropic U
// loop matched to it by label.
void read_cif_atom(const file_lines& lines, const interval_type& range, atom_list_type& a);
// The Hermann-Mauguin symbol with its origin or axes choice behind ":".
std::string read_cif_hm(const file_lines& lines, const interval_type& range);
std::string read_cif_hall(const file_lines& lines, const interval_type& range);
// The operators of the symmetry loop, quotes and leading numbers removed.
std::vector<std::string> read_cif_symm(const file_lines& lines, const interval_type& range);

// The pieces of the SHELX reader: CELL with ZERR; SFAC (elements) and UNIT;
// the free variables of FVAR (fvar[0] the overall scale); the atoms, with
// coded values decoded through fvar and riding U values resolved.
void read_shx_cell(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                   const std::optional<std::string>& cartype = {});
void read_shx_cont(const file_lines& lines, std::int32_t first, std::int32_t last, std::vector<std::string>& sfac,
                   std::vector<float>& unit);
void read_shx_fvar(const file_lines& lines, std::int32_t first, std::int32_t last, std::vector<float>& fvar);
void read_shx_atom(const file_lines& lines, std::int32_t first, std::int32_t last, const cell_metrics_type& cell,
                   const std::vector<std::string>& sfac, const std::vector<float>& fvar, atom_list_type& a);

// chem_symb, sf_symb (4 characters, upper case), z and, when no charge was
// read, the charge written in a scattering symbol ("Fe3+" 3, "O2-" -2).
void set_atom_symbol(atom_type& atom, const std::string& symbol);
// The last step of every reader: each atom's multiplicity, the occupation of
// an atom that gave none (mult / multip, a full site), anisotropic values to
// betas and the equivalent isotropic U.
void complete_atoms(const cell_metrics_type& cell, const space_group_type& spg, atom_list_type& a);
// The phase iphase (counted from 1) of a file's phases, the first when
// iphase is absent or out of range.
interval_type chosen_phase(const std::vector<interval_type>& phases, std::optional<std::int32_t> iphase);
// A number of a file as a count or a code: its whole part, or 0 when it is
// no number or beyond a million either way.
std::int32_t whole_number(float v);
// Sets the error pair of the readers.
void set_form_error(const std::string& message);
