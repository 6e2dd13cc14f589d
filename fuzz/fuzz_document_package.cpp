// Arbitrary bytes opened as a project package (".qvz") through LoadDocument:
// a status, never a crash, hang or runaway allocation. A package that loads
// must save and load back to the same document bytes and result entries.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // One input file and one output file per process, overwritten each run.
  static const std::string stem = "/tmp/fuzz_document_package_" + std::to_string(::getpid());
  static const std::wstring in = str::to_wstring(stem + "_in.qvz");
  static const std::wstring out = str::to_wstring(stem + "_out.qvz");
  std::FILE* f = std::fopen(str::to_utf8(in).c_str(), "wb");
  if (!f) return 0;
  const bool written = std::fwrite(data, 1, size, f) == size;
  if (std::fclose(f) != 0 || !written) return 0;

  v7::QVDocument doc;
  v7::files::PackageEntries results;
  if (v7::files::LoadDocument(in, doc, &results).failed()) return 0;
  std::string once, twice;
  if (v7::files::DocumentToXml(doc, once).failed()) std::abort();
  if (v7::files::SaveDocument(doc, out, results).failed()) std::abort();
  v7::QVDocument back;
  v7::files::PackageEntries backResults;
  if (v7::files::LoadDocument(out, back, &backResults).failed()) std::abort();
  if (v7::files::DocumentToXml(back, twice).failed() || once != twice) std::abort();
  if (backResults != results) std::abort();
  return 0;
}
