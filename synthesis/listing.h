// The listing of a run (<stem>.out), section by section.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "crystal/vant_atom_typedef.h"
#include "synthesis/peak_search.h"
#include "synthesis/synthesis.h"

// The control file as it stands, each line cut as the reader cuts it.
void list_echo(std::ostream& out, const std::string& text);
void list_crystal(std::ostream& out, const cell_metrics_type& cell, const space_group_type& group);
// What was asked for and what became of the reflections read.
void list_reflections(std::ostream& out, const std::string& file, const reflection_set_type& set,
                      const synthesis_request_type& request, const reflection_counts_type& counts);
void list_map(std::ostream& out, const synthesis_result_type& result, const cell_metrics_type& cell);
void list_atoms(std::ostream& out, const atom_list_type& atoms, const cell_metrics_type& cell);
// Distances from each atom to the atoms of the cell, from d1 to d2 A.
void list_distances(std::ostream& out, const atom_list_type& atoms, const atom_list_type& cell_atoms,
                    const cell_metrics_type& cell, double d1, double d2);
// The peaks with the atom of the cell nearest to each.
void list_peaks(std::ostream& out, const std::vector<peak_type>& peaks, std::int32_t asked,
                const atom_list_type& cell_atoms, const cell_metrics_type& cell);
