#include "app/menu_file.h"

#include <algorithm>
#include <cctype>

#include "app/file_units.h"
#include "app/menu_calc.h"
#include "app/quelmora_fourier.h"
#include "app/quelmora_initialize.h"
#include "app/data_dialog.h"
#include "crystal/fixed_text.h"
#include "maps/binary_map.h"
#include "maps/ccp4_map.h"
#include "maps/text_map.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/file_selector.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"

namespace qp = quelmora_parametros;

namespace {
constexpr std::size_t file_name_length = 150;
}

std::string file_name(const std::string& s) { return fixed_text::assigned(s, file_name_length); }

std::string through_last_dot(const std::string& name) {
  const auto dot = name.rfind('.');
  return dot == std::string::npos ? std::string{} : name.substr(0, dot + 1);
}

namespace {

void enable(std::initializer_list<std::int32_t> items, std::int32_t state) {
  for (std::int32_t item : items) wmenusetstate(item, 1, state);
}

std::string current_directory() {
  std::string dir;
  iosdirname(dir);
  return file_name(dir);
}

// Open chain of a text map (.asc or .map, open on unit 28): convert, then
// load the .bin the conversion wrote.
void load_text_map(void (*convert)()) {
  const auto dot = qp::filasc.find('.');
  qp::filbin = file_name(dot == std::string::npos ? qp::filasc + ".bin" : qp::filasc.substr(0, dot + 1) + "bin");
  convert();
  if (qp::kerror) return;
  if (!open_filebin(qp::filbin)) {
    error_message("Error opening the binary file");
    qp::kerror = true;
    return;
  }
  read_filebin(false);
  close_filebin();
}

}  // namespace

void file_validation() {
  qp::kerror = false;
  const auto sep = qp::codefil.rfind(qp::var_sep);
  if (!qp::var_sep.empty() && sep != std::string::npos) {
    qp::filedir = file_name(qp::codefil.substr(0, sep));
    qp::codefil = file_name(qp::codefil.substr(sep + 1));
  }
  const auto dot = qp::codefil.find('.');
  if (dot != std::string::npos) {
    qp::filinp = file_name(qp::codefil);
    qp::codefil = qp::codefil.substr(0, dot);
  } else {
    qp::filinp = file_name(qp::codefil + ".inp");
  }
  const std::string path = fixed_text::is_blank(qp::filedir) ? qp::filinp : qp::filedir + qp::var_sep + qp::filinp;
  if (!iosfileexists(path)) {
    error_message("Input Control File Not Found.");
    qp::filinp.clear();
    qp::codefil.clear();
    qp::filedir = current_directory();
    qp::kerror = true;
    return;
  }
  qp::filedir = current_directory();
  // A CCP4/MRC map is known by its content, whatever its name.
  if (is_ccp4_map(path)) {
    qp::input_file = 4;
    qp::filbin = qp::filinp;
    qp::filinp.clear();
    return;
  }
  // The three characters behind the first dot, as a blank padded char(3).
  std::string ext = fixed_text::padded(qp::filinp.substr(qp::filinp.find('.') + 1), 3);
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
  if (ext == "inp") {
    qp::input_file = 0;
    return;
  }
  const struct {
    const char* ext;
    std::int32_t kind;
    std::string* target;
  } kinds[] = {{"bin", 1, &qp::filbin}, {"asc", 2, &qp::filasc}, {"map", 3, &qp::filasc}};
  for (const auto& k : kinds)
    if (ext == k.ext) {
      qp::input_file = k.kind;
      *k.target = qp::filinp;
      qp::filinp.clear();
      return;
    }
  error_message("Input file type is unknown");
  qp::filinp.clear();
  qp::kerror = true;
}

void asc2bin() {
  // filinp is blank whenever a .asc is the current file, so this open fails
  // and the box is shown: a .asc is shown only through the .bin beside it.
  if (!open_unit(unit_control_file, qp::filinp)) {
    error_message("Opening the Ascii File");
    qp::kerror = true;
    return;
  }
  close_unit(unit_control_file);
}

