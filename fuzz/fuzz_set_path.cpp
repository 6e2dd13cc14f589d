// `qvdoc set` path and value parsing: the input is a path, a line feed, and a
// value, applied to a small document as `set` applies them. A path must find
// a node or fail with a status; a value refused leaves the document exactly
// as it was; a value accepted gives a document that writes and reads back to
// the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentEdit.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentSchema.h"

namespace {

// An analysis, a material, a BC, and functions that refer to each other.
constexpr std::string_view kDocument = R"(<?xml version="1.0"?>
<QVDocument Version="1.0">
  <Analyses><Analysis><ID>1</ID><Name>Seepage</Name><Kind>Hydro</Kind></Analysis></Analyses>
  <Materials><Material><ID>1</ID><Name>Sand</Name></Material></Materials>
  <BCs><BC><ID>1</ID><Name>Head</Name><Hydraulic>Constant(BType=1,Value=42)</Hydraulic></BC></BCs>
  <Functions><Boundary><Hydraulic>
    <BoundFns><BoundFn><ID>1</ID><Name>a</Name><Fn>Linear()</Fn>
      <Points><Point><X>0</X><Y>1</Y></Point><Point><X>1</X><Y>2</Y></Point></Points></BoundFn></BoundFns>
    <ModFns><ModFn><ID>1</ID><Name>m</Name><Fn>HydBoundFnTable(HydBoundFnNum=1)</Fn></ModFn></ModFns>
  </Hydraulic></Boundary></Functions>
</QVDocument>
)";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string original = [] {
    v7::QVDocument doc;
    std::string xml;
    if (v7::files::DocumentFromXml(kDocument, doc, L"seed").failed() ||
        v7::files::DocumentToXml(doc, xml).failed())
      std::abort();
    return xml;
  }();
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t nl = input.find('\n');
  if (nl == std::string_view::npos) return 0;
  const std::wstring path = str::to_wstring(input.substr(0, nl));
  const std::wstring value = str::to_wstring(input.substr(nl + 1));

  v7::QVDocument doc;
  if (v7::files::DocumentFromXml(original, doc, L"seed").failed()) std::abort();
  // As `qvdoc set` and the Python module set it.
  v7::files::SetReport report;
  const gtl::status set = v7::files::SetValueInDocument(doc, path, value, &report);
  (void)set.message();
  std::string once;
  if (v7::files::DocumentToXml(doc, once).failed()) std::abort();
  if (set.failed()) {
    if (once != original) std::abort();  // refused: nothing changed
    return 0;
  }
  v7::QVDocument back;
  std::string twice;
  if (v7::files::DocumentFromXml(once, back, L"again").failed()) std::abort();
  if (v7::files::DocumentToXml(back, twice).failed() || once != twice) std::abort();
  return 0;
}
