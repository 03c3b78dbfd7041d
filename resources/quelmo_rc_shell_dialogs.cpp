// The shell's small dialogs (About, loading progress, the notice shown while
// Sintrel runs) and the toolkit's own dialogs, which the toolkit loads from
// the same catalogue by number.
#include "resources/quelmo_rc.h"
#include "resources/quelmo_rc_fields.h"

using namespace quelmo_rc_fields;

namespace {

// The labels 1033 and 1058 are replaced at run time by the program's version
// and the version of its data.
dialog_type about() {
  dialog_type d{113, 336, 192, "Quelmora Program",
                {
                    field(1, field_button, 284, 28, 40, 14, "OK"),
                    field(1057, field_label, 12, 12, 106, 16, "Quelmora Program"),
                    field(1033, field_label, 120, 12, 40, 16),
                    field(1058, field_label, 12, 28, 106, 12),
                    field(1034, field_group, 10, 52, 314, 132, "Authors"),
                }};
  const char* const lines[] = {
      "Quelmora: Fourier maps for crystallographers",
      "",
      "Prepares the control file of a Fourier synthesis,",
      "runs the Sintrel program on it and shows the",
      "density map as contour and filled sections,",
      "surfaces and isosurfaces, with atoms and peaks.",
      "",
      "For X-ray and neutron diffraction data.",
      "",
      "Written by the Quelmora developers.",
      "Free software: see the source for the licence.",
  };
  int id = 1301;
  int y = 62;
  for (const char* line : lines) {
    d.fields.push_back(field(id++, field_label, 20, y, 296, 10, line));
    y += 11;
  }
  return d;
}

dialog_type loading() {
  return {111, 222, 42, "Loading...",
          {
              field(1048, field_progress, 20, 8, 180, 14, "0"),
              field(1104, field_label, 20, 24, 10, 10, "0"),
              field(1105, field_label, 103, 24, 16, 10, "50"),
              field(1106, field_label, 184, 24, 16, 10, "100"),
          }};
}

dialog_type sintrel_running() {
  return {107, 134, 20, "", {field(1113, field_label, 20, 4, 92, 12, "Sintrel Program is running...")}};
}

// The toolkit's own dialogs by number and caption: colour choice, the file and
// directory selectors, text search, and the hardcopy options. Their fields are
// laid out by the toolkit routines that show them.
std::vector<dialog_type> toolkit_dialogs() {
  const std::pair<int, const char*> captions[] = {
      {32102, "Colour"},
      {32119, "Colour Palette"},
      {32110, ""},
      {32111, ""},
      {32116, "New directory"},
      {32117, "Properties"},
      {32123, "Rename"},
      {32101, "Select Directory"},
      {32137, "Select Directory"},
      {32120, "Goto Line"},
      {32103, "Find"},
      {32104, "Replace"},
      {32001, "HP-GL plotter"},
      {32002, "PostScript"},
      {32003, "Scalable Vector Graphics (SVG)"},
      {32006, "Bit image file (PCX/BMP/PNG/JPEG)"},
      {32008, "AutoCAD DXF"},
      {32009, "CGM"},
      {32012, "HP-GL/2"},
      {32021, "HP PCL (Colour DeskJet/LaserJet)"},
      {32022, "HP PCL (mono DeskJet/LaserJet)"},
      {32023, "HP PCL (PaintJet)"},
      {32024, "Epson compatible printer"},
      {32025, "Encapsulated PostScript (EPS)"},
      {32031, "HP PCL (colour DeskJet/LaserJet) image dump"},
      {32032, "HP PCL (mono DeskJet/LaserJet) image dump"},
      {32033, "HP PCL (PaintJet) image dump"},
      {32034, "Epson compatible printer image dump"},
      {32035, "Encapsulated PostScript (EPS)"},
      {32099, "Text file hardcopy"},
      {32100, "Printers/plotters"},
      {32098, "Page Setup (HP-GL, HP-GL/2, HP/Epson)"},
  };
  std::vector<dialog_type> dialogs;
  for (const auto& [id, caption] : captions) dialogs.push_back({id, 0, 0, caption, {}});
  return dialogs;
}

}  // namespace

std::vector<dialog_type> quelmo_rc_shell_dialogs() {
  std::vector<dialog_type> dialogs = {about(), loading(), sintrel_running()};
  for (dialog_type& d : toolkit_dialogs()) dialogs.push_back(std::move(d));
  return dialogs;
}
