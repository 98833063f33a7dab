// A list or a tree as a printed table.
#pragma once

#include "desktop/terminal/rows.h"
#include "desktop/terminal/script/line.h"

namespace tidemark {

// The list's name with the range in view, the columns' headings if there are any, the rows. Columns
// of no width are left out; the others share the width by what the rows in view need.
Lines ListTable(const Rows& list, int first_row, int rows_in_view, int width);

}  // namespace tidemark
