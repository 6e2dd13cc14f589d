// `qvdoc get FILE PATH`: prints one value of a document, addressed by member
// names, persisted tags or an alias ("analyses[1].Name",
// "v7::doc::Analyses[1].Name").
#include <iostream>
#include <memory>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"

namespace qvdoc {
namespace {

void AddGetCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("get", "Print a value of a project by its path");
  auto file = std::make_shared<std::string>();
  auto path = std::make_shared<std::string>();
  cmd->add_option("FILE", *file, "The project or document")->required();
  cmd->add_option("PATH", *path, "The value's path, e.g. analyses[1].Name")->required();
  cmd->callback([file, path] {
    v7::QVDocument doc;
    LoadOrFail("get", *file, doc);
    oc::IOC node;
    if (auto s = oc::Find(v7::files::DocumentStore(doc), str::to_wstring(*path), node); s.failed())
      FailWith("get", s.message());
    if (oc::IsScalar(node.Type())) {
      std::cout << str::to_utf8(oc::PrettyPrintValue(node)) << "\n";
      return;
    }
    // A record or a collection: its members or elements, one a line.
    std::cout << str::to_utf8(node.Name()) << " (" << node.Length() << ")\n";
    for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c)) {
      std::cout << "  " << str::to_utf8(c.Name());
      if (oc::IsScalar(c.Type())) std::cout << " = " << str::to_utf8(oc::PrettyPrintValue(c));
      std::cout << "\n";
    }
  });
}

const CommandRegistrar registrar(&AddGetCommand);

}  // namespace
}  // namespace qvdoc
