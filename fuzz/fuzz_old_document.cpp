// Arbitrary bytes read as the body of a document of the earlier generation
// (inside <QVDocument Version="0.9">), so that every input goes through the
// migration before the reader. Any input must give a status, never a crash,
// hang or runaway allocation; a document that loads must write, load back
// and write again to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = "<QVDocument Version=\"0.9\">";
  text.append(reinterpret_cast<const char*>(data), size);
  text += "</QVDocument>";
  v7::QVDocument doc;
  v7::files::LoadReport report;
  if (v7::files::DocumentFromXml(text, doc, L"fuzz", &report).failed()) return 0;
  for (const gtl::status& w : report.warnings) (void)w.message();
  std::string once, twice;
  if (v7::files::DocumentToXml(doc, once).failed()) std::abort();
  v7::QVDocument back;
  if (v7::files::DocumentFromXml(once, back, L"again").failed()) std::abort();
  if (v7::files::DocumentToXml(back, twice).failed() || once != twice) std::abort();
  return 0;
}
