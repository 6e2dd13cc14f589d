// Reading a large document through the framework, against a raw pugixml
// parse of the same bytes (the floor any reader pays), in the same run.
#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <string>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
// The framework's test schema, compiled in.
#include "tests/OC/TestRecords.cpp"

namespace {

const std::string& LargeDocument() {
  static const std::string xml = [] {
    octest::RegisterTestTypes();
    octest::Doc d;
    for (int i = 0; i < 2000; ++i) {
      octest::Layer l;
      l.name_ = L"Layer " + std::to_wstring(i);
      l.eKind_ = static_cast<octest::Kind>(i % 3);
      l.fWeight_ = 15.0 + i * 1e-3;
      l.nCount_ = i;
      l.SetDepth(i * 0.37);
      for (int k = 0; k < 20; ++k) l.points_.push_back({k * 0.1 + i, k * -0.3});
      for (int k = 0; k < 10; ++k) l.times_.push_back(k * 3600.0 / 7.0);
      d.layers_.Add(l);
    }
    std::string out;
    oc::xml::StringWrite(oc::Store(d), out);
    return out;
  }();
  return xml;
}

void BM_RawPugixmlParse(benchmark::State& state) {
  const std::string& xml = LargeDocument();
  for (auto _ : state) {
    pugi::xml_document doc;
    benchmark::DoNotOptimize(doc.load_buffer(xml.data(), xml.size(), oc::xml::ParseOptions()));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * xml.size()));
}
BENCHMARK(BM_RawPugixmlParse)->Unit(benchmark::kMillisecond);

void BM_FrameworkRead(benchmark::State& state) {
  const std::string& xml = LargeDocument();
  for (auto _ : state) {
    octest::Doc d;
    benchmark::DoNotOptimize(oc::xml::StringRead(xml, oc::Store(d)));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * xml.size()));
}
BENCHMARK(BM_FrameworkRead)->Unit(benchmark::kMillisecond);

void BM_FrameworkWrite(benchmark::State& state) {
  const std::string& xml = LargeDocument();
  octest::Doc d;
  oc::xml::StringRead(xml, oc::Store(d));
  for (auto _ : state) {
    std::string out;
    oc::xml::StringWrite(oc::Store(d), out);
    benchmark::DoNotOptimize(out);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * xml.size()));
}
BENCHMARK(BM_FrameworkWrite)->Unit(benchmark::kMillisecond);

}  // namespace
