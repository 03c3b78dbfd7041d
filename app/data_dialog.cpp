#include "app/data_dialog.h"

#include "crystal/fixed_text.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t input_data = 116;
constexpr std::int32_t title_field = 1147;
constexpr std::int32_t tabs = 1002;
constexpr std::int32_t ok = 1;
constexpr std::int32_t cancel = 2;

struct page_type {
  std::int32_t dialog;
  void (*routine)(const std::string&);
  bool modified;  // whether a field change concerns the page
};

// The pages in the order of the tabs, which is also the order OK reads them in.
constexpr page_type pages[] = {
    {102, dialogtab_datafile, true},    {103, dialogtab_cellparam, false}, {104, dialogtab_spacegroup, true},
    {106, dialogtab_fourierfft, true},  {118, dialogtab_atoms, true},      {115, dialogtab_reflections, true},
    {109, dialogtab_searchpeaks, true}, {105, dialogtab_listinfo, true},
};

void every_page(const char* action) {
  for (const page_type& p : pages) p.routine(action);
}

const page_type* shown_page() {
  std::int32_t tab = 0;
  wdialoggettab(tabs, tab);
  for (const page_type& p : pages)
    if (p.dialog == tab) return &p;
  return nullptr;
}

// OK: the title, then the pages in order up to the first that fails.
bool read_pages() {
  wdialoggetstring(title_field, qp::titulo);
  qp::titulo = fixed_text::assigned(qp::titulo, 80);
  for (const page_type& p : pages) {
    p.routine("read");
    if (qp::kerror) break;
  }
  if (!qp::kerror) return true;
  qp::kerror = false;
  return false;
}

// The push buttons of the pages: Change... of the data files, Browse of the
// atoms and of the reflections.
void page_button(std::int32_t button) {
  const page_type* page = shown_page();
  if (page == nullptr) return;
  if ((button == 1082 && page->dialog == 102) || (button == 1271 && (page->dialog == 118 || page->dialog == 115)))
    page->routine("button");
}

void close_dialog() {
  wdialogselect(input_data);
  wmessageenable(msg_field_changed, 0);
  wdialogunload();
}

}  // namespace

void gui_fourierdata(std::optional<std::int32_t> page) {
  if (page) qp::kedit = false;
  wdialogload(input_data);
  if (!page) {
    every_page("init");
    wdialogselect(input_data);
  } else if (*page != 0) {
    every_page("write");
    wdialogselect(input_data);
    // Edit, Title (-1) shows the title field empty on the first page: the
    // user types the title anew.
    if (*page > 0) {
      wdialogputstring(title_field, qp::titulo);
      wdialogsettab(tabs, *page);
    }
  }
  wdialogshow(-1, -1, 0, 3);
  wmessageenable(msg_field_changed, 1);
  for (;;) {
    wmessage(qp::evento, qp::mensaje);
    if (qp::evento == msg_push_button && qp::mensaje.value1 == ok) {
      if (read_pages()) break;
    } else if ((qp::evento == msg_push_button && qp::mensaje.value1 == cancel) ||
               qp::evento == msg_close_request) {
      // Closing the main window cancels the dialog and then ends the program.
      if (qp::evento == msg_close_request) wmessagepush(qp::evento, qp::mensaje);
      qp::kcancel = true;
      close_dialog();
      return;
    } else if (qp::evento == msg_push_button) {
      page_button(qp::mensaje.value1);
    } else if (qp::evento == msg_field_changed) {
      const page_type* shown = shown_page();
      if (shown != nullptr && shown->modified) shown->routine("modify");
    }
    wdialogselect(input_data);
  }
  if (page && *page != 0) qp::kedit = true;
  close_dialog();
}
