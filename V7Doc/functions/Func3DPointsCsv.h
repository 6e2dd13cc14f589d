#pragma once
// Reading the points of a three-dimensional function from delimited text.
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

// Reads rows "x,y,value" (commas, semicolons or tabs between the three
// numbers, blanks around them allowed) into `points` as (x, y, z). The first
// row may be a header of names; blank rows and rows starting with '#' are
// skipped; a byte-order mark and "\r\n" line ends are accepted. Any other row
// that is not three finite numbers fails, naming its line, and `points` is
// left empty; so does text without a single row.
gtl::status ReadFunc3DPointsCsv(std::string_view text, std::vector<FnPoint>& points);

}  // namespace v7
