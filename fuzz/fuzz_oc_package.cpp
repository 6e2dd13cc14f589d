// Arbitrary bytes opened as a ".qvz" package: a status, never a crash, and
// every entry name read passes the escape check.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "OC/package/Package.h"
#include "QVI/str/Convert.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = "/tmp/fuzz_oc_package_" + std::to_string(::getpid()) + ".qvz";
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return 0;
  std::fwrite(data, 1, size, f);
  std::fclose(f);
  oc::package::Package p;
  if (p.Open(str::to_wstring(path)).succeeded())
    for (const auto& name : p.List())
      if (oc::package::Package::CheckEntryName(name).failed()) std::abort();
  return 0;
}
