// Cutting text lines into words and numbers. Every text input of the program
// (control file, settings, structure files) goes through these routines.
// Nothing here stops or shows anything: faults set err_string and
// err_string_mess, and callers look at the counts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// pack_string and get_fraction_2dig, the writers of operator texts.
#include "crystal/vant_string_utilities_fraction.h"

inline bool err_string = false;
inline std::string err_string_mess;  // char(150)

// Removes the first blank-separated word of line and left-adjusts the rest.
// Optional outputs: the trimmed length of what is left, the word (cut to
// word_size characters) and its trimmed length.
void cutst(std::string& line, std::int32_t* nlong1 = nullptr, std::string* word = nullptr,
           std::int32_t* nlong2 = nullptr, std::size_t word_size = std::string::npos);

// The numbers on a line, as reals and as integers (the integer is the part
// before the point: "3.7" gives 3, "1E2" gives 100.0 and 1). Stops at the
// first word that is not a number, keeping what was read.
void getnum(std::string_view line, std::span<float> vet, std::span<std::int32_t> ivet, std::int32_t& iv);

// The words on a line; a word in double quotes may hold blanks. dire.size()
// is the most words taken, each cut to word_size characters.
void getword(std::string_view line, std::span<std::string> dire, std::int32_t& iv,
             std::size_t word_size = std::string::npos);

// Letters a-z / A-Z converted in place or as a result; other bytes unchanged.
void lcase(std::string& line);
void ucase(std::string& line);
std::string l_case(std::string_view text);
std::string u_case(std::string_view text);

// Number of lines of a text file (0 when it cannot be read); lines are read
// into a 256-character buffer. With a key, the count stops at the first line
// that begins with the key (compared in upper case), that line counted.
void number_lines(const std::string& filename, std::int32_t& n, std::string_view key = {});

// The first n lines of a text file, each cut to 256 characters; filevar
// holds fewer when the file is shorter or cannot be read.
void reading_lines(const std::string& filename, std::int32_t n, std::vector<std::string>& filevar);

// The numbers on a line with their uncertainties in brackets: "1.234(5)"
// gives 1.234 and 0.005, "12(3)" gives 12 and 3. Text after "!" (or else
// "#") is a comment.
void getnum_std(std::string_view line, std::span<float> value, std::span<float> std_dev, std::int32_t& iv);

// The rest of the first line, from filevar(first) to filevar(last), that
// holds the key (compared in lower case, anywhere in the line) once the word
// holding the key is cut off. Blank lines, lines starting with "!" and lines
// starting with the comment character are passed over. first (counted from
// 1) moves to the line found; without a hit it stays and the outputs are
// cleared.
void read_key_str(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last,
                  std::string_view key, std::string& text, char comment = ' ');
// read_key_str, and the numbers of that rest when the numeric outputs are given.
void read_key_strval(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last,
                     std::string_view key, std::string& text, std::span<float> vet = {},
                     std::span<std::int32_t> ivet = {}, std::int32_t* iv = nullptr, char comment = ' ');
// The numbers behind the key.
void read_key_value(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last,
                    std::string_view key, std::span<float> vet, std::span<std::int32_t> ivet,
                    std::int32_t& iv, char comment = ' ');
// The numbers behind the key with their uncertainties.
void read_key_valuestd(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last,
                       std::string_view key, std::span<float> value, std::span<float> std_dev,
                       std::int32_t& iv);
