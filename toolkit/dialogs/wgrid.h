// Grid fields: rows of cells under the columns of the catalogue's row dialog.
// Columns and rows count from 1; a whole column is put or got at once.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Sets the row count; rows behind a smaller count are dropped, new rows are blank.
void wgridrows(std::int32_t field, std::int32_t count);
void wgridlabelrow(std::int32_t field, std::int32_t row, const std::string& text);
// 0 disabled, 1 enabled, 2 read only.
void wgridstatecell(std::int32_t field, std::int32_t column, std::int32_t row, std::int32_t state);
// The first `count` rows of a column (count is cut to the rows there are).
void wgridputstring(std::int32_t field, std::int32_t column, const std::vector<std::string>& values, std::int32_t count);
void wgridgetstring(std::int32_t field, std::int32_t column, std::vector<std::string>& values, std::int32_t count);
// Reals with a format, or the column's own; an empty or unreadable cell gives
// the undefined value and error 1010.
void wgridputreal(std::int32_t field, std::int32_t column, const std::vector<float>& values, std::int32_t count,
                  const std::string& format = "");
void wgridgetreal(std::int32_t field, std::int32_t column, std::vector<float>& values, std::int32_t count);
// Item 1: the number of columns; item 2: the number of rows.
std::int32_t winfogrid(std::int32_t field, std::int32_t item);
