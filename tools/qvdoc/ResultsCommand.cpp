// `qvdoc results FILE`: lists the result folders and tables of a project
// package; with --analysis and --table it prints the chosen columns of one
// table.
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "OC/package/Package.h"
#include "QVI/str/Convert.h"
#include "V7Doc/qvifile/ResultFileNames.h"
#include "V7Doc/results/ResultPackage.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/Json.h"

namespace qvdoc {
namespace {

struct ResultsOptions {
  std::string file;
  unsigned analysis = 0;
  std::string table;
  int step = -1;
  std::string columns;
  std::size_t maxRows = v7::result::ResultTable::npos;
  bool json = false;
};

[[noreturn]] void Fail(const std::string& message) {
  std::cerr << "qvdoc results: " << message << "\n";
  throw CLI::RuntimeError(kExitFailure);
}

void List(const std::vector<v7::result::ResultEntry>& entries) {
  if (entries.empty()) {
    std::cout << "The package holds no result tables.\n";
    return;
  }
  v7::GID analysis = 0;
  std::int32_t step = 0;
  bool first = true;
  for (const auto& e : entries) {
    if (first || e.analysis != analysis) {
      if (!first) std::cout << "\n";
      std::cout << "Analysis " << e.analysis << " (folder "
                << str::to_utf8(v7::qvifile::result::FName(e.analysis)) << "/)\n";
      analysis = e.analysis;
      step = e.step;
      std::cout << (e.step == v7::v7qvi::analysis::kStepNone ? "  whole run:"
                                                             : "  step " + std::to_string(e.step) + ":");
    } else if (e.step != step) {
      step = e.step;
      std::cout << "\n  step " << e.step << ":";
    }
    first = false;
    std::cout << " " << str::to_utf8(e.table);
  }
  std::cout << "\n";
}

void ListJson(const std::vector<v7::result::ResultEntry>& entries) {
  std::cout << "{\"tables\": [";
  const char* sep = "";
  for (const auto& e : entries) {
    std::cout << sep << "{\"analysis\": " << e.analysis << ", \"step\": "
              << (e.step == v7::v7qvi::analysis::kStepNone ? std::string("null") : std::to_string(e.step))
              << ", \"table\": " << JsonString(e.table) << ", \"entry\": " << JsonString(e.entry) << "}";
    sep = ", ";
  }
  std::cout << "]}\n";
}

// The table as {"entry", "rows", "columns": {name: [values]}}, no values as
// null, at most `maxRows` rows.
void TableJson(const std::wstring& entry, const v7::result::ResultTable& table, std::size_t maxRows) {
  const std::size_t rows = std::min(maxRows, table.Rows());
  std::cout << "{\"entry\": " << JsonString(entry) << ", \"rows\": " << rows << ", \"columns\": {";
  for (std::size_t c = 0; c < table.Columns(); ++c) {
    std::cout << (c ? ", " : "") << JsonString(meta::ToName(table.Params()[c])) << ": [";
    for (std::size_t r = 0; r < rows; ++r) std::cout << (r ? ", " : "") << JsonNumber(table.At(r, c));
    std::cout << "]";
  }
  std::cout << "}}\n";
}

void Run(const ResultsOptions& o) {
  oc::package::Package package;
  if (auto s = package.Open(str::to_wstring(o.file)); !s.succeeded()) Fail(s.message_utf8());
  const auto entries = v7::result::ListResultEntries(package.List());
  if (o.table.empty()) {
    if (o.analysis != 0) Fail("--analysis needs --table (the tables are listed without both)");
    if (o.json)
      ListJson(entries);
    else
      List(entries);
    return;
  }
  if (o.analysis == 0) Fail("--table needs --analysis N (N > 0)");
  const std::int32_t step = o.step < 0 ? v7::v7qvi::analysis::kStepNone : o.step;
  v7::result::ResultEntry entry;
  if (auto s = v7::result::FindResultEntry(entries, o.analysis, str::to_wstring(o.table), step, entry);
      !s.succeeded())
    Fail(s.message_utf8());
  std::string bytes;
  if (auto s = package.Read(entry.entry, bytes); !s.succeeded()) Fail(s.message_utf8());
  std::vector<v7::DataParamType> columns;
  if (!o.columns.empty()) {
    if (auto s = v7::result::ParseColumnList(str::to_wstring(o.columns), columns); !s.succeeded())
      Fail(s.message_utf8());
  } else if (auto s = v7::result::ReadResultTableHeader(bytes, entry.entry, columns);
             !s.succeeded()) {
    Fail(s.message_utf8());
  }
  v7::result::ResultTable table;
  if (auto s = v7::result::ReadResultTable(bytes, entry.entry, columns, table); !s.succeeded())
    Fail(s.message_utf8());
  if (o.json) return TableJson(entry.entry, table, o.maxRows);
  std::cerr << str::to_utf8(entry.entry) << ": " << table.Rows() << " rows\n";
  std::cout << v7::result::FormatResultTable(table, o.maxRows);
}

void AddResultsCommand(CLI::App& app) {
  auto o = std::make_shared<ResultsOptions>();
  auto* cmd = app.add_subcommand("results", "List the result tables of a package, or print one");
  cmd->add_option("FILE", o->file, "Project package (.qvz)")->required();
  cmd->add_option("--analysis", o->analysis, "Analysis ID whose results are read");
  cmd->add_option("--table", o->table, "Table name: node, gauss, time_step, slice_3, ...");
  cmd->add_option("--step", o->step,
                  "Saved step; without it the whole-run table or the last step that has it")
      ->check(CLI::NonNegativeNumber);
  cmd->add_option("--columns", o->columns,
                  "Comma-separated quantities, e.g. X,Y,PoreWaterPressure (default: all known)");
  cmd->add_option("--max-rows", o->maxRows, "Print at most this many rows");
  cmd->add_flag("--json", o->json,
                "Print JSON: the list as {\"tables\": [...]}, a table as {\"entry\", \"rows\", \"columns\"}");
  cmd->footer("Example:\n  qvdoc results demo.qvz\n  qvdoc results demo.qvz --analysis 1 --table node --columns Y,PoreWaterPressure --json");
  cmd->callback([o] { Run(*o); });
}

const CommandRegistrar registrar(&AddResultsCommand);

}  // namespace
}  // namespace qvdoc
