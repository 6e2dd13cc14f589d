#pragma once
// Message numbers of the results subsystem (texts in
// QVI/str/messages/results.def).
namespace v7::result_msg {

// Result tables; the first argument is always the file name.
inline constexpr unsigned kNoHeader = 36000;       // file
inline constexpr unsigned kMissingColumn = 36001;  // file, row, name
inline constexpr unsigned kShortRow = 36002;       // file, row, column number, name
inline constexpr unsigned kNotANumber = 36003;     // file, row, column number, name, text
inline constexpr unsigned kOpenQuote = 36004;      // file, row, column number
inline constexpr unsigned kDuplicateColumn = 36005;  // file, row, name, first, second
inline constexpr unsigned kCannotRead = 36006;     // file
inline constexpr unsigned kFileTooLarge = 36007;   // file, limit
inline constexpr unsigned kNoKnownColumn = 36008;  // file, row, the names

// Result packages and column lists.
inline constexpr unsigned kUnknownQuantity = 36010;  // position, text
inline constexpr unsigned kEmptyColumnList = 36011;  // text
inline constexpr unsigned kBadTableName = 36012;     // text
inline constexpr unsigned kNoSuchTable = 36013;      // table, analysis, step
inline constexpr unsigned kNoResultFolder = 36014;   // analysis

}  // namespace v7::result_msg
