// Page 115, Reflections: the reflection file, the column of each quantity in
// it (0 for a column the file lacks) and the limits in s and in sigma.
#include "app/data_dialog.h"
#include "app/data_page.h"
#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t file_field = 1050;
// The column fields of h, k, l, Fo, Fc, SFo, Ph, A and B: the slots of lugar.
constexpr std::int32_t column_fields[9] = {1130, 1132, 1133, 1134, 1135, 1140, 1131, 1136, 1137};
constexpr std::int32_t smin_field = 1077, smax_field = 1149, sigma_field = 1150;

// The columns and the limits; the file name and its button stay on.
void numbers_on(bool on) {
  for (std::int32_t field : column_fields) fields_on({field}, on);
  fields_on({smin_field, smax_field, sigma_field}, on);
}

void write() {
  wdialogputstring(file_field, qp::filfou);
  for (std::size_t i = 0; i < 9; ++i) wdialogputinteger(column_fields[i], qp::lugar[i]);
  wdialogputreal(smin_field, qp::smin, "(f8.3)");
  wdialogputreal(smax_field, qp::smax, "(f8.3)");
  wdialogputreal(sigma_field, qp::sigm, "(f8.3)");
}

void read() {
  begin_page_read();
  wdialoggetstring(file_field, qp::filfou);
  qp::filfou = fixed_text::assigned(qp::filfou, 150);
  if (fixed_text::is_blank(qp::filfou)) {
    end_page_read(true, "You need select a reflection file");
    return;
  }
  wdialoggetreal(smin_field, qp::smin);
  wdialoggetreal(smax_field, qp::smax);
  wdialoggetreal(sigma_field, qp::sigm);
  for (std::size_t i = 0; i < 9; ++i) wdialoggetinteger(column_fields[i], qp::lugar[i]);
  end_page_read(false, "Some fields are undefined on Reflections Information");
}

void browse() {
  browse_into(file_field, "Fourier Reflections File|*.fou|", "Load Reflections File");
  if (winfodialog(4) == 1) numbers_on(true);
}

// A name typed into the file field switches the columns and limits on as the
// selector does: a new file can be described without browsing for it.
void modify() {
  if (!chosen(file_field)) return;
  std::string name;
  wdialoggetstring(file_field, name);
  if (!fixed_text::is_blank(name)) numbers_on(true);
}

void init() { numbers_on(false); }

}  // namespace

void dialogtab_reflections(const std::string& action) { run_page(115, action, {init, write, read, modify, browse}); }
