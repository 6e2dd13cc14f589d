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
#include "tools/qvdoc/Json.h"

namespace qvdoc {
namespace {

template <class FilesIn>
void PrintJson(const std::string& file, const std::wstring& version, bool migrated, v7::QVDocument& doc,
               const std::set<std::wstring>& folders, const FilesIn& filesIn) {
  std::cout << "{\"file\": " << JsonString(std::string_view(file)) << ", \"format_version\": " << JsonString(version)
            << ", \"earlier_generation\": " << (migrated ? "true" : "false") << ", \"collections\": {";
  const char* sep = "";
  for (const auto& c : v7::files::SummarizeCollections(doc)) {
    if (!c.count) continue;
    std::cout << sep << JsonString(c.member) << ": {\"tag\": " << JsonString(c.tag) << ", \"count\": " << c.count << "}";
    sep = ", ";
  }
  std::cout << "}, \"analyses\": [";
  sep = "";
  for (auto it = doc.Analyses().begin(); it != doc.Analyses().end(); ++it) {
    std::cout << sep << "{\"id\": " << it.ID() << ", \"name\": " << JsonString(it->name)
              << ", \"kind\": " << JsonString(meta::ToName(it->kind))
              << ", \"method\": " << JsonString(meta::ToName(it->method)) << "}";
    sep = ", ";
  }
  std::cout << "], \"result_folders\": {";
  sep = "";
  for (const auto& f : folders) {
    std::cout << sep << JsonString(f) << ": " << filesIn(f);
    sep = ", ";
  }
  std::cout << "}}\n";
}

void AddInfoCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("info", "Summarise a project (.qvz) or document (.xml)");
  auto file = std::make_shared<std::string>();
  cmd->footer("Example:\n  qvdoc info demo.qvz\n  qvdoc info demo.qvz --json");
  cmd->add_option("FILE", *file, "The project or document")->required();
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json,
                "Print JSON: {\"file\", \"format_version\", \"earlier_generation\", \"collections\", \"analyses\", \"result_folders\"}");
  cmd->callback([file, json] {
    v7::QVDocument doc;
    v7::files::LoadReport report;
    LoadOrFail("info", *file, doc, nullptr, &report);
    // Result entries are counted from the package's directory: none of
    // them is decompressed.
    std::vector<std::wstring> results;
    if (v7::files::IsPackagePath(str::to_wstring(*file)))
      if (auto s = v7::files::ListPackageEntries(str::to_wstring(*file), results); s.failed())
        FailWith("info", s.message());
    std::set<std::wstring> folders;
    for (const auto& name : results) {
      const auto slash = name.find(L'/');
      folders.insert(slash == std::wstring::npos ? std::wstring(L"(root)") : name.substr(0, slash));
    }
    const auto filesIn = [&results](const std::wstring& folder) {
      std::size_t n = 0;
      for (const auto& name : results) n += name.rfind(folder + L"/", 0) == 0;
      return n;
    };
    if (*json) {
      PrintJson(*file, report.version, report.migrated, doc, folders, filesIn);
      return;
    }
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
    std::cout << "result folders:" << (folders.empty() ? " none" : "") << "\n";
    for (const auto& f : folders) std::cout << "  " << str::to_utf8(f) << ": " << filesIn(f) << " files\n";
  });
}

const CommandRegistrar registrar(&AddInfoCommand);

}  // namespace
}  // namespace qvdoc
