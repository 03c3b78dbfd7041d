// The toolkit's error number. Toolkit routines never stop on bad input: they
// keep the number of the last error, which the caller reads and clears with
// winfoerror(1), and leave their state unchanged.
#pragma once

#include <string>
#include <string_view>

// Records an error of the named routine (for instance 16, "IGrUnits").
void yyerror(int number, std::string_view routine);

// Item 1: the last error number, then cleared to 0. Any other item: 0.
int winfoerror(int item);

// The routine that reported the last error, for diagnostics and tests.
const std::string& yyerror_routine();
