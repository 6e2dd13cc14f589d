#pragma once
// The project package (".qvz"): a zip archive with the document XML at its
// root and, per analysis, a folder of result files. Entries are held in
// memory between Open and Save; Save replaces the file atomically.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"

namespace oc::package {

class Package {
 public:
  // The name of the document entry at the package's root.
  static constexpr const wchar_t* kDocumentEntry = L"Document.xml";
  // The package file's extension.
  static constexpr const wchar_t* kExtension = L".qvz";
  // Largest entry read, uncompressed: a larger one is refused, not allocated.
  static constexpr std::size_t kMaxEntryBytes = std::size_t{1} << 30;
  // Most entries read from one package.
  static constexpr std::size_t kMaxEntries = 100000;
  // Most bytes read from one package, uncompressed, over all entries: a
  // small archive of many highly compressed entries (a "zip bomb") is
  // refused rather than filling memory.
  static constexpr std::size_t kMaxTotalBytes = std::size_t{4} << 30;

  // What one Open may read; the defaults above unless a caller (a tool, a
  // test) asks for less.
  struct Limits {
    std::size_t entryBytes;
    std::size_t totalBytes;
  };

  // Replaces the content by the entries of the package file `path`; a
  // package that cannot be read leaves no entries.
  gtl::status Open(const std::wstring& path) { return Open(path, {kMaxEntryBytes, kMaxTotalBytes}); }
  // The same within `limits`.
  gtl::status Open(const std::wstring& path, const Limits& limits);
  // Writes every entry to `path` (temporary, flush, rename); on failure the
  // file at `path` is left as it was.
  gtl::status Save(const std::wstring& path) const;

  // Entry names, sorted ("Document.xml", "Analysis1/Heads.csv").
  std::vector<std::wstring> List() const;
  bool Contains(std::wstring_view name) const;
  // The bytes of entry `name`.
  gtl::status Read(std::wstring_view name, std::string& bytes) const;
  // Adds or replaces entry `name`.
  gtl::status Write(std::wstring_view name, std::string bytes);
  // Removes entry `name`; removing a missing entry is not an error.
  gtl::status Remove(std::wstring_view name);
  void Clear() { entries_.clear(); }

  // Success when `name` is a relative path that stays inside the package:
  // no leading "/", no drive, no "." or ".." step, no empty step, no "\",
  // no control characters.
  static gtl::status CheckEntryName(std::wstring_view name);
  // "folder/file".
  static std::wstring JoinEntry(std::wstring_view folder, std::wstring_view file);

 private:
  std::map<std::string, std::string> entries_;  // UTF-8 name -> bytes
};

}  // namespace oc::package
