// Throughput of the result-table reader in MB/s, against a baseline in the
// same run: reading the same file into memory and splitting it into lines
// (what any reader must do at least). The ratio reader / baseline is the
// cost of splitting fields and converting numbers.
//
// The file is a node table of a seepage run: 8 columns, `rows` rows, written
// once per run into the temporary folder.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "V7Doc/results/ResultTableReader.h"

namespace {

using v7::DataParamType;

std::filesystem::path TableFile(long rows) {
  const auto path = std::filesystem::temp_directory_path() /
                    ("qvv7_bench_node_" + std::to_string(rows) + ".csv");
  if (std::filesystem::exists(path)) return path;
  std::ofstream out(path, std::ios::binary);
  out << "Node,X,Y,TotalHead,PressureHead,PoreWaterPressure,XVelocity,YVelocity\r\n";
  char line[256];
  for (long n = 1; n <= rows; ++n) {
    const double x = (n % 101) * 0.5, y = (n / 101) * 0.25;
    const double p = -9.807 * (y - 12.0);
    std::snprintf(line, sizeof line, "%ld,%.6g,%.6g,%.15g,%.15g,%.15g,%.9e,%.9e\r\n", n, x, y,
                  12.0 + 1e-3 * x, p / 9.807, p, 1e-7 * x, -2.5e-8 * y);
    out << line;
  }
  return path;
}

std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  const auto size = std::filesystem::file_size(path);
  std::string bytes(size, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(size));
  return bytes;
}

void BM_Baseline_ReadAndSplitLines(benchmark::State& state) {
  const auto path = TableFile(state.range(0));
  for (auto _ : state) {
    const std::string bytes = ReadAll(path);
    std::vector<std::string_view> lines;
    const char* p = bytes.data();
    const char* end = p + bytes.size();
    while (p < end) {
      const char* nl = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
      if (!nl) nl = end;
      lines.emplace_back(p, static_cast<std::size_t>(nl - p));
      p = nl + 1;
    }
    benchmark::DoNotOptimize(lines.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<long>(std::filesystem::file_size(path)));
}

void Read(benchmark::State& state, const std::vector<DataParamType>& columns) {
  const auto path = TableFile(state.range(0));
  v7::result::ResultTable table;
  for (auto _ : state) {
    auto s = v7::result::ReadResultTableFile(path.wstring(), columns, table);
    if (!s.succeeded()) state.SkipWithError("read failed");
    benchmark::DoNotOptimize(table.Values().data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<long>(std::filesystem::file_size(path)));
}

void BM_Reader_ThreeColumns(benchmark::State& state) {
  Read(state, {DataParamType::X, DataParamType::Y, DataParamType::PoreWaterPressure});
}

void BM_Reader_AllEightColumns(benchmark::State& state) {
  using P = DataParamType;
  Read(state, {P::Node, P::X, P::Y, P::TotalHead, P::PressureHead, P::PoreWaterPressure,
               P::XVelocity, P::YVelocity});
}

BENCHMARK(BM_Baseline_ReadAndSplitLines)->Arg(1000)->Arg(200000);
BENCHMARK(BM_Reader_ThreeColumns)->Arg(1000)->Arg(200000);
BENCHMARK(BM_Reader_AllEightColumns)->Arg(1000)->Arg(200000);

}  // namespace
