#include "crystal/vant_scattering_chemical_tables.h"

#include "crystal/fixed_text.h"
#include "crystal/vant_chem_info_rows.h"

void set_chem_info() {
  if (!chem_info.empty()) return;
  chem_info.reserve(chem_info_rows.size());
  for (const chem_info_row& r : chem_info_rows)
    chem_info.push_back({r.symb, r.name, r.z, r.atwe, r.rcov, r.rwaals, r.vatm, r.oxid, r.rion, r.sctf,
                         r.sedinc, r.sea});
}

void remove_chem_info() {
  chem_info.clear();
  chem_info.shrink_to_fit();
}

void get_chemsymb(std::string_view label, std::string& chemsymb, std::int32_t* z) {
  chemsymb = "**";
  if (z) *z = 0;
  // Two characters of the label; a digit, sign or point in the second place
  // ends the symbol there ("O2-", "C1").
  std::string symb = fixed_text::padded(fixed_text::adjusted(label), 2);
  if (std::string_view("1234567890+-.").find(symb[1]) != std::string_view::npos) symb[1] = ' ';
  for (char& c : symb)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');

  set_chem_info();
  for (const chem_info_type& row : chem_info) {
    if (!fixed_text::same(row.symb, symb)) continue;
    if (symb[1] >= 'A' && symb[1] <= 'Z') symb[1] = static_cast<char>(symb[1] - 'A' + 'a');
    chemsymb = fixed_text::trimmed(symb);
    if (z) *z = row.z;
    return;
  }
}
