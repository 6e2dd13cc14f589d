// Arbitrary bytes opened as a ".qvz" package: a status, never a crash; every
// entry name listed passes the escape check and every entry listed reads
// back (or fails with a status), its bytes written and read again unchanged.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "OC/package/Package.h"
#include "QVI/str/Convert.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string stem = "/tmp/fuzz_oc_package_" + std::to_string(::getpid());
  static const std::wstring in = str::to_wstring(stem + "_in.qvz");
  static const std::wstring out = str::to_wstring(stem + "_out.qvz");
  std::FILE* f = std::fopen(str::to_utf8(in).c_str(), "wb");
  if (!f) return 0;
  const bool written = std::fwrite(data, 1, size, f) == size;
  if (std::fclose(f) != 0 || !written) return 0;
  oc::package::Package p;
  if (p.Open(in).failed()) return 0;
  oc::package::Package copy;
  std::size_t read = 0;
  for (const auto& name : p.List()) {
    if (oc::package::Package::CheckEntryName(name).failed()) std::abort();
    std::string bytes;
    const gtl::status s = p.Read(name, bytes);
    (void)s.message();
    if (s.failed()) continue;
    ++read;
    if (copy.Write(name, bytes).failed()) std::abort();
  }
  if (read == 0 || copy.Save(out).failed()) return 0;
  oc::package::Package back;
  if (back.Open(out).failed()) std::abort();
  for (const auto& name : copy.List()) {
    std::string a, b;
    if (p.Read(name, a).failed() || back.Read(name, b).failed() || a != b) std::abort();
  }
  return 0;
}
