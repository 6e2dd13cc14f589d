// qvdoc: the command-line window into a QVV7 project.
#include <iostream>

#include "QVI/str/Convert.h"
#include "QVI/str/Format.h"
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
    // A parse error quotes the arguments, which may hold any bytes: they are
    // printed escaped so that a terminal shows them and is not driven by them.
    if (e.get_exit_code() == 0) return app.exit(e);
    std::cerr << "qvdoc: " << str::to_utf8(str::escape_controls(str::to_wstring(e.what())))
              << "\nRun with --help for more information.\n";
    if (dynamic_cast<const CLI::RuntimeError*>(&e)) return e.get_exit_code();
    return qvdoc::kExitUsage;
  } catch (const std::exception& e) {
    std::cerr << "qvdoc: " << e.what() << "\n";
    return qvdoc::kExitFailure;
  }
  return qvdoc::kExitOk;
}
