// The two files that outlive a run: the settings file (colours, line styles
// and browser of the user) and the directory file (the folder worked in
// last). On UNIX both live in the home directory; the suite's own settings
// file beside them is read for its last directory.
#pragma once

#include <string>

// Reads the settings file and applies it to the palette, the level lines and
// the browser. `variable` names the environment variable of the suite's
// directory (var_suite). A missing file changes nothing.
void load_settings_file(const std::string& variable);

// Writes the settings file, making its folder when needed. `variable` names
// the environment variable of the folder where HOME is not used.
void save_settings_file(const std::string& variable);

// Mode "w..." writes the current directory to the directory file; any other
// mode, or none, changes to the last directory: the suite's one if its
// settings file exists, else the one in the directory file.
void directory_update(const std::string& mode = "");
