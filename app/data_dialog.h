// The input data dialog 116: one tab holder of eight pages that edits all
// that goes into the control file. It keeps nothing of its own: the pages
// are filled from the shared state and read back into it on OK.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Runs the dialog until OK or Cancel. Without a page it opens empty (File,
// New); with a page dialog number it opens filled on that page (the Edit
// entries); -1 opens filled with the title field empty (Edit, Title). OK
// reads the pages in order and stays in the dialog on the first that fails;
// Cancel sets kcancel and restores nothing. After OK on a page, kedit.
void gui_fourierdata(std::optional<std::int32_t> page = std::nullopt);

// The pages, in the dialog's order. Each takes a word of which only the
// first letter counts: init (empty), write (state to page), read (page to
// state; a fault shows a box and sets kerror), modify (a field changed),
// button (a push button of the page).
void dialogtab_datafile(const std::string& action);     // 102 Data Files
void dialogtab_cellparam(const std::string& action);    // 103 Cell Parameters
void dialogtab_spacegroup(const std::string& action);   // 104 Space Group
void dialogtab_fourierfft(const std::string& action);   // 106 Fourier Calculations
void dialogtab_atoms(const std::string& action);        // 118 Atoms List
void dialogtab_reflections(const std::string& action);  // 115 Reflections
void dialogtab_searchpeaks(const std::string& action);  // 109 Search Peaks
void dialogtab_listinfo(const std::string& action);     // 105 Output Information
