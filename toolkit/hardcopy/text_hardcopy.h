// A text file on the printer: the file goes, as it stands, to the print
// command of the platform ("lp"), which is found on the search path.
#pragma once

#include <string>

// Sends the file to the printer and waits for the print command to take
// it. A file that is not there is error 13 and prints nothing; so is a print
// command that could not be run.
void igrhardcopytextfile(const std::string& name);
