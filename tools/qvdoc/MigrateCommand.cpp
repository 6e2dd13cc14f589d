// `qvdoc migrate IN OUT`: reads a document of the earlier generation (bare
// XML or package) and writes it in this generation's layout, with what the
// migration did, entry by entry. A package keeps its result entries.
#include <iostream>
#include <memory>

#include "QVI/str/Convert.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"

namespace qvdoc {
namespace {

const char* ActionName(v7::files::MigrationAction a) {
  switch (a) {
    case v7::files::MigrationAction::Moved: return "moved";
    case v7::files::MigrationAction::Renamed: return "renamed";
    case v7::files::MigrationAction::Dropped: return "dropped";
  }
  return "";
}

void AddMigrateCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("migrate", "Write a document of the earlier generation in the current format");
  auto in = std::make_shared<std::string>();
  auto out = std::make_shared<std::string>();
  cmd->add_option("IN", *in, "The old project (.qvz) or document (.xml)")->required();
  cmd->add_option("OUT", *out, "The file to write (.qvz or .xml)")->required();
  cmd->callback([in, out] {
    v7::QVDocument doc;
    v7::files::PackageEntries results;
    v7::files::LoadReport report;
    LoadOrFail("migrate", *in, doc, &results, &report);
    for (const auto& w : report.warnings)
      std::cerr << "qvdoc migrate: warning: " << str::to_utf8(w.message()) << "\n";
    if (!report.migrated)
      std::cout << *in << " is already of the current generation (version " << str::to_utf8(report.version)
                << "); written unchanged in content.\n";
    else
      std::cout << *in << ": version " << str::to_utf8(report.version) << " of the earlier generation\n";
    std::size_t moved = 0, renamed = 0, dropped = 0;
    for (const auto& c : report.migration) {
      std::cout << "  " << ActionName(c.action) << " " << c.values << (c.values == 1 ? " value" : " values")
                << ": " << str::to_utf8(c.key);
      if (c.action != v7::files::MigrationAction::Dropped) std::cout << " -> " << str::to_utf8(c.replacement);
      std::cout << "\n";
      (c.action == v7::files::MigrationAction::Moved ? moved
       : c.action == v7::files::MigrationAction::Renamed ? renamed
                                                        : dropped) += c.values;
    }
    if (report.migrated)
      std::cout << "values moved: " << moved << ", renamed: " << renamed << ", dropped: " << dropped << "\n";
    const bool package = v7::files::IsPackagePath(str::to_wstring(*out));
    if (auto s = v7::files::SaveDocument(doc, str::to_wstring(*out), package ? results : v7::files::PackageEntries{});
        s.failed())
      FailWith("migrate", s.message());
    std::cout << "wrote " << *out << "\n";
  });
}

const CommandRegistrar registrar(&AddMigrateCommand);

}  // namespace
}  // namespace qvdoc
