// Symmetry operators and the space group record.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "crystal/vector_types.h"

// One operator, x' = rot.x + tr.
struct sym_oper_type {
  mat3i rot{};  // rot[i][j]: coefficient of coordinate j in row i
  vec3f tr{};   // translation in cell fractions
};

// One Wyckoff position of a group.
struct wyck_pos_type {
  std::int32_t multiplicity = 0;
  std::string site;    // char(6); never filled by the readers
  std::int32_t orbit_count = 0;
  std::string origin;  // char(40)
  std::array<std::string, 48> orbit;  // char(40) each
};

struct wyckoff_type {
  static constexpr int max_positions = 26;
  static constexpr int max_orbit = 48;
  std::int32_t count = 0;
  std::array<wyck_pos_type, max_positions> pos;
};

struct space_group_type {
  std::int32_t numspg = 0;
  std::string spg_symb;    // char(20)
  std::string hall;        // char(16)
  std::string gen_hall;    // char(90); not in the map file
  std::string crystalsys;  // char(12)
  std::string laue;        // char(5)
  std::string pg;          // char(5)
  std::string info;        // char(5)
  std::string sg_setting;  // char(90)
  bool hexa = false;
  std::string spg_lat;     // char(1)
  std::string spg_latsy;   // char(2)
  std::int32_t num_lat = 0;
  std::vector<vec3f> latt_trans;  // num_lat centring vectors, the first null
  std::string bravais;     // char(51)
  std::string centre;      // char(80)
  std::int32_t centred = 0;
  vec3f centre_coord{};
  std::int32_t num_ops = 0;
  std::int32_t multip = 0;
  std::int32_t num_gen = 0;
  std::vector<sym_oper_type> sym_op;     // multip entries
  std::vector<std::string> sym_op_symb;  // multip entries, char(50) each
  wyckoff_type wyckoff;
  // Asymmetric unit: r_asym_unit[axis][0] lower, [axis][1] upper limit.
  std::array<std::array<float, 2>, 3> r_asym_unit{{{0.0f, 1.0f}, {0.0f, 1.0f}, {0.0f, 1.0f}}};
};

// The space group block of the binary map file. The reader replaces the whole
// record (old arrays released, defaults copied over it) before it reads.
void read_bin_spacegroup(space_group_type& grp, std::istream& in, bool& ok);
void write_bin_spacegroup(const space_group_type& grp, std::ostream& out);

// ---------------------------------------------------------------------------
// Module state, shared by the symmetry routines and left in place between
// calls. Operations that can fail clear the error pair on entry.

extern bool err_symm;
extern std::string err_symm_mess;  // char(150)
// The lattice last decoded: number of centring vectors (the null one counted),
// the vectors (ltr[0] null), its letter and its code 1 P, 2 A, 3 B, 4 C, 5 I,
// 6 R, 7 F, 8 Z.
extern std::int32_t nlat;
extern std::array<vec3f, 192> ltr;
extern std::string lat_ch;  // char(1)
extern std::int32_t inlat;
extern bool hexa;
extern std::string spaceg;  // char(20)

void init_err_symm();
// Sets the error pair: err_symm true and the message, cut to its 150 characters.
void set_err_symm(const std::string& message);

// Each component folded by the floating remainder of (v + 10) by 1.
vec3f modulo_lat(const vec3f& v);

// Parses an operator text such as "-y,x-y,z+1/3" from character istart
// (counted from 1). The translation is stored only when tr is given; the
// determinant is checked unless det_check is false (positions of Wyckoff
// sites have a zero one).
void read_xsym(const std::string& text, std::int32_t istart, mat3i& rot, vec3f* tr = nullptr,
               bool det_check = true);

// The text of an operator with integer rotation, "-y,x-y,z+1/3".
void get_symsymbi(const mat3i& rot, const vec3f& tr, std::string& text);
// The text of a position with real rotation, "x,1/4,z", "x,2x,1/4", "x/2,...".
void get_symsymbr(const mat3f& rot, const vec3f& tr, std::string& text);

// rot.v + tr, not reduced to the cell.
vec3f applyso(const sym_oper_type& op, const vec3f& v);

// The signed order of a rotation (-1 the inversion, -2 a mirror, ...); 0 when
// the matrix is no crystallographic rotation.
std::int32_t axes_rotation(const mat3i& rot);

// Looks rot up among the rows i1 to i2 of mod6: found is the row, minus the
// row when -rot matches, 0 (with the error pair set) when none does.
void searchop(const mat3i& rot, std::int32_t i1, std::int32_t i2, std::int32_t& found);

// Folds the first n vectors of t by modulo_lat; out, when given, receives
// 2 - in.
void mod_trans(std::int32_t n, std::vector<vec3f>& t, std::int32_t in = 0, std::int32_t* out = nullptr);

// Decodes a lattice letter into the module's nlat, ltr, lat_ch and inlat; a
// "Z" lattice takes its numl centring vectors from latc.
void latsym(const std::string& symb, std::int32_t numl = 0, const std::vector<vec3f>* latc = nullptr);

