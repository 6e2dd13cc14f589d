// `qvdoc info FILE`: the format version, the records per collection, the
// analyses by name and kind, and the result folders of a package.
#include <iostream>
#include <memory>
#include <set>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentSummary.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"

namespace qvdoc {
namespace {

void AddInfoCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("info", "Summarise a project (.qvz) or document (.xml)");
  auto file = std::make_shared<std::string>();
  cmd->add_option("FILE", *file, "The project or document")->required();
  cmd->callback([file] {
    v7::QVDocument doc;
    v7::files::LoadReport report;
    LoadOrFail("info", *file, doc, nullptr, &report);
    // Result entries are counted from the package's directory: none of
    // them is decompressed.
    std::vector<std::wstring> results;
    if (v7::files::IsPackagePath(str::to_wstring(*file)))
      if (auto s = v7::files::ListPackageEntries(str::to_wstring(*file), results); s.failed())
        FailWith("info", s.message());
    std::cout << "file: " << *file << "\nformat version: " << str::to_utf8(report.version);
    // A file of the earlier generation is read through the migration; it is
    // written in the current format only by a save (qvdoc migrate).
    if (report.migrated) std::cout << " (earlier generation: migrated on reading; qvdoc migrate writes it anew)";
    std::cout << "\n";
    std::cout << "collections:\n";
    for (const auto& c : v7::files::SummarizeCollections(doc))
      if (c.count) std::cout << "  " << str::to_utf8(c.member) << " (" << str::to_utf8(c.tag) << "): " << c.count << "\n";
    std::cout << "analyses:\n";
    for (auto it = doc.Analyses().begin(); it != doc.Analyses().end(); ++it)
      std::cout << "  [" << it.ID() << "] " << str::to_utf8(it->name) << " ("
                << str::to_utf8(meta::ToName(it->kind)) << ", " << str::to_utf8(meta::ToName(it->method)) << ")\n";
    std::set<std::wstring> folders;
    for (const auto& name : results) {
      const auto slash = name.find(L'/');
      folders.insert(slash == std::wstring::npos ? std::wstring(L"(root)") : name.substr(0, slash));
    }
    std::cout << "result folders:" << (folders.empty() ? " none" : "") << "\n";
    for (const auto& f : folders) {
      std::size_t n = 0;
      for (const auto& name : results) n += name.rfind(f + L"/", 0) == 0;
      std::cout << "  " << str::to_utf8(f) << ": " << n << " files\n";
    }
  });
}

const CommandRegistrar registrar(&AddInfoCommand);

}  // namespace
}  // namespace qvdoc
