// qvdoc: the command-line window into a QVV7 project.
#include <iostream>

#include "tools/qvdoc/Commands.h"

int main(int argc, char** argv) {
  CLI::App app{"qvdoc: build, inspect and edit QVV7 geotechnical project documents"};
  app.set_version_flag("--version", std::string("qvdoc ") + QVV7_VERSION);
  app.require_subcommand(1);
  qvdoc::AddRegisteredCommands(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    // Help and version exit 0, our own failures keep their code, and every
    // other parse error is a usage error.
    const int code = app.exit(e);
    if (code == 0 || dynamic_cast<const CLI::RuntimeError*>(&e)) return code;
    return qvdoc::kExitUsage;
  } catch (const std::exception& e) {
    std::cerr << "qvdoc: " << e.what() << "\n";
    return qvdoc::kExitFailure;
  }
  return qvdoc::kExitOk;
}
