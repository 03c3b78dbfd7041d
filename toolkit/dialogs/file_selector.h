// The file selector's answer, as the program sees it.
#pragma once

#include <cstdint>
#include <string>

// Runs the selector of the face on the filter ("Description|*.a;*.b|", cut
// at 1000 characters), flags (bit 1: a save box) and title, starting from
// name. On OK: name is the chosen file, the process stands in that file's
// directory (the program relies on it), and winfodialog(4) gives 1. On
// Cancel: name is unchanged and winfodialog(4) gives 2.
void wselectfile2(const std::string& filter, std::int32_t flags, std::string& name, const std::string& title);