// Keeps the lattice state (nlat, ltr, lat_ch, inlat) of its making and puts
// it back at its end: for work that decodes another lattice on the way (a
// table row's Hall symbol expanded to compare with) while a group is built.
class lattice_state_keeper {
 public:
  lattice_state_keeper() : nlat_(nlat), inlat_(inlat), ltr_(ltr), lat_ch_(lat_ch) {}
  ~lattice_state_keeper() { nlat = nlat_, inlat = inlat_, ltr = ltr_, lat_ch = lat_ch_; }
  lattice_state_keeper(const lattice_state_keeper&) = delete;
  lattice_state_keeper& operator=(const lattice_state_keeper&) = delete;

 private:
  std::int32_t nlat_, inlat_;
  std::array<vec3f, 192> ltr_;
  std::string lat_ch_;
};

// True when v is a lattice vector of the lattice with letter lat ("Z": the
// lattice last decoded by latsym).
bool lattice_trans(const vec3f& v, const std::string& lat);

// Number of points of the orbit of x in the cell.
std::int32_t get_multip_pos_crys(const vec3f& x, const space_group_type& spg);

// The points of the orbit of a Wyckoff site, without centring translations.
void wyckoff_orbit(const space_group_type& spg, const std::string& origin, std::int32_t& orbit_count,
                   std::array<std::string, 48>& orbit);

// Crystal system of a set of rotations: code 1 to 7 (index of sys_cry, counted
// from 1) and letter "a", "m", "o", "t", "h" or "c".
void get_crystal_system_r_op(const std::vector<mat3i>& ops, std::int32_t count, std::int32_t& system_code,
                             std::string& system_letter);

// ---------------------------------------------------------------------------
// Building groups: from a Hall symbol, from generators, from a full list.

// What a group builder gives back: the operators in the order of the record
// (reduced operators with the identity first, their inversion partners, then
// the list repeated for each centring vector) and the codes that describe them.
struct symmetry_build_type {
  std::int32_t crystal_code = 0;   // index of sys_cry, counted from 1
  std::int32_t centring_code = 1;  // 0 centric off the origin, 1 acentric, 2 centric at the origin
  std::int32_t lattice_code = 1;   // 1 P, 2 A, 3 B, 4 C, 5 I, 6 R, 7 F, 8 Z
  std::int32_t num_ops = 1;        // reduced number of operators
  std::int32_t count = 0;          // generators read or found
  std::vector<mat3i> ss;           // rotations of the operators
  std::vector<vec3f> ts;           // their translations
  std::string latsy;               // char(2), as spg_latsy
  vec3f co{};                      // position of the centre of symmetry
};

// The operators of a group from its Hall symbol ("-P 2ybc", "P 31 2c (0 0 1)").
void get_so_from_hall(const std::string& symbol, symmetry_build_type& out);

// The operators of a group from generators (the "GEN" way): centring
// translations and an inversion among them are recognised; spg_lat, when not
// blank, names the lattice instead.
void get_so_from_gener(const std::vector<mat3i>& ss, const std::vector<vec3f>& ts, std::int32_t ngen,
                       const std::string& spg_lat, symmetry_build_type& out);

// The reduced list of a group given in full (the "FIX" way): identity first,
// perhaps pure translations and an inversion among them. out.ss, out.ts get
// the reduced operators, not expanded. lat, when not blank, names the lattice.
void get_so_from_fix(const std::vector<mat3i>& ss, const std::vector<vec3f>& ts, std::int32_t count,
                     const std::string& lat, symmetry_build_type& out);

// Completes a set of centring vectors by their sums and names the lattice:
// "P", "A", "B", "C", "I", "R", "F" or "Z".
void get_centring_vectors(std::int32_t& numl, std::vector<vec3f>& latc, std::string& lat);

// Judges a generator text: integer matrix with determinant +1 or -1. symbol,
// when given, names the kind of element.
void check_generator(const std::string& gen, bool& ok, std::string* symbol = nullptr);

// Laue class and point group from the reduced operators of a record.
void get_laue_pg(const space_group_type& spg, std::string& laue, std::string& pg);

// The operators of a group from its Hermann-Mauguin symbol ("P 21/c",
// "F m -3 m"), after check_symbol_hm has judged the symbol.
void get_so_from_hms(const std::string& symbol, symmetry_build_type& out);

// Builds the complete record of a space group from a number ("14", "227:1"),
// a Hermann-Mauguin symbol, a Hall symbol, or a list of operators (gen, ngen)
// with mode "GEN" or "FIX". mode "HMS", "ITC", "HAL" forces one way; with
// force_hall a symbol of the table is built from its Hall symbol.
void set_spacegroup(const std::string& spacegen, space_group_type& spacegroup,
                    const std::vector<std::string>* gen = nullptr, const std::int32_t* ngen = nullptr,
                    const std::string* mode = nullptr, bool force_hall = false);

// Judges the 3 by 4 table of a Hermann-Mauguin symbol (one row of four
// characters per symmetry direction); sets the error pair on a fault.
void check_symbol_hm(const std::array<std::string, 3>& table);

// Names a group made from generators: when its operators are those of a
// setting of the table, the record takes that setting's number, symbols,
// classes and "Tabulated Setting"; otherwise "Unknown" and "Non-standard
// Setting". hall, when given, receives the Hall symbol found (blank if none).
void get_hallsymb_from_gener(space_group_type& spg, std::string* hall = nullptr);
