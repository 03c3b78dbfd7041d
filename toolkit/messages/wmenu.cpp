#include "toolkit/messages/wmenu.h"

#include <array>
#include <map>
#include <set>

#include "toolkit/core/resources.h"
#include "toolkit/core/werror.h"
#include "toolkit/messages/backend.h"

namespace {

struct item_state {
  bool enabled = true;
  bool checked = false;
};

constexpr std::int32_t toolbar_slots = 4;

std::int32_t menu_bar = 0;
std::array<std::int32_t, toolbar_slots> toolbars{};
std::map<std::int32_t, item_state> items;

// Rebuilds the set of known items after a menu or toolbar came or went:
// items still shown keep their state, new ones start enabled and unchecked.
void refresh_items(const std::set<std::int32_t>& fresh_ids) {
  std::map<std::int32_t, item_state> next;
  auto add = [&](std::int32_t id) {
    if (id == 0) return;
    const auto old = items.find(id);
    next[id] = fresh_ids.contains(id) || old == items.end() ? item_state{} : old->second;
  };
  if (const menu_type* menu = menu_bar ? find_menu(menu_bar) : nullptr)
    for (const menu_item_type& item : menu->items) add(item.id);
  for (std::int32_t bar : toolbars)
    if (const toolbar_type* toolbar = bar ? find_toolbar(bar) : nullptr)
      for (int id : toolbar->buttons) add(id);
  items = std::move(next);
  current_backend().show_menus();
}

// The ids a fresh load makes enabled and unchecked.
std::set<std::int32_t> ids_of(const menu_type* menu, const toolbar_type* toolbar) {
  std::set<std::int32_t> ids;
  if (menu)
    for (const menu_item_type& item : menu->items) ids.insert(item.id);
  if (toolbar)
    for (int id : toolbar->buttons) ids.insert(id);
  return ids;
}

}  // namespace

void wmenu(std::int32_t id, std::int32_t slot) {
  if (slot >= 51) {
    yyerror(1015, "WMenu");
    return;
  }
  const menu_type* menu = id ? find_menu(id) : nullptr;
  if (id != 0 && !menu) {
    yyerror(1003, "WMenu");
    return;
  }
  menu_bar = id;
  refresh_items(ids_of(menu, nullptr));
}

void wmenutoolbar(std::int32_t id, std::int32_t, std::int32_t slot) {
  const toolbar_type* toolbar = id ? find_toolbar(id) : nullptr;
  if (slot < 1 || slot > toolbar_slots) {
    yyerror(1015, "WMenuToolbar");
    return;
  }
  if (id != 0 && !toolbar) {
    yyerror(1003, "WMenuToolbar");
    return;
  }
  toolbars[static_cast<std::size_t>(slot - 1)] = id;
  refresh_items(ids_of(nullptr, toolbar));
}

void wmenusetstate(std::int32_t item, std::int32_t option, std::int32_t state) {
  if ((option != 1 && option != 2) || (state != 0 && state != 1)) {
    yyerror(1126, "WMenuSetState");
    return;
  }
  const auto it = items.find(item);
  if (it == items.end()) {
    yyerror(1003, "WMenuSetState");
    return;
  }
  bool& flag = option == 1 ? it->second.enabled : it->second.checked;
  if (flag == (state == 1)) return;
  flag = state == 1;
  current_backend().show_menus();
}

std::int32_t wmenugetstate(std::int32_t item, std::int32_t option) {
  if (option != 1 && option != 2) {
    yyerror(1126, "WMenuGetState");
    return 0;
  }
  const auto it = items.find(item);
  if (it == items.end()) {
    yyerror(1003, "WMenuGetState");
    return 0;
  }
  return (option == 1 ? it->second.enabled : it->second.checked) ? 1 : 0;
}

std::int32_t shown_menu() { return menu_bar; }

std::int32_t shown_toolbar(std::int32_t slot) {
  if (slot < 1 || slot > toolbar_slots) return 0;
  return toolbars[static_cast<std::size_t>(slot - 1)];
}

void yyreset_menus() {
  menu_bar = 0;
  toolbars = {};
  items.clear();
}
