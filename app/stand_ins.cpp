#include "app/stand_ins.h"

namespace {

std::vector<std::string> calls;

void note(const std::string& call) { calls.push_back(call); }

}  // namespace

void asc2bin() { note("asc2bin"); }

const std::vector<std::string>& stand_in_calls() { return calls; }
void clear_stand_in_calls() { calls.clear(); }
