// The key search shared by read_key_str, read_key_strval, read_key_value and
// read_key_valuestd.
#include <algorithm>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"

namespace {

// Looks for the key in lines first to last (counted from 1). On a hit, first
// moves to that line and rest is what follows the word that holds the key.
bool find_key(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last, std::string_view key,
              char comment, std::string& rest) {
  const std::string k = l_case(fixed_text::adjusted(key));
  const auto end = static_cast<std::int32_t>(std::min<std::int64_t>(last, static_cast<std::int64_t>(filevar.size())));
  for (std::int32_t n = std::max(first, 1); n <= end; ++n) {
    const std::string line(fixed_text::adjusted(filevar[static_cast<std::size_t>(n - 1)]));
    if (line.empty() || line[0] == '!' || line[0] == comment) continue;
    const auto at = l_case(line).find(k);
    if (at == std::string::npos) continue;
    first = n;
    rest = line.substr(at);
    cutst(rest);
    return true;
  }
  return false;
}

}  // namespace

void read_key_str(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last, std::string_view key,
                  std::string& text, char comment) {
  text.clear();
  find_key(filevar, first, last, key, comment, text);
}

void read_key_strval(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last,
                     std::string_view key, std::string& text, std::span<float> vet, std::span<std::int32_t> ivet,
                     std::int32_t* iv, char comment) {
  text.clear();
  std::fill(vet.begin(), vet.end(), 0.0f);
  std::fill(ivet.begin(), ivet.end(), 0);
  if (iv) *iv = 0;
  if (find_key(filevar, first, last, key, comment, text) && iv) getnum(text, vet, ivet, *iv);
}

void read_key_value(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last, std::string_view key,
                    std::span<float> vet, std::span<std::int32_t> ivet, std::int32_t& iv, char comment) {
  std::string rest;
  read_key_strval(filevar, first, last, key, rest, vet, ivet, &iv, comment);
}

void read_key_valuestd(std::span<const std::string> filevar, std::int32_t& first, std::int32_t last,
                       std::string_view key, std::span<float> value, std::span<float> std_dev, std::int32_t& iv) {
  std::fill(value.begin(), value.end(), 0.0f);
  std::fill(std_dev.begin(), std_dev.end(), 0.0f);
  iv = 0;
  std::string rest;
  if (find_key(filevar, first, last, key, ' ', rest)) getnum_std(rest, value, std_dev, iv);
}
