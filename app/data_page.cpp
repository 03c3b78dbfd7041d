#include "app/data_page.h"

#include <cctype>

#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/message_box.h"
#include "crystal/fixed_text.h"
#include "toolkit/dialogs/file_selector.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

void run_page(std::int32_t dialog, const std::string& word, const page_routines& routines) {
  wdialogselect(dialog);
  const char letter = word.empty() ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(word[0])));
  const struct {
    char letter;
    void (*routine)();
  } by_letter[] = {{'i', routines.init},
                   {'w', routines.write},
                   {'r', routines.read},
                   {'m', routines.modify},
                   {'b', routines.button}};
  for (const auto& entry : by_letter)
    if (entry.letter == letter && entry.routine != nullptr) entry.routine();
}

void fields_on(std::initializer_list<std::int32_t> fields, bool on) {
  for (std::int32_t field : fields) wdialogfieldstate(field, on ? 1 : 0);
}

bool chosen(std::int32_t field) { return qp::mensaje.value1 == field && qp::mensaje.value2 == field; }

void begin_page_read() { winfoerror(1); }

void end_page_read(bool fault, const std::string& message) {
  const bool undefined = winfoerror(1) != 0;
  if (!undefined && !fault) return;
  error_message(message);
  qp::kerror = true;
}

void browse_into(std::int32_t field, const std::string& filter, const std::string& title) {
  std::string name = std::string(fixed_text::trimmed(qp::filedir)) + qp::var_sep;
  wselectfile2(filter, 10, name, title);
  if (winfodialog(4) == 1) wdialogputstring(field, name);
}
