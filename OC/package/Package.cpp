#include "OC/package/Package.h"

#include <memory>
#include <zip.h>

#include "OC/package/AtomicFile.h"
#include "QVI/str/Convert.h"

namespace oc::package {
namespace {
constexpr unsigned kMsgCannotOpenPackage = 31020;
constexpr unsigned kMsgBadEntryName = 31021;
constexpr unsigned kMsgNoEntry = 31022;
constexpr unsigned kMsgCannotSave = 31023;
constexpr unsigned kMsgEntryTooLarge = 31024;
constexpr unsigned kMsgPackageTooLarge = 31046;
constexpr unsigned kMsgCannotReadEntry = 31025;
constexpr unsigned kMsgDuplicateEntry = 31026;

struct ZipCloser {
  void operator()(zip_t* z) const { zip_discard(z); }
};
struct FileCloser {
  void operator()(zip_file_t* f) const { zip_fclose(f); }
};

std::string ZipMessage(zip_t* z) {
  const char* m = z ? zip_strerror(z) : nullptr;
  return m ? m : "unknown error";
}
}  // namespace

gtl::status Package::CheckEntryName(std::wstring_view name) {
  auto bad = [&] { return gtl::status::error(kMsgBadEntryName, std::wstring(name)); };
  if (name.empty() || name.front() == L'/' || name.back() == L'/') return bad();
  if (name.size() >= 2 && name[1] == L':') return bad();  // a drive letter
  std::size_t start = 0;
  for (;;) {
    const auto slash = name.find(L'/', start);
    const auto step = name.substr(start, slash - start);
    if (step.empty() || step == L"." || step == L"..") return bad();
    if (slash == std::wstring_view::npos) break;
    start = slash + 1;
  }
  for (wchar_t c : name)
    if (c < 0x20 || c == 0x7F || c == L'\\') return bad();
  return {};
}

std::wstring Package::JoinEntry(std::wstring_view folder, std::wstring_view file) {
  return std::wstring(folder) + L"/" + std::wstring(file);
}

gtl::status Package::Open(const std::wstring& path, const Limits& limits) {
  entries_.clear();
  int err = 0;
  std::unique_ptr<zip_t, ZipCloser> z(zip_open(str::to_utf8(path).c_str(), ZIP_RDONLY, &err));
  if (!z) {
    zip_error_t e;
    zip_error_init_with_code(&e, err);
    const std::string why = zip_error_strerror(&e);
    zip_error_fini(&e);
    return gtl::status::error(kMsgCannotOpenPackage, path, why);
  }
  const zip_int64_t n = zip_get_num_entries(z.get(), 0);
  if (n < 0 || static_cast<std::size_t>(n) > kMaxEntries)
    return gtl::status::error(kMsgCannotOpenPackage, path, "too many entries");
  std::map<std::string, std::string> entries;
  std::size_t total = 0;
  for (zip_int64_t i = 0; i < n; ++i) {
    const char* raw = zip_get_name(z.get(), static_cast<zip_uint64_t>(i), ZIP_FL_ENC_GUESS);
    if (!raw) return gtl::status::error(kMsgCannotOpenPackage, path, ZipMessage(z.get()));
    std::string name = raw;
    if (!name.empty() && name.back() == '/') continue;  // folder entries: folders are implied
    if (auto s = CheckEntryName(str::to_wstring(name)); s.failed()) return s;
    if (entries.count(name)) return gtl::status::error(kMsgDuplicateEntry, str::to_wstring(name), path);
    std::unique_ptr<zip_file_t, FileCloser> f(zip_fopen_index(z.get(), static_cast<zip_uint64_t>(i), 0));
    if (!f) return gtl::status::error(kMsgCannotReadEntry, str::to_wstring(name), path, ZipMessage(z.get()));
    // Read in pieces up to the limit: the size a header claims is not trusted.
    std::string bytes;
    char buf[1 << 16];
    for (;;) {
      const zip_int64_t got = zip_fread(f.get(), buf, sizeof buf);
      if (got < 0)
        return gtl::status::error(kMsgCannotReadEntry, str::to_wstring(name), path,
                                  zip_error_strerror(zip_file_get_error(f.get())));
      if (got == 0) break;
      if (bytes.size() + static_cast<std::size_t>(got) > limits.entryBytes)
        return gtl::status::error(kMsgEntryTooLarge, str::to_wstring(name), path,
                                  static_cast<unsigned long long>(limits.entryBytes));
      total += static_cast<std::size_t>(got);
      if (total > limits.totalBytes)
        return gtl::status::error(kMsgPackageTooLarge, path,
                                  static_cast<unsigned long long>(limits.totalBytes));
      bytes.append(buf, static_cast<std::size_t>(got));
    }
    entries.emplace(std::move(name), std::move(bytes));
  }
  entries_ = std::move(entries);
  return {};
}

gtl::status Package::Save(const std::wstring& path) const {
  return ReplaceFileAtomic(path, [&](const std::string& temp) -> gtl::status {
    int err = 0;
    zip_t* z = zip_open(temp.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
    if (!z) return gtl::status::error(kMsgCannotSave, path, "cannot create the archive");
    for (const auto& [name, bytes] : entries_) {
      // The buffers outlive zip_close, which reads them.
      zip_source_t* src = zip_source_buffer(z, bytes.data(), bytes.size(), 0);
      if (!src || zip_file_add(z, name.c_str(), src, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE) < 0) {
        if (src) zip_source_free(src);
        const std::string why = ZipMessage(z);
        zip_discard(z);
        return gtl::status::error(kMsgCannotSave, path, why);
      }
    }
    if (zip_close(z) != 0) {
      const std::string why = ZipMessage(z);
      zip_discard(z);
      return gtl::status::error(kMsgCannotSave, path, why);
    }
    return {};
  });
}

std::vector<std::wstring> Package::List() const {
  std::vector<std::wstring> out;
  for (const auto& e : entries_) out.push_back(str::to_wstring(e.first));
  return out;
}

bool Package::Contains(std::wstring_view name) const {
  return entries_.count(str::to_utf8(name)) != 0;
}

gtl::status Package::Read(std::wstring_view name, std::string& bytes) const {
  const auto it = entries_.find(str::to_utf8(name));
  if (it == entries_.end()) return gtl::status::error(kMsgNoEntry, std::wstring(name));
  bytes = it->second;
  return {};
}

gtl::status Package::Write(std::wstring_view name, std::string bytes) {
  if (auto s = CheckEntryName(name); s.failed()) return s;
  entries_[str::to_utf8(name)] = std::move(bytes);
  return {};
}

gtl::status Package::Remove(std::wstring_view name) {
  entries_.erase(str::to_utf8(name));
  return {};
}

}  // namespace oc::package
