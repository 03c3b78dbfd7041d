// The molecule drawn with the isosurface: points and links read from the
// connection file "<codefil>.enl", and the points in Angstrom about their
// centre.
#pragma once

// Reads the connection file into nbonds, bonds and at_bonds, then places the
// points with init_molecular_coord and sets kbonds. A missing file or one of
// a single line changes nothing. A record that names an atom, operator or
// point that does not exist, or holds more than ten links, is refused with
// a message and leaves no molecule.
void calculate_bonds();

// at_bonds_o = the points in Angstrom less their centre baric; u_min..u_max
// and v_min..v_max the x and y spread widened by a fifth on either side.
void init_molecular_coord();
