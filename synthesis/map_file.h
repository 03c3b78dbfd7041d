// The map file (.bin) of a run, in the layout the program loads: title,
// version, cell, group, the control file's atoms, the run block, the grid
// block (the whole cell: limits 0 and 1, steps 1/n), mean and sigma, the
// density with x fastest, and the peaks as atoms labelled PK1, PK2, ...
#pragma once

#include <vector>

#include "crystal/vant_atom_typedef.h"
#include "synthesis/peak_search.h"
#include "synthesis/synthesis.h"
#include "toolkit/core/whole_file.h"

// The peaks as atom records: label PKn, site multiplicity, the height in the
// first free variable and in the info text.
atom_list_type peak_atoms(const std::vector<peak_type>& peaks);

// Writes the map into the file begun; the density goes straight from the
// map, without a copy. The run block comes from the control data, whose
// npeaks must then be the number of peaks.
void write_map_file(whole_file& file, const cell_metrics_type& cell, const space_group_type& group,
                    const synthesis_result_type& result, const atom_list_type& peaks);
