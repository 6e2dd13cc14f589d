// `qvdoc get FILE PATH`: prints one value of a document, addressed by member
// names, persisted tags, an alias or a path expression ("analyses[1].Name",
// "v7::doc::Analyses[1].Name", "doc::Analyses()[OC_INDEX1].Name --index 1").
// A record prints its members, a collection of records its records by ID
// and name; --json prints the same for scripts.
#include <iostream>
#include <memory>
#include <optional>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/files/DocumentSummary.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"
#include "tools/qvdoc/Json.h"

namespace qvdoc {
namespace {

void PrintText(const oc::IOC& node) {
  if (oc::IsScalar(node.Type())) {
    std::cout << str::to_utf8(oc::PrettyPrintValue(node)) << "\n";
    return;
  }
  if (oc::IsArray(node) && node.Template() && node.Template()->HoldsRecords()) {
    std::cout << str::to_utf8(node.Name()) << ": " << node.Length() << " records\n";
    for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c)) {
      const std::wstring label = v7::files::RecordLabel(c);
      std::cout << "  [" << v7::files::ElementIndex(c) << "] "
                << str::to_utf8(label.empty() ? c.Name() : label) << "\n";
    }
    return;
  }
  // A record, or an array of values: its members or elements, one a line.
  std::cout << str::to_utf8(node.Name()) << " (" << node.Length() << ")\n";
  std::size_t i = 0;
  for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c), ++i) {
    std::cout << "  " << (oc::IsArray(node) ? "[" + std::to_string(i) + "]" : str::to_utf8(c.Name()));
    if (oc::IsScalar(c.Type())) std::cout << " = " << str::to_utf8(oc::PrettyPrintValue(c));
    std::cout << "\n";
  }
}

void AddGetCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("get", "Print a value of a project by its path");
  cmd->footer("Example:\n  qvdoc get demo.qvz \"analyses[1].Name\"\n  qvdoc get demo.qvz analyses --json");
  auto file = std::make_shared<std::string>();
  auto path = std::make_shared<std::string>();
  cmd->add_option("FILE", *file, "The project or document")->required();
  cmd->add_option("PATH", *path, "The value's path, e.g. analyses[1].Name")->required();
  auto index = std::make_shared<std::uint64_t>(0);
  auto* index_opt = cmd->add_option("--index", *index, "The analysis that OC_INDEX1 in PATH stands for");
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json, "Print JSON: {\"path\", \"value\"}");
  cmd->callback([file, path, index, index_opt, json] {
    v7::QVDocument doc;
    LoadOrFail("get", *file, doc);
    oc::IOC node;
    std::optional<std::uint64_t> index1;
    if (index_opt->count()) index1 = *index;
    if (auto s = v7::doc::FindInDocument(doc, str::to_wstring(*path), node, index1); s.failed())
      FailWith("get", s.message());
    if (*json)
      std::cout << "{\"path\": " << JsonString(std::string_view(*path)) << ", \"value\": " << JsonValue(node) << "}\n";
    else
      PrintText(node);
  });
}

const CommandRegistrar registrar(&AddGetCommand);

}  // namespace
}  // namespace qvdoc
