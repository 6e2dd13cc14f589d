// `qvdoc convert IN OUT`: loads a project and saves it again; OUT ending
// ".xml" gets the bare document, ".qvz" a package (with IN's result entries
// when IN is a package too).
#include <iostream>
#include <memory>

#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentEdit.h"
#include "tools/qvdoc/Commands.h"
#include "tools/qvdoc/DocumentCommon.h"

namespace qvdoc {
namespace {

void AddConvertCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("convert", "Load a project and save it as .qvz or .xml");
  cmd->footer("Example:\n  qvdoc convert demo.qvz project.xml");
  auto in = std::make_shared<std::string>();
  auto out = std::make_shared<std::string>();
  cmd->add_option("IN", *in, "The project or document to read")->required();
  cmd->add_option("OUT", *out, "The file to write (.qvz or .xml)")->required();
  cmd->callback([in, out] {
    std::size_t written = 0;
    std::vector<gtl::status> warnings;
    const gtl::status s =
        v7::files::ConvertFile(str::to_wstring(*in), str::to_wstring(*out), &written, &warnings);
    for (const auto& w : warnings)
      std::cerr << "qvdoc convert: warning: " << str::to_utf8(w.message()) << "\n";
    if (s.failed()) FailWith("convert", s.message());
    std::cout << "wrote " << *out;
    if (written) std::cout << " with " << written << " result files";
    std::cout << "\n";
  });
}

const CommandRegistrar registrar(&AddConvertCommand);

}  // namespace
}  // namespace qvdoc
