// Fuzzes the function text reader: any bytes, read as UTF-8 function text,
// must give a function or a status, never a crash or a hang. A function
// built without complaint must write text that builds the same function.
// Whatever was built is then described and evaluated, with a few points
// handed over when the kind takes them.
//
// A current document holds a water-content function (list 14, number 1) and a
// probability density (list 40, number 1), so that the estimators and the
// drawn distribution that refer to them by number get past the lookup.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnDataPoints.h"
#include "V7Doc/functions/FnImpl.h"

namespace {
void MakeDocument() {
  v7::QVDocumentHandle doc(new v7::QVDocument());
  doc->DataInit();
  v7::IFn wc, density;
  (void)v7::FnCreate(L"Van_Genuchten(A=10,N=1.5,SatWC=0.4,ResWC=0.05)", wc);
  (void)v7::FnCreate(L"Linear()", density);
  doc->FunctionList(14)->Add(v7::Func2D(L"wc", L"", wc));
  v7::Func2D d(L"density", L"", density);
  d.Points() = {{0, 0, 0}, {1, 3, 0}, {2, 0, 0}};
  (void)d.UpdateFn();
  doc->FunctionList(40)->Add(d);
  v7::QVDocumentSetCurrentHandle(doc);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool documentMade = (MakeDocument(), true);
  (void)documentMade;
  // No size limit of our own: libFuzzer's -max_len bounds the input, and a
  // short text that allocates much is what -malloc_limit_mb is there to catch.
  const std::wstring text = str::to_wstring(std::string_view(reinterpret_cast<const char*>(data), size));
  v7::IFn fn;
  const gtl::status s = v7::FnCreate(text, fn);
  (void)s.message();
  if (!s.succeeded() && fn.IsUndefined()) return 0;

  // The round trip: a text that built a function writes a text that builds
  // the same function (same text, same attributes), and so on once more.
  if (s.succeeded()) {
    const std::wstring written = fn.as_wstring();
    v7::IFn again;
    if (v7::FnCreate(written, again).failed()) __builtin_trap();
    if (again.as_wstring() != written) __builtin_trap();
    std::vector<v7::FnAttr> a, b;
    fn->GetAttributes(a);
    again->GetAttributes(b);
    if (a != b) __builtin_trap();
  }

  if (dynamic_cast<const v7::IFnDataPoints*>(fn.get())) {
    // Points from the input bytes, including repeated and negative x.
    std::vector<v7::FnPoint> pts;
    for (std::size_t i = 0; i + 1 < size && pts.size() < 16; i += 2)
      pts.push_back({static_cast<double>(static_cast<std::int8_t>(data[i])) / 8.0,
                     static_cast<double>(data[i + 1]) / 16.0 - 4.0, 0.0});
    dynamic_cast<v7::IFnDataPoints*>(fn.Unshared())->Assign(pts.data(), pts.data() + pts.size());
  }
  (void)fn.Unshared()->UpdateCalculatedValues();
  for (double x : {-1e300, -10.0, -1.0, -0.1, 0.0, 0.001, 0.5, 1.0, 3.0, 100.0, 1e300}) (void)fn(x);
  int k = 0;
  for (double x : *fn) {
    (void)fn(x);
    if (++k > 64) break;
  }

  std::vector<v7::FnAttr> attrs;
  fn->GetAttributes(attrs);
  v7::FnAttr a(L"Calculated.Min");
  (void)fn->LookupAttributeAt(a, 0, a.Name);

  return 0;
}
