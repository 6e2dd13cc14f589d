// Arbitrary bytes read as a project document. Any input must give a status,
// never a crash, hang or runaway allocation; a document that loads must
// write and load back to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  v7::QVDocument doc;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (v7::files::DocumentFromXml(text, doc, L"fuzz").failed()) return 0;
  std::string once, twice;
  if (v7::files::DocumentToXml(doc, once).failed()) std::abort();
  v7::QVDocument back;
  if (v7::files::DocumentFromXml(once, back, L"again").failed()) std::abort();
  if (v7::files::DocumentToXml(back, twice).failed() || once != twice) std::abort();
  return 0;
}
