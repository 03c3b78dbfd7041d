// Toolbars of the catalogue and the status prompts (tool tips) of their
// buttons. 30101 belongs to the main window, 30102 and 30103 to the plot
// window; 0 in a toolbar is a gap.
#include "resources/quelmo_rc.h"

std::vector<toolbar_type> quelmo_rc_toolbars() {
  return {
      {30101, {40025, 40026, 40027, 0, 40005, 40008, 0, 40022, 0, 40029, 0, 40024}},
      {30102, {40072, 40074, 40075, 40076, 0, 40034, 40036, 40037, 40048, 40004, 0,
               40030, 40032, 0, 40040, 40041, 40042, 40043, 0, 40044, 0, 40033}},
      {30103, {40035, 40038, 40047, 40006, 0, 40049, 0, 40002, 40003}},
  };
}

std::vector<prompt_type> quelmo_rc_prompts() {
  return {
      {40002, "Background colours"},
      {40003, "Foreground Colours"},
      {40004, "Simulation Show"},
      {40005, "Fourier Calculations"},
      {40006, "Defining Perspective of Graphics"},
      {40008, "View the Fourier Calculations Output"},
      {40022, "Plot the Fourier Maps"},
      {40024, "Exit of the Graphic Part"},
      {40025, "Interactive Input Data"},
      {40026, "Open an Input Data File"},
      {40027, "Save the Current Data in a File"},
      {40029, "Help File"},
      {40030, "Active the Pointer"},
      {40032, "Active the Atoms Representation"},
      {40033, "Exit on Graphics part"},
      {40034, "X, Y, Z Perspective"},
      {40035, "Limits of the Fourier Map"},
      {40036, "Actual Layer +1"},
      {40037, "Actual Layer -1"},
      {40038, "Defining a Plane"},
      {40040, "Print the actual view"},
      {40041, "Create a Windows Metafile of the actual vision"},
      {40042, "Create a Postscript File of the actual vision"},
      {40043, "Create an ASCII File of the actual vision"},
      {40044, "Initialize all graphics parameters"},
      {40047, "Defining Levels on Maps"},
      {40048, "Adding layers to one"},
      {40049, "On/OFF Legends"},
      {40072, "Contour 2D"},
      {40074, "Fill Contour 2D"},
      {40075, "Contour 3D"},
      {40076, "Isosurface"},
  };
}
