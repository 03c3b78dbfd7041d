// A modal box that asks for one line of text.
#pragma once

#include <optional>
#include <string>

// Shows the title, the label and a text field holding `initial`; the text
// typed on OK, or nothing on Cancel.
std::optional<std::string> x11_prompt(const std::string& title, const std::string& label,
                                      const std::string& initial);
