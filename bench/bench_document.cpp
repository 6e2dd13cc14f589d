// Loading and saving a large generated project (100 functions of 1000
// points, 1000 analyses) against pugixml's own parse and save of the same
// XML, in the same run: the ratio is what the declarations cost over the
// bare DOM. Peak memory is reported as a counter (ru_maxrss, KiB).
#include <benchmark/benchmark.h>
#include <pugixml.hpp>
#include <sys/resource.h>

#include <sstream>
#include <string>

#include "OC/xml/XML.h"
#include "V7Doc/core/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

namespace {

void Fill(v7::QVDocument& doc) {
  doc.DataInit();
  for (int f = 0; f < 100; ++f) {
    v7::Func2D fn(L"Function " + std::to_wstring(f), L"generated", v7::IFn());
    (void)fn.SetFnText(L"Linear(SlopeAfter=0)");
    for (int k = 0; k < 1000; ++k) fn.Points().push_back({k * 0.01 + f, 1.0 / (k + 1.0), 0.0});
    doc.FunctionList(static_cast<v7::GID>(11 + f % 10))->Add(fn);
  }
  for (int a = 0; a < 1000; ++a) {
    v7::ANALYSIS an;
    an.DataInit(a % 2 ? v7::AnalysisKind::Hydro : v7::AnalysisKind::Stab);
    an.name = L"Analysis " + std::to_wstring(a);
    an.fLambda_ = a / 7.0;
    doc.Analyses().Add(an);
  }
  // Materials join here once their records are declared.
}

const std::string& Xml() {
  static const std::string xml = [] {
    v7::QVDocument doc;
    Fill(doc);
    std::string out;
    (void)v7::files::DocumentToXml(doc, out);
    return out;
  }();
  return xml;
}

void PeakMemory(benchmark::State& state) {
  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  state.counters["peak_rss_KiB"] = static_cast<double>(u.ru_maxrss);
  state.counters["xml_bytes"] = static_cast<double>(Xml().size());
}

void BM_PugixmlParse(benchmark::State& state) {
  (void)Xml();  // generated outside the timed loop
  for (auto _ : state) {
    pugi::xml_document doc;
    benchmark::DoNotOptimize(doc.load_buffer(Xml().data(), Xml().size(), oc::xml::ParseOptions()));
  }
  PeakMemory(state);
}
BENCHMARK(BM_PugixmlParse)->Unit(benchmark::kMillisecond);

void BM_DocumentLoad(benchmark::State& state) {
  (void)Xml();
  for (auto _ : state) {
    v7::QVDocument doc;
    if (v7::files::DocumentFromXml(Xml(), doc, L"bench").failed()) state.SkipWithError("load failed");
  }
  PeakMemory(state);
}
BENCHMARK(BM_DocumentLoad)->Unit(benchmark::kMillisecond);

void BM_PugixmlSave(benchmark::State& state) {
  pugi::xml_document doc;
  doc.load_buffer(Xml().data(), Xml().size(), oc::xml::ParseOptions());
  for (auto _ : state) {
    std::ostringstream out;
    doc.save(out, "  ");
    benchmark::DoNotOptimize(out.str().size());
  }
  PeakMemory(state);
}
BENCHMARK(BM_PugixmlSave)->Unit(benchmark::kMillisecond);

void BM_DocumentSave(benchmark::State& state) {
  v7::QVDocument doc;
  Fill(doc);
  for (auto _ : state) {
    std::string out;
    (void)v7::files::DocumentToXml(doc, out);
    benchmark::DoNotOptimize(out.size());
  }
  PeakMemory(state);
}
BENCHMARK(BM_DocumentSave)->Unit(benchmark::kMillisecond);

}  // namespace
