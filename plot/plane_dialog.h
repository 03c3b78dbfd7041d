// The oriented section's plane, given by three points in fractions of the cell.
#pragma once

// Dialog 101: three points and the half size of the window. Sets the plane's
// coefficients, the angles of its normal, the window and height in the
// plane's frame, raises plane_def and redraws. Points that give no plane
// leave the plane as it was, with a message.
void proc_plane();
