// Arbitrary bytes read as an XML document into the framework's test schema
// (tables, arrays, nested records, enumerations). Any input must give a
// status, never a crash, hang or runaway allocation; a successful read
// must write and read back to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
// The test schema is compiled in, so that fuzzing covers the same records.
#include "tests/OC/TestRecords.cpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  octest::RegisterTestTypes();
  octest::Doc doc;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (oc::xml::StringRead(text, oc::Store(doc)).failed()) return 0;
  std::string once, twice;
  oc::xml::StringWrite(oc::Store(doc), once);
  octest::Doc back;
  if (oc::xml::StringRead(once, oc::Store(back)).failed()) std::abort();
  oc::xml::StringWrite(oc::Store(back), twice);
  if (once != twice) std::abort();
  return 0;
}
