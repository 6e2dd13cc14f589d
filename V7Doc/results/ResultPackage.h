#pragma once
// Finding and showing the result tables that a project package holds.
//
// Inside a package an analysis's results sit in its result folder, FName(GID)
// ("001"): tables about the whole run directly in it ("001/time_step.csv"),
// tables of one saved step in a step folder ("001/003/node.csv"). A table is
// asked for by its stem ("node", "slice_3").
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/analysis/ResultInfo.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/results/DataParamType.h"
#include "V7Doc/results/ResultTableReader.h"

namespace v7::result {

// One result table of a package.
struct ResultEntry {
  GID analysis = 0;                                      // from the result folder's name
  std::int32_t step = v7qvi::analysis::kStepNone;        // none for a whole-run table
  std::wstring table;                                    // its stem, "node"
  std::wstring entry;                                    // the entry name, "001/003/node.csv"
  friend bool operator==(const ResultEntry&, const ResultEntry&) = default;
};

// The result tables among a package's entry names: "<a>/<t>.csv" and
// "<a>/<s>/<t>.csv" with decimal folder names a (an analysis GID above 0)
// and s (a step). Anything else (the document, other files) is skipped.
// Ordered by analysis, then step (whole-run tables first), then table.
std::vector<ResultEntry> ListResultEntries(const std::vector<std::wstring>& entries);

// Reads a comma-separated list of quantity names ("X,Y,PoreWaterPressure");
// blanks around names and empty entries are ignored. An unknown name or a
// list with no name fails.
gtl::status ParseColumnList(std::wstring_view text, std::vector<DataParamType>& columns);

// Picks table `table` of analysis `analysis` from `entries`. With a step, the
// table of that step. Without one (kStepNone), the whole-run table of that
// name or, when there is none, the table of the last step that has it: the
// final state is what one asks for first.
gtl::status FindResultEntry(const std::vector<ResultEntry>& entries, GID analysis,
                            std::wstring_view table, std::int32_t step, ResultEntry& found);

// The table as comma-separated text: a header of quantity names, then at most
// `maxRows` rows, numbers in their shortest exact form, the no-value marker
// as an empty cell (as its number in a one-column table, where an empty cell
// would make a blank row), so that the text reads back to the same table.
std::string FormatResultTable(const ResultTable& table, std::size_t maxRows = ResultTable::npos);

}  // namespace v7::result
