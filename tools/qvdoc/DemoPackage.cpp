// Demo step: saves the project with its result files as a package, loads it
// into a fresh document and compares the two collection by collection.
#include <iostream>

#include "OC/Schema.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSummary.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

bool SaveAndReload(DemoContext& context) {
  const std::wstring file = (context.outDir / "demo.qvz").wstring();
  v7::files::PackageEntries entries(context.packageEntries.begin(), context.packageEntries.end());
  if (auto s = v7::files::SaveDocument(*context.document, file, entries); s.failed()) {
    std::cerr << "qvdoc demo: " << str::to_utf8(s.message()) << "\n";
    return false;
  }
  v7::QVDocument loaded;
  v7::files::PackageEntries back;
  if (auto s = v7::files::LoadDocument(file, loaded, &back); s.failed()) {
    std::cerr << "qvdoc demo: " << str::to_utf8(s.message()) << "\n";
    return false;
  }
  context.out << "  saved " << str::to_utf8(file) << " with " << entries.size() << " result files\n";
  bool all = back == entries;
  for (const auto& c : v7::files::CompareCollections(*context.document, loaded)) {
    all = all && c.same;
    if (c.count || !c.same)
      context.out << "  " << str::to_utf8(c.member) << ": " << c.count << " "
                  << (c.same ? "equal" : "DIFFERENT") << "\n";
  }
  const bool whole = oc::TypeOf<v7::QVDocument>().Ops().equal(context.document.get(), &loaded);
  context.out << "  reloaded document: " << (all && whole ? "equal" : "DIFFERENT") << "\n";
  if (!(all && whole)) std::cerr << "qvdoc demo: the reloaded project differs from the saved one\n";
  return all && whole;
}

const DemoStepRegistrar step(900, "Package save and reload", &SaveAndReload);

}  // namespace
}  // namespace qvdoc
