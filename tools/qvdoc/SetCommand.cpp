// `qvdoc set FILE PATH VALUE`: checks and stores one value, then saves the
// project in place (atomically: on any failure the file is as it was).
#include <iostream>
#include <memory>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentSchema.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"

namespace qvdoc {
namespace {

void AddSetCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("set", "Set a value of a project by its path and save it");
  auto file = std::make_shared<std::string>();
  auto path = std::make_shared<std::string>();
  auto value = std::make_shared<std::string>();
  cmd->add_option("FILE", *file, "The project or document")->required();
  cmd->add_option("PATH", *path, "The value's path, e.g. analyses[1].Name")->required();
  cmd->add_option("VALUE", *value, "The new value, as text")->required();
  cmd->callback([file, path, value] {
    v7::QVDocument doc;
    v7::files::PackageEntries results;
    LoadOrFail("set", *file, doc, &results);
    oc::IOC node;
    if (auto s = oc::Find(v7::files::DocumentStore(doc), str::to_wstring(*path), node); s.failed())
      FailWith("set", s.message());
    if (auto s = node.Set(str::to_wstring(*value)); s.failed()) FailWith("set", s.message());
    if (auto s = v7::files::SaveDocument(doc, str::to_wstring(*file), results); s.failed())
      FailWith("set", s.message());
    std::cout << *path << " = " << str::to_utf8(oc::PrettyPrintValue(node)) << "\n";
  });
}

const CommandRegistrar registrar(&AddSetCommand);

}  // namespace
}  // namespace qvdoc
