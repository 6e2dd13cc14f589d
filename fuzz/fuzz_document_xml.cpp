// Arbitrary bytes read as a project document, with the real document schema.
// Any input must give a status, never a crash, hang or runaway allocation; a
// document that loads must write and load back to the same bytes. The loaded
// document is then made current and every function of its lists brought up
// to date and evaluated, so that functions which refer to others by number
// (boundary tables, estimates, drawn densities) follow their references.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  v7::QVDocumentHandle doc(new v7::QVDocument());
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  v7::files::LoadReport report;
  if (v7::files::DocumentFromXml(text, *doc, L"fuzz", &report).failed()) return 0;
  for (const gtl::status& w : report.warnings) (void)w.message();
  std::string once, twice;
  if (v7::files::DocumentToXml(*doc, once).failed()) std::abort();
  v7::QVDocument back;
  if (v7::files::DocumentFromXml(once, back, L"again").failed()) std::abort();
  if (v7::files::DocumentToXml(back, twice).failed() || once != twice) std::abort();

  v7::QVDocumentSetCurrentHandle(doc);
  for (v7::GID list = v7::container::FirstFunctionList; list <= v7::container::LastFunctionList; ++list) {
    v7::Func2DTable* t = doc->FunctionList(list);
    if (!t) continue;
    t->OnUpdateCalculatedValues();
    for (auto it = t->begin(); it != t->end(); ++it)
      for (double x : {-1e6, -10.0, -0.5, 0.0, 0.5, 10.0, 1e6}) (void)(*it)(x);
  }
  v7::QVDocumentSetCurrentHandle(v7::QVDocumentHandle());
  return 0;
}
