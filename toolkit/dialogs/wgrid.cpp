#include "toolkit/dialogs/wgrid.h"

#include <algorithm>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/field_format.h"
#include "toolkit/messages/backend.h"

namespace {

// Largest row count a grid takes; more is a bad argument, not an allocation.
constexpr std::int32_t most_rows = 100000;

grid_state_type* grid_for(const char* routine, std::int32_t field) {
  field_state_type* f = yyfield_for(routine, field, {field_grid});
  return f == nullptr ? nullptr : &f->grid;
}

void changed(std::int32_t field) { current_backend().show_field(yycurrent_dialog()->id, field); }

std::int32_t column_count(const grid_state_type& g) { return static_cast<std::int32_t>(g.columns.size()); }
std::int32_t row_count(const grid_state_type& g) { return static_cast<std::int32_t>(g.cells.size()); }

bool column_ok(const char* routine, const grid_state_type& g, std::int32_t column) {
  if (column >= 1 && column <= column_count(g)) return true;
  yyerror(error_bad_argument, routine);
  return false;
}

// The rows a column transfer touches: count cut to the rows there are.
std::size_t rows_for(const grid_state_type& g, std::int32_t count) {
  return static_cast<std::size_t>(std::clamp(count, 0, row_count(g)));
}

}  // namespace

void wgridrows(std::int32_t field, std::int32_t count) {
  grid_state_type* g = grid_for("WGridRows", field);
  if (g == nullptr) return;
  if (count < 0 || count > most_rows) {
    yyerror(error_bad_argument, "WGridRows");
    return;
  }
  const auto rows = static_cast<std::size_t>(count);
  const auto columns = g->columns.size();
  g->cells.resize(rows, std::vector<std::string>(columns));
  g->cell_states.resize(rows, std::vector<int>(columns, field_enabled));
  g->row_labels.resize(rows);
  changed(field);
}

void wgridlabelrow(std::int32_t field, std::int32_t row, const std::string& text) {
  grid_state_type* g = grid_for("WGridLabelRow", field);
  if (g == nullptr) return;
  if (row < 1 || row > row_count(*g)) {
    yyerror(error_bad_argument, "WGridLabelRow");
    return;
  }
  g->row_labels[static_cast<std::size_t>(row - 1)] = yytrim(text);
  changed(field);
}

void wgridstatecell(std::int32_t field, std::int32_t column, std::int32_t row, std::int32_t state) {
  grid_state_type* g = grid_for("WGridStateCell", field);
  if (g == nullptr || !column_ok("WGridStateCell", *g, column)) return;
  if (row < 1 || row > row_count(*g) || state < field_disabled || state > field_read_only) {
    yyerror(error_bad_argument, "WGridStateCell");
    return;
  }
  g->cell_states[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)] = state;
  changed(field);
}

void wgridputstring(std::int32_t field, std::int32_t column, const std::vector<std::string>& values,
                    std::int32_t count) {
  grid_state_type* g = grid_for("WGridPutString", field);
  if (g == nullptr || !column_ok("WGridPutString", *g, column)) return;
  const std::size_t n = std::min(rows_for(*g, count), values.size());
  for (std::size_t r = 0; r < n; ++r) g->cells[r][static_cast<std::size_t>(column - 1)] = yytrim(values[r]);
  changed(field);
}

void wgridgetstring(std::int32_t field, std::int32_t column, std::vector<std::string>& values, std::int32_t count) {
  grid_state_type* g = grid_for("WGridGetString", field);
  if (g == nullptr || !column_ok("WGridGetString", *g, column)) return;
  const std::size_t n = rows_for(*g, count);
  if (values.size() < n) values.resize(n);
  for (std::size_t r = 0; r < n; ++r) values[r] = g->cells[r][static_cast<std::size_t>(column - 1)];
}

void wgridputreal(std::int32_t field, std::int32_t column, const std::vector<float>& values, std::int32_t count,
                  const std::string& format) {
  grid_state_type* g = grid_for("WGridPutReal", field);
  if (g == nullptr || !column_ok("WGridPutReal", *g, column)) return;
  const field_type& col = g->columns[static_cast<std::size_t>(column - 1)];
  const auto parsed = parse_real_format(yytrim(format).empty() ? col.format : format);
  const std::size_t n = std::min(rows_for(*g, count), values.size());
  for (std::size_t r = 0; r < n; ++r) {
    g->cells[r][static_cast<std::size_t>(column - 1)] =
        parsed ? format_real(values[r], *parsed) : format_real_free(values[r], "");
  }
  changed(field);
}

void wgridgetreal(std::int32_t field, std::int32_t column, std::vector<float>& values, std::int32_t count) {
  grid_state_type* g = grid_for("WGridGetReal", field);
  if (g == nullptr || !column_ok("WGridGetReal", *g, column)) return;
  const std::size_t n = rows_for(*g, count);
  if (values.size() < n) values.resize(n);
  for (std::size_t r = 0; r < n; ++r) {
    const auto v = parse_real_text(g->cells[r][static_cast<std::size_t>(column - 1)]);
    values[r] = v ? static_cast<float>(*v) : real_undefined;
    if (!v) yyerror(error_undefined, "WGridGetReal");
  }
}

std::int32_t winfogrid(std::int32_t field, std::int32_t item) {
  grid_state_type* g = grid_for("WInfoGrid", field);
  if (g == nullptr) return 0;
  if (item == 1) return column_count(*g);
  if (item == 2) return row_count(*g);
  return 0;
}
