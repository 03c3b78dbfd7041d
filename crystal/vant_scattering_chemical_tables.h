// The table of chemical elements: one row per element, and the look-up of a
// chemical symbol from an atom's label or scattering symbol.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct chem_info_type {
  std::string symb;           // char(2): upper case, "H", "HE"
  std::string name;           // char(12)
  std::int32_t z = 0;
  float atwe = 0.0f;          // atomic mass
  float rcov = 0.0f;          // covalent radius, Angstrom
  float rwaals = 0.0f;        // van der Waals radius, Angstrom
  float vatm = 0.0f;          // atomic volume, cm3/mol
  std::array<std::int32_t, 5> oxid{};  // oxidation states
  std::array<float, 5> rion{};         // ionic radius of each state
  float sctf = 0.0f;          // coherent (Fermi) scattering length, 1e-12 cm
  float sedinc = 0.0f;        // incoherent cross section, barn
  float sea = 0.0f;           // absorption cross section, barn
};

// The 108 rows: Z 1 to 105 in order, then "BS" (boron-11), "ZE" (zero
// scatterer) and "D" (deuterium). Empty until set_chem_info.
inline std::vector<chem_info_type> chem_info;

// Fills chem_info unless it is already there; remove_chem_info releases it.
void set_chem_info();
void remove_chem_info();

// The chemical symbol ("Fe", "O", with the second letter in lower case) of a
// label such as "Fe3+", "O2-" or "C1", and its atomic number. An unknown
// symbol gives "**" and 0.
void get_chemsymb(std::string_view label, std::string& chemsymb, std::int32_t* z = nullptr);
