#include "tools/qvdoc/DocumentCommon.h"

#include <iostream>

#include "QVI/str/Convert.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {

void FailWith(const char* command, const std::wstring& message) {
  std::cerr << "qvdoc " << command << ": " << str::to_utf8(message) << "\n";
  throw CLI::RuntimeError(kExitFailure);
}

void LoadOrFail(const char* command, const std::string& file, v7::QVDocument& doc,
                v7::files::PackageEntries* results, v7::files::LoadReport* report) {
  v7::files::LoadReport local;
  v7::files::LoadReport& r = report ? *report : local;
  if (auto s = v7::files::LoadDocument(str::to_wstring(file), doc, results, &r); s.failed())
    FailWith(command, s.message());
  for (const auto& w : r.warnings) std::cerr << "qvdoc " << command << ": warning: " << str::to_utf8(w.message()) << "\n";
}

}  // namespace qvdoc