void prep_plotting() {
  if (qp::input_file == 0) {
    menu_c_fourier();
    if (qp::kerror) return;
    qp::filbin = file_name(through_last_dot(qp::filinp) + "bin");
  } else if (qp::input_file == 2) {
    qp::filbin = file_name(through_last_dot(qp::filasc) + "bin");
    asc2bin();
    if (qp::kerror) return;
  }
  if (qp::input_file == 4) {
    init_var_graf();
    read_ccp4_map(qp::filbin);
  } else if (!open_filebin(qp::filbin)) {
    error_message("Error opening the binary file");
    qp::kerror = true;
    return;
  } else {
    init_var_graf();
    read_filebin(true);
    close_filebin();
  }
  if (qp::kerror) return;
  wmenusetstate(40005, 1, qp::input_file == 0 ? 0 : 1);
  enable({40022, 40021, 40011, 40027, 40028}, 1);
}

void menu_f_new() {
  gui_fourierdata();
  write_header();
  if (qp::kcancel) return;  // not cleared on entry: a New after a cancel ends here
  iosdirchange(qp::filedir);
  const auto dot = qp::codefil.find('.');
  qp::filinp = file_name(dot == std::string::npos ? qp::codefil + ".inp" : qp::codefil.substr(0, dot + 1) + "inp");
  qp::input_file = 0;
  fourier_filesave();
  if (qp::kcancel || qp::kerror) return;
  windowoutstatusbar(2, "File: " + qp::filinp);
  enable({40011, 40021, 40005}, 1);
}

void menu_f_open() {
  std::string name = std::string(fixed_text::trimmed(qp::filedir)) + qp::var_sep;
  wselectfile2("Fourier Input File|*.inp;*.bin;*.asc;*.map|CCP4/MRC Map File|*.ccp4;*.mrc;*.map|", 10, name, "Load Input File");
  if (winfodialog(4) != 1) {
    qp::filedir.clear();
    qp::kcancel = true;
  } else {
    init_var_prog();
    init_var_graf();
    const auto first = name.find_first_not_of(' ');
    qp::codefil = file_name(first == std::string::npos ? std::string{} : name.substr(first));
    file_validation();
    if (!qp::kerror) {
      iosdirchange(qp::filedir);
      const struct {
        bool (*open)(const std::string&);
        const std::string* name;
        const char* message;
      } opens[] = {
          {[](const std::string& n) { return open_unit(unit_control_file, n); }, &qp::filinp,
           "Error opening the input file"},
          {open_filebin, &qp::filbin, "Error opening the binary file"},
          {[](const std::string& n) { return open_unit(unit_text_map, n); }, &qp::filasc, "Error opening the ASC file"},
          {[](const std::string& n) { return open_unit(unit_text_map, n); }, &qp::filasc, "Error opening the MAP file"},
          {is_ccp4_map, &qp::filbin, "Error opening the CCP4/MRC map file"},
      };
      const auto& how = opens[qp::input_file];
      if (!how.open(*how.name)) {
        error_message(how.message);
        qp::kerror = true;
      }
    }
  }
  write_header();
  if (qp::kcancel || qp::kerror) return;

  std::string shown;
  switch (qp::input_file) {
    case 0:
      lee_datos();
      close_unit(unit_control_file);
      enable({40005}, 1);
      enable({40022}, 0);
      shown = qp::filinp;
      break;
    case 1:
      read_filebin(true);
      close_filebin();
      if (qp::kerror) return;
      shown = qp::filbin;
      break;
    case 4:
      read_ccp4_map(qp::filbin);
      if (qp::kerror) return;
      shown = qp::filbin;
      break;
    default:
      load_text_map(qp::input_file == 2 ? asc2bin : map2bin);
      if (qp::kerror) return;
      shown = qp::filasc;
      break;
  }
  if (qp::input_file != 0) {
    enable({40005}, 0);
    enable({40022}, 1);
  }
  windowoutstatusbar(2, "File: " + fixed_text::padded(shown, file_name_length));
  enable({40011, 40021}, 1);
}

void menu_f_save() { fourier_filesave(); }
