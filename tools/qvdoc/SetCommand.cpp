// `qvdoc set FILE PATH VALUE`: checks and stores one value, then saves the
// project in place (atomically: on any failure the file is as it was).
#include <iostream>
#include <memory>

#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentEdit.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"

namespace qvdoc {
namespace {

void AddSetCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("set", "Set a value of a project by its path and save it");
  cmd->footer("Example:\n  qvdoc set demo.qvz \"hMatlMem[1].Hydraulic.KSat\" 2e-8");
  auto file = std::make_shared<std::string>();
  auto path = std::make_shared<std::string>();
  auto value = std::make_shared<std::string>();
  cmd->add_option("FILE", *file, "The project or document")->required();
  cmd->add_option("PATH", *path, "The value's path, e.g. analyses[1].Name")->required();
  cmd->add_option("VALUE", *value, "The new value, as text")->required();
  cmd->callback([file, path, value] {
    v7::files::SetReport report;
    const gtl::status s =
        v7::files::SetValueInFile(str::to_wstring(*file), str::to_wstring(*path),
                                  str::to_wstring(*value), &report);
    for (const auto& w : report.warnings)
      std::cerr << "qvdoc set: warning: " << str::to_utf8(w.message()) << "\n";
    if (s.failed()) FailWith("set", s.message());
    std::cout << *path << " = " << str::to_utf8(report.value) << "\n";
  });
}

const CommandRegistrar registrar(&AddSetCommand);

}  // namespace
}  // namespace qvdoc
