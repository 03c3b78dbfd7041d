// Page 104, Space Group: the group by its number, its Hermann-Mauguin symbol
// or its Hall symbol, over the 612 settings of the symmetry table. The two
// menus list the table's rows, so a row number is the same in both; the
// number field follows the row chosen. Whatever was chosen, the control file
// gets the Hermann-Mauguin text of the row.
#include <algorithm>
#include <cctype>

#include "app/data_dialog.h"
#include "app/data_page.h"
#include "crystal/fixed_text.h"
#include "crystal/vant_symmetry_tables.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/wdialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t number_field = 1020, hm_menu = 1017, hall_menu = 1018;
constexpr std::int32_t by_number = 1021, by_hm = 1022, by_hall = 1023;

// The rows of the table (built on first use), 1-based.
const spgr_info_type& row(std::int32_t r) {
  set_spgr_info();
  return spgr_info[static_cast<std::size_t>(r - 1)];
}

std::int32_t row_count() {
  set_spgr_info();
  return static_cast<std::int32_t>(spgr_info.size());
}

void fill_menus(std::int32_t selection) {
  std::vector<std::string> hm, hall;
  for (std::int32_t r = 1; r <= row_count(); ++r) {
    hm.push_back(fixed_text::assigned(row(r).hm, 12));
    hall.push_back(fixed_text::assigned(row(r).hall, 16));
  }
  wdialogputmenu1(hm_menu, hm, row_count(), selection);
  wdialogputmenu1(hall_menu, hall, row_count(), selection);
}

// The first row of the group with this number, 0 when there is none.
std::int32_t first_row_of(std::int32_t number) {
  for (std::int32_t r = 1; r <= row_count(); ++r)
    if (row(r).n == number) return r;
  return 0;
}

// The row whose symbol is the first 12 characters of spgr, 0 when none.
std::int32_t row_of_symbol(const std::string& symbol) {
  for (std::int32_t r = 1; r <= row_count(); ++r)
    if (fixed_text::padded(row(r).hm, 12) == fixed_text::padded(symbol, 12)) return r;
  return 0;
}

void select_row(std::int32_t r) {
  wdialogputoption1(hm_menu, r);
  wdialogputoption1(hall_menu, r);
}

// A row chosen in one menu: its group number into the number field and the
// same row in the other menu.
void row_chosen(std::int32_t menu, std::int32_t other) {
  std::int32_t r = 0;
  wdialoggetmenu1(menu, r);
  wdialogputinteger(number_field, r > 0 ? row(r).n : r);
  wdialogputoption1(other, r);
}

void modify() {
  if (chosen(hm_menu)) row_chosen(hm_menu, hall_menu);
  if (chosen(hall_menu)) row_chosen(hall_menu, hm_menu);
  if (chosen(number_field)) {
    std::int32_t number = 0;
    wdialoggetinteger(number_field, number);
    select_row(first_row_of(number));
  }
  if (chosen(by_number)) {
    fields_on({number_field}, true);
    fields_on({hm_menu, hall_menu}, false);
  }
  if (chosen(by_hm)) {
    fields_on({number_field, hall_menu}, false);
    fields_on({hm_menu}, true);
  }
  if (chosen(by_hall)) {
    fields_on({number_field, hm_menu}, false);
    fields_on({hall_menu}, true);
  }
}

void write() {
  fill_menus(0);
  wdialogputradiobutton(by_hm);
  fields_on({number_field, hall_menu}, false);
  fields_on({hm_menu}, true);
  std::string symbol = qp::spgr;
  std::transform(symbol.begin(), symbol.end(), symbol.begin(), [](unsigned char c) { return std::toupper(c); });
  qp::spgr = symbol;
  const std::int32_t r = row_of_symbol(symbol);
  if (r == 0) {
    error_message("Space Group undetermined");
    return;
  }
  wdialogputinteger(number_field, row(r).n);
  select_row(r);
}

void read() {
  begin_page_read();
  qp::spgr.clear();
  std::int32_t radio = 0;
  wdialoggetradiobutton(by_number, radio);
  if (radio == 1) {
    std::int32_t number = 0;
    wdialoggetinteger(number_field, number);
    if (const std::int32_t r = first_row_of(number); r > 0) qp::spgr = fixed_text::assigned(row(r).hm, 12);
  } else {
    std::int32_t r = 0;
    std::string text;
    wdialoggetmenu1(hm_menu, r, text);
    qp::spgr = fixed_text::assigned(text, 20);
  }
  end_page_read(fixed_text::is_blank(qp::spgr), "The SpaceGroup Information is undefined");
  remove_spgr_info();
}

void init() {
  fill_menus(0);
  wdialogputradiobutton(by_number);
  fields_on({hm_menu, hall_menu}, false);
}

}  // namespace

void dialogtab_spacegroup(const std::string& action) { run_page(104, action, {init, write, read, modify, nullptr}); }
