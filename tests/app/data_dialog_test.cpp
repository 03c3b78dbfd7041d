// The input data dialog as a user meets it: stories of tests/data/app/
// data_dialog_stories.txt, each a list of the user's actions from the start
// of the program, looks at the dialog on the way ("expect"), and the values
// the dialog and the shared state hold after the last action.
#include <gtest/gtest.h>

#include "app/data_dialog.h"
#include "tests/app/control_state.h"
#include "toolkit/dialogs/dialog_model.h"

namespace {

// A field of a loaded dialog, named "D:F".
const field_state_type* field_of(const std::string& where) {
  const std::size_t colon = where.find(':');
  loaded_dialog_type* d = yyfind_dialog(std::stoi(where.substr(0, colon)));
  return d == nullptr ? nullptr : yyfind_field(*d, std::stoi(where.substr(colon + 1)));
}

// The rows of a grid: each row's label and the states of its cells, or the
// cells' texts, rows apart by "|".
std::string grid_rows(const field_state_type& f, bool texts) {
  std::string s;
  for (std::size_t r = 0; r < f.grid.row_labels.size(); ++r) {
    s += r > 0 ? "|" : "";
    if (!texts) s += f.grid.row_labels[r] + " ";
    for (int state : f.grid.cell_states[r]) s += texts ? "" : std::to_string(state);
    for (const std::string& cell : f.grid.cells[r]) s += texts ? cell + "," : "";
  }
  return s;
}

// A value by name: a field's text (or the last part of the path it holds),
// state, check or selection ("text:118:1006"),
// the boxes shown, the flags and menu states, or a value of the shared state.
std::string dialog_value(const std::string& name) {
  const std::size_t colon = name.find(':');
  const std::string kind = name.substr(0, colon);
  if (colon != std::string::npos) {
    const field_state_type* f = field_of(name.substr(colon + 1));
    if (f == nullptr) return "no field";
    if (kind == "text") return f->text;
    if (kind == "name") return std::filesystem::path(f->text).filename().string();
    if (kind == "state") return std::to_string(f->state);
    if (kind == "checked") return std::to_string(f->checked);
    if (kind == "selection") return std::to_string(f->selection) + " of " + std::to_string(f->options.size());
    if (kind == "page") return std::to_string(f->page);
    if (kind == "grid" || kind == "cells") return grid_rows(*f, kind == "cells");
  }
  if (name == "boxes") {
    std::string s;
    for (const std::string& t : headless::box_texts()) s += t + "|";
    return s;
  }
  if (name == "flags") return joined(qp::kedit, qp::kcancel, qp::kerror).substr(0, 5);
  if (name == "menus") {
    std::string s;
    for (int id : {40005, 40022, 40027, 40028}) s += std::to_string(wmenugetstate(id, 1));
    return s;
  }
  if (name == "refused") return std::to_string(headless::refused().size());
  return value_of(name);
}

class DataDialog : public Shell {
 protected:
  // Queues one action of a story line; false for a line it does not know.
  bool queue_action(const std::string& line, const std::string& story) {
    std::istringstream in(line);
    std::string verb, rest;
    int a = 0, b = 0, c = 0, d = 0;
    in >> verb;
    if (verb == "expect") {
      std::string name, want;
      in >> name;
      std::getline(in >> std::ws, want);
      headless::queue_look([=] { EXPECT_EQ(dialog_value(name), want) << story << ": " << line; });
    } else if (verb == "open" && in >> rest) {
      // A file of the sources is copied in first; a bare name is one the story saved.
      const std::filesystem::path name = std::filesystem::path(rest).filename();
      if (rest.find('/') != std::string::npos)
        std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/" + rest, dir_ / name,
                                   std::filesystem::copy_options::overwrite_existing);
      headless::queue_menu(40026);
      headless::answer_file((dir_ / name).string());
    } else if (verb == "copy" && in >> rest) {
      std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/" + rest,
                                 dir_ / std::filesystem::path(rest).filename(),
                                 std::filesystem::copy_options::overwrite_existing);
    } else if (verb == "sintrel") {
      std::filesystem::create_directories(dir_ / "bin");
      std::filesystem::remove(dir_ / "bin" / "sintrel");
      std::filesystem::create_symlink(std::string(QUELMORA_BINARY_DIR) + "/tools/sintrel", dir_ / "bin" / "sintrel");
    } else if (verb == "menu" && in >> a) {
      headless::queue_menu(a);
    } else if (verb == "file" && in >> rest) {
      if (rest == "cancel") headless::answer_file_cancel();
      else headless::answer_file((dir_ / rest).string());
    } else if (verb == "dir" && in >> rest) {
      std::filesystem::create_directories(dir_ / rest);
      headless::answer_directory((dir_ / rest).string());
    } else if (verb == "type" && in >> a >> b) {
      std::getline(in >> std::ws, rest);
      headless::type_text(a, b, rest);
    } else if (verb == "cell" && in >> a >> b >> c >> d) {
      std::getline(in >> std::ws, rest);
      headless::type_cell(a, b, c, d, rest);
    } else if (verb == "check" && in >> a >> b >> c) {
      headless::set_check(a, b, c);
    } else if (verb == "focus" && in >> a >> b) {
      headless::move_focus(a, b);
    } else if (verb == "radio" && in >> a >> b) {
      headless::choose_radio(a, b);
    } else if (verb == "option" && in >> a >> b >> c) {
      headless::choose_option(a, b, c);
    } else if (verb == "tab" && in >> a >> b >> c) {
      headless::choose_tab(a, b, c);
    } else if (verb == "press" && in >> a >> b) {
      headless::press(a, b);
    } else {
      return false;
    }
    return true;
  }
};

TEST_F(DataDialog, Stories) {
  for (const data_case& c : data_cases("app/data_dialog_stories.txt")) {
    headless::install();
    winitialise();
    std::istringstream actions(c.input);
    for (std::string line; std::getline(actions, line);) {
      if (!line.empty()) {
        EXPECT_TRUE(queue_action(line, c.name)) << c.name << ": " << line;
      }
    }
    headless::queue_look([&] {
      for (const auto& [name, want] : c.values) EXPECT_EQ(dialog_value(name), want) << c.name << ": " << name;
      qp::kedit = false;  // the closing question is not part of the stories
    });
    start({});
  }
}

}  // namespace
