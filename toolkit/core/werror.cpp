#include "toolkit/core/werror.h"

namespace {
int last_error = 0;
std::string last_routine;
}  // namespace

void yyerror(int number, std::string_view routine) {
  last_error = number;
  last_routine = std::string(routine);
}

int winfoerror(int item) {
  if (item != 1) return 0;
  const int n = last_error;
  last_error = 0;
  return n;
}

const std::string& yyerror_routine() { return last_routine; }
