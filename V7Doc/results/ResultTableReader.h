#pragma once
// The comma-separated result tables of an analysis ("node.csv", "slice_3.csv"
// ...): a header row of result-quantity names, then one row of numbers per
// node, element, slice or time.
//
// The reader takes the columns a list of quantities asks for, in the list's
// order, into one column-major block of doubles. It is meant for files
// written by solvers and edited by people, so it is lenient where that loses
// nothing and strict where a wrong number could slip through:
//   - A UTF-8 byte-order mark before the header is skipped.
//   - Rows end in "\n" or "\r\n" (a lone "\r" does not end a row). Rows that
//     are empty or hold only blanks are skipped, wherever they are.
//   - Blanks (space, tab) around a field are ignored. A field may be quoted
//     with '"' (a doubled '"' inside does not close it); quotes cannot span
//     rows.
//   - Header names are the persisted names of DataParamType, matched as the
//     enumeration matches them (exactly, then without regard to case); a
//     quantity matches a header column by value, so "TrussID" answers a
//     request for Node (both are 0). A header column that is not asked for,
//     or is no quantity at all, is ignored, and so are its cells: garbage in
//     a column nobody reads does not fail a read.
//   - A cell asked for must be a decimal number (std::from_chars syntax, an
//     optional leading '+') and finite; an empty cell reads as the no-value
//     marker (qvi::kNoValue), which is how results mark "not computed here".
//   - A missing column, a quantity named twice in the header, a row that ends
//     before the last column asked for, a cell that is not a number and an
//     unclosed quote are errors naming the file, the row (the line number in
//     the file, from 1) and the column (its number in the row, from 1, and
//     its name). On an error the target table is left as it was.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/results/DataParamType.h"

namespace v7::result {

// A table of result values, column-major: column c is Rows() consecutive
// doubles.
class ResultTable {
 public:
  // "Not in the table" for Find.
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  std::size_t Rows() const { return rows_; }
  std::size_t Columns() const { return params_.size(); }
  // The quantity of each column.
  const std::vector<DataParamType>& Params() const { return params_; }
  // The first column holding quantity `p`, or npos.
  std::size_t Find(DataParamType p) const;
  // The Rows() values of column `c` (c < Columns()).
  const double* Column(std::size_t c) const { return values_.data() + c * rows_; }
  // The value at `row`, `col` (both in range).
  double At(std::size_t row, std::size_t col) const { return values_[col * rows_ + row]; }
  // All values, column after column.
  const std::vector<double>& Values() const { return values_; }

  void Clear() { *this = ResultTable{}; }
  friend bool operator==(const ResultTable&, const ResultTable&) = default;

 private:
  friend gtl::status ReadResultTable(std::string_view, std::wstring_view,
                                     const std::vector<DataParamType>&, ResultTable&);
  std::vector<DataParamType> params_;
  std::vector<double> values_;
  std::size_t rows_ = 0;
};

// Reads the columns `columns` of the table held in `text` into `table`.
// `file` names the table in messages. An empty list checks the header only
// and gives an empty table.
gtl::status ReadResultTable(std::string_view text, std::wstring_view file,
                            const std::vector<DataParamType>& columns, ResultTable& table);

// The same from the file at `path` (read whole; files above kMaxFileBytes
// are refused).
inline constexpr std::size_t kMaxFileBytes = std::size_t{1} << 31;
gtl::status ReadResultTableFile(const std::wstring& path, const std::vector<DataParamType>& columns,
                                ResultTable& table);

// The quantities the header of `text` names, in header order; names that are
// no quantity are skipped (and listed in `unknown` when given). A header
// that names no quantity at all is an error (its names quoted).
gtl::status ReadResultTableHeader(std::string_view text, std::wstring_view file,
                                  std::vector<DataParamType>& columns,
                                  std::vector<std::wstring>* unknown = nullptr);

}  // namespace v7::result
