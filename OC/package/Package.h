#pragma once
// The project package (".qvz"): a zip archive with the document XML at its
// root and, per analysis, a folder of result files.
//
// Open reads and checks the archive's directory only: entry names, the
// compression methods, the sizes the directory declares and the compression
// ratio they imply, all before anything is decompressed. An entry's bytes
// are decompressed when Read asks for them, so listing a package costs its
// directory, not its content. Entries written since Open are held in memory;
// Save builds the archive in memory and replaces the file atomically,
// copying the entries not written since Open in their compressed form.
#include <map>
#include <memory>
#include <optional>
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
  // Largest entry read, uncompressed: a result table of a large transient
  // analysis (a million rows of a dozen columns) is some 200 MB.
  static constexpr std::size_t kMaxEntryBytes = std::size_t{256} << 20;
  // Most entries read from one package: a result folder per analysis, a
  // step folder per saved step, a dozen tables per step.
  static constexpr std::size_t kMaxEntries = 100000;
  // Most bytes in one package, uncompressed, over all entries.
  static constexpr std::size_t kMaxTotalBytes = std::size_t{2} << 30;
  // Largest compression ratio accepted for an entry of more than
  // kRatioFloorBytes. Result tables of numbers deflate by 3 to 10, rarely
  // beyond 50; deflate itself cannot exceed about 1032, the ratio a run of
  // one repeated byte gives, which is what a "zip bomb" is made of.
  static constexpr std::size_t kMaxRatio = 200;
  static constexpr std::size_t kRatioFloorBytes = std::size_t{1} << 20;

  // What one Open may read; the defaults above unless a caller (a tool, a
  // test) asks for less.
  struct Limits {
    std::size_t entryBytes;
    std::size_t totalBytes;
  };

  Package();
  ~Package();
  Package(Package&&) noexcept;
  Package& operator=(Package&&) noexcept;

  // Replaces the content by the entries of the package file `path`, after
  // checking its directory; a package that is refused leaves no entries.
  // Only the compression methods store and deflate are accepted.
  gtl::status Open(const std::wstring& path) { return Open(path, {kMaxEntryBytes, kMaxTotalBytes}); }
  // The same within `limits`.
  gtl::status Open(const std::wstring& path, const Limits& limits);
  // Writes every entry to `path` (one temporary, flush, rename); on failure
  // the file at `path` is left as it was.
  gtl::status Save(const std::wstring& path) const;

  // Entry names, sorted ("Document.xml", "Analysis1/Heads.csv").
  std::vector<std::wstring> List() const;
  bool Contains(std::wstring_view name) const;
  // The bytes of entry `name`, decompressed now when it came from the file
  // (and checked against its declared size and checksum).
  gtl::status Read(std::wstring_view name, std::string& bytes) const;
  // Adds or replaces entry `name`.
  gtl::status Write(std::wstring_view name, std::string bytes);
  // Removes entry `name`; removing a missing entry is not an error.
  gtl::status Remove(std::wstring_view name);
  void Clear();

  // Success when `name` is a relative path that stays inside the package:
  // no leading "/", no drive, no "." or ".." step, no empty step, no "\",
  // no control characters.
  static gtl::status CheckEntryName(std::wstring_view name);
  // "folder/file".
  static std::wstring JoinEntry(std::wstring_view folder, std::wstring_view file);

 private:
  struct Archive;  // the open archive file
  struct Entry {
    std::optional<std::string> bytes;  // written since Open; else read from the archive
    std::uint64_t index = 0;           // its index in the archive
    std::uint64_t size = 0;            // declared uncompressed size
  };
  gtl::status ReadFromArchive(const std::string& name, const Entry& e, std::string& bytes) const;

  std::map<std::string, Entry> entries_;  // UTF-8 name -> entry
  std::unique_ptr<Archive> archive_;
  std::wstring path_;  // of the open archive, for messages
};

}  // namespace oc::package
