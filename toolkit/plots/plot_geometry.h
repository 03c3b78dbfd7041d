// Where the plot lies in graphics units, and the present character size in
// graphics units, for the frame, scales, labels and key.
#pragma once

// The plot area in graphics units.
struct plot_frame_box {
  float left = 0, right = 1, bottom = 0, top = 1;
};
plot_frame_box plot_box();

// The character box of the present font in graphics units.
float text_width_in_x_units();
float text_height_in_y_units();
