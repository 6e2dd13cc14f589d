// Reading a whole 32 MiB file into memory as the document readers do, in the
// same run against:
//  - the floor: read(2) of the file into a fresh buffer that nothing fills
//    first (what a reader must pay: the new memory and the copy);
//  - a copy through std::istreambuf_iterator, the usual idiom, one
//    character at a time.
// The file is written once into the system's temporary folder and removed
// at exit; it stays in the page cache, so the figures are of copying and
// allocation, not of the disk.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <unistd.h>

#include "OC/package/AtomicFile.h"
#include "QVI/str/Convert.h"

namespace {

constexpr std::size_t kBytes = 32u << 20;

const std::string& FilePath() {
  static const std::string path = [] {
    const char* dir = std::getenv("TMPDIR");
    std::string p = std::string(dir && *dir ? dir : "/tmp") + "/qvv7_bench_read_" + std::to_string(::getpid());
    std::string content(kBytes, '\0');
    for (std::size_t i = 0; i < kBytes; ++i) content[i] = static_cast<char>('a' + i * 7919 % 26);
    std::ofstream(p, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
    std::atexit([] { std::remove(FilePath().c_str()); });
    return p;
  }();
  return path;
}

void BM_ReadWholeFile(benchmark::State& state) {
  const std::wstring path = str::to_wstring(FilePath());
  for (auto _ : state) {
    std::string bytes;
    if (oc::package::ReadWholeFile(path, bytes).failed() || bytes.size() != kBytes)
      state.SkipWithError("the file was not read whole");
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(BM_ReadWholeFile)->Unit(benchmark::kMillisecond);

void BM_PlainReadFloor(benchmark::State& state) {
  for (auto _ : state) {
    std::unique_ptr<char[]> bytes(new char[kBytes]);
    const int fd = ::open(FilePath().c_str(), O_RDONLY);
    std::size_t have = 0;
    for (ssize_t n; have < kBytes && (n = ::read(fd, bytes.get() + have, kBytes - have)) > 0;)
      have += static_cast<std::size_t>(n);
    ::close(fd);
    if (have != kBytes) state.SkipWithError("the file was not read whole");
    benchmark::DoNotOptimize(bytes.get());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(BM_PlainReadFloor)->Unit(benchmark::kMillisecond);

void BM_StreamIteratorCopy(benchmark::State& state) {
  for (auto _ : state) {
    std::ifstream in(FilePath(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (bytes.size() != kBytes) state.SkipWithError("the file was not read whole");
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(BM_StreamIteratorCopy)->Unit(benchmark::kMillisecond);

}  // namespace
