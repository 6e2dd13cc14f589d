#pragma once
// Data points written as text, "x,y;x,y;...": how a user types a point
// table on a command line (qvdoc fn --data).
#include <string>
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

// Reads points separated by ";", each two finite numbers separated by ",".
// Pieces made only of blanks are skipped (so a trailing ";" is fine). A
// piece that is not a point fails with its position (from 1) and its text;
// `points` is then left as it was.
gtl::status ParseFnDataPoints(std::wstring_view text, std::vector<FnPoint>& points);

// The points as text that ParseFnDataPoints reads back to the same x and y
// (numbers in their shortest exact form; third values are not written).
std::wstring FormatFnDataPoints(const std::vector<FnPoint>& points);

}  // namespace v7
