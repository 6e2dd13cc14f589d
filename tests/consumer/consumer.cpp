// A program of the library's users, built apart from the library against
// its installed package (CMake's find_package, or pkg-config) and without
// NDEBUG: it loads a project, prints its analyses as `qvdoc info` does and
// checks that the document it writes back is the one it read. A public type
// whose layout depended on build flags would show here as wrong counts,
// wrong names or a crash.
#include <cstdio>
#include <string>

#include "OC/package/Package.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

int main(int argc, char** argv) {
#ifdef NDEBUG
  std::fprintf(stderr, "consumer: built with NDEBUG; the test needs a build without it\n");
  return 2;
#endif
  if (argc != 2) {
    std::fprintf(stderr, "usage: consumer PROJECT.qvz\n");
    return 2;
  }
  const std::wstring path = str::to_wstring(argv[1]);
  v7::QVDocument doc;
  v7::files::PackageEntries results;
  if (auto s = v7::files::LoadDocument(path, doc, &results); s.failed()) {
    std::fprintf(stderr, "consumer: %s\n", s.message_utf8().c_str());
    return 1;
  }
  std::size_t analyses = 0;
  for (auto it = doc.Analyses().begin(); it != doc.Analyses().end(); ++it, ++analyses)
    std::printf("  [%u] %s (%s, %s)\n", static_cast<unsigned>(it.ID()), str::to_utf8(it->name).c_str(),
                str::to_utf8(meta::ToName(it->kind)).c_str(), str::to_utf8(meta::ToName(it->method)).c_str());
  std::printf("analyses: %zu\nresult entries: %zu\n", analyses, results.size());

  oc::package::Package package;
  std::string read, written;
  if (package.Open(path).failed() || package.Read(oc::package::Package::kDocumentEntry, read).failed() ||
      v7::files::DocumentToXml(doc, written).failed()) {
    std::fprintf(stderr, "consumer: cannot read the document entry back\n");
    return 1;
  }
  if (read != written) {
    std::fprintf(stderr, "consumer: the document written back differs from the one read\n");
    return 1;
  }
  return analyses > 0 ? 0 : 1;
}
