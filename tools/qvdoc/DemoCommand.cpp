// `qvdoc demo`: builds a small but complete sample project step by step and
// shows what it holds.
#include <filesystem>
#include <iostream>

#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

void AddDemoCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("demo", "Build a sample project and show what it holds");
  cmd->footer("Example:\n  qvdoc demo --out build/demo");
  auto outDir = std::make_shared<std::string>("qvdoc-demo");
  cmd->add_option("--out", *outDir, "Folder for the files the demo writes")->capture_default_str();
  cmd->callback([outDir] {
    std::error_code ec;
    std::filesystem::create_directories(*outDir, ec);
    if (ec) {
      std::cerr << "qvdoc demo: cannot create the folder \"" << *outDir << "\": " << ec.message()
                << "\n";
      throw CLI::RuntimeError(kExitFailure);
    }
    DemoContext context{gtl::make_handle<v7::QVDocument>(), std::cout, *outDir, {}};
    context.document->DataInit();
    v7::QVDocumentSetCurrentHandle(context.document);
    const bool ok = RunDemoSteps(context);
    v7::QVDocumentSetCurrentHandle({});
    if (!ok) throw CLI::RuntimeError(kExitFailure);
    std::cout << "\nqvdoc demo: done\n";
  });
}

const CommandRegistrar registrar(&AddDemoCommand);

}  // namespace
}  // namespace qvdoc
