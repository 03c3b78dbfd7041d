// The current section of the map as a text table (.asc): the title, the
// cell, then one line per grid point of the closed section with its
// fractional u, v and the density as stored in rhonew.
#pragma once

// Writes qp::filasc for the family imap and its plane in seccion, with the
// positions of the last plot (rmax, rinc). An imap outside 1 to 3 gives the
// two header lines only. A file that cannot be made or written shows a box
// and sets kerror; an old file of that name is then left as it was.
void fourier_masciisave();
