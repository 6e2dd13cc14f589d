// Path expressions from arbitrary text: resolving never crashes; a text that
// normalises resolves (or fails) exactly as its normal form does, and a node
// that resolves answers the value protocol.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "OC/Path.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/files/DocumentSchema.h"

namespace {
v7::QVDocument& Sample() {
  static v7::QVDocument* doc = [] {
    auto* d = new v7::QVDocument;
    d->DataInit();
    d->Analyses().Add(v7::ANALYSIS{});
    d->StabItems().Get(1).reinforcements_.Add(v7::ReinforcementLoad{});
    d->Sketch().texts_.Add(v7::v7qvi::SkText{L"note"});
    return d;
  }();
  return *doc;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text =
      str::to_wstring(std::string_view(reinterpret_cast<const char*>(data), size));
  v7::QVDocument& doc = Sample();
  std::wstring path;
  if (v7::doc::NormalizeExpression(text, 1, path).failed()) return 0;
  oc::IOC a, b;
  const bool found = v7::doc::FindInDocument(doc, text, a, 1).succeeded();
  if (found != oc::Find(v7::files::DocumentStore(doc), path, b).succeeded()) __builtin_trap();
  if (!found) return 0;
  std::wstring value;
  (void)a.Get(value);
  (void)a.Length();
  (void)a.IsDefault();
  (void)a.Verify();
  return 0;
}
