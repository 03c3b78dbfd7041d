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

// The selector's own check of a name the user chose, before it closes: an
// open box wants an existing file ("File not found.", "Path does not
// exist."), a save box asks before replacing one (" already exists",
// "Do you want to replace it?"). False when the user must choose again.
bool yyfile_choice_ok(std::int32_t flags, const std::string& path);
