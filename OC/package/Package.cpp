#include "OC/package/Package.h"

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
constexpr unsigned kMsgCannotReadEntry = 31025;
constexpr unsigned kMsgDuplicateEntry = 31026;
constexpr unsigned kMsgPackageTooLarge = 31046;
constexpr unsigned kMsgBadCompression = 31060;
constexpr unsigned kMsgRatioTooHigh = 31061;

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

const char* MethodName(zip_uint16_t method) {
  switch (method) {
    case ZIP_CM_SHRINK: return "shrink";
    case ZIP_CM_IMPLODE: return "implode";
    case ZIP_CM_DEFLATE64: return "deflate64";
    case ZIP_CM_BZIP2: return "bzip2";
    case ZIP_CM_LZMA: return "lzma";
    case ZIP_CM_XZ: return "xz";
    default: return "an unknown method";
  }
}
}  // namespace

struct Package::Archive {
  std::unique_ptr<zip_t, ZipCloser> zip;
};

Package::Package() = default;
Package::~Package() = default;
Package::Package(Package&&) noexcept = default;
Package& Package::operator=(Package&&) noexcept = default;

void Package::Clear() {
  entries_.clear();
  archive_.reset();
  path_.clear();
}

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
  Clear();
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
  // Everything below reads the directory only: a package is refused for
  // what it declares before a byte of it is decompressed.
  std::map<std::string, Entry> entries;
  std::uint64_t total = 0;
  for (zip_int64_t i = 0; i < n; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    zip_stat_t st;
    zip_stat_init(&st);
    if (zip_stat_index(z.get(), index, ZIP_FL_ENC_GUESS, &st) != 0 || !(st.valid & ZIP_STAT_NAME))
      return gtl::status::error(kMsgCannotOpenPackage, path, ZipMessage(z.get()));
    std::string name = st.name;
    if (!name.empty() && name.back() == '/') continue;  // folder entries: folders are implied
    const std::wstring wname = str::to_wstring(name);
    if (auto s = CheckEntryName(wname); s.failed()) return s;
    if (entries.count(name)) return gtl::status::error(kMsgDuplicateEntry, wname, path);
    const zip_uint64_t want = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD;
    if ((st.valid & want) != want)
      return gtl::status::error(kMsgCannotReadEntry, wname, path, "its sizes are not declared");
    if ((st.comp_method != ZIP_CM_STORE && st.comp_method != ZIP_CM_DEFLATE) ||
        ((st.valid & ZIP_STAT_ENCRYPTION_METHOD) && st.encryption_method != ZIP_EM_NONE))
      return gtl::status::error(kMsgBadCompression, wname, path,
                                st.comp_method == ZIP_CM_STORE || st.comp_method == ZIP_CM_DEFLATE
                                    ? "encryption"
                                    : MethodName(st.comp_method));
    if (st.size > limits.entryBytes)
      return gtl::status::error(kMsgEntryTooLarge, wname, path,
                                static_cast<unsigned long long>(limits.entryBytes));
    if (st.comp_method == ZIP_CM_STORE ? st.size != st.comp_size
                                       : st.size > kRatioFloorBytes && st.size / kMaxRatio > st.comp_size)
      return gtl::status::error(kMsgRatioTooHigh, wname, path, static_cast<unsigned long long>(st.size),
                                static_cast<unsigned long long>(st.comp_size));
    total += st.size;
    if (total > limits.totalBytes)
      return gtl::status::error(kMsgPackageTooLarge, path, static_cast<unsigned long long>(limits.totalBytes));
    Entry e;
    e.index = index;
    e.size = st.size;
    entries.emplace(std::move(name), std::move(e));
  }
  entries_ = std::move(entries);
  archive_ = std::make_unique<Archive>();
  archive_->zip = std::move(z);
  path_ = path;
  return {};
}

gtl::status Package::ReadFromArchive(const std::string& name, const Entry& e, std::string& bytes) const {
  zip_t* z = archive_->zip.get();
  const std::wstring wname = str::to_wstring(name);
  std::unique_ptr<zip_file_t, FileCloser> f(zip_fopen_index(z, e.index, 0));
  if (!f) return gtl::status::error(kMsgCannotReadEntry, wname, path_, ZipMessage(z));
  // The declared size, checked at Open, bounds what is read: data beyond it
  // means the directory lied, and the entry is refused.
  std::string out;
  out.resize(static_cast<std::size_t>(e.size));
  std::size_t have = 0;
  for (;;) {
    char probe = 0;
    const bool full = have == out.size();
    const zip_int64_t got = full ? zip_fread(f.get(), &probe, 1) : zip_fread(f.get(), out.data() + have, out.size() - have);
    if (got < 0)
      return gtl::status::error(kMsgCannotReadEntry, wname, path_,
                                zip_error_strerror(zip_file_get_error(f.get())));
    if (got == 0) break;
    if (full) return gtl::status::error(kMsgCannotReadEntry, wname, path_, "it holds more than it declares");
    have += static_cast<std::size_t>(got);
  }
  if (have != out.size())
    return gtl::status::error(kMsgCannotReadEntry, wname, path_, "it holds less than it declares");
  bytes = std::move(out);
  return {};
}

gtl::status Package::Save(const std::wstring& path) const {
  // The archive is built in memory and written through the one temporary
  // of WriteFileAtomic: libzip writing a file itself would make a second
  // temporary of its own, which a killed save would leave behind.
  zip_error_t ze;
  zip_error_init(&ze);
  zip_source_t* src = zip_source_buffer_create(nullptr, 0, 0, &ze);
  if (!src) {
    const std::string why = zip_error_strerror(&ze);
    zip_error_fini(&ze);
    return gtl::status::error(kMsgCannotSave, path, why);
  }
  zip_t* z = zip_open_from_source(src, ZIP_TRUNCATE, &ze);
  if (!z) {
    const std::string why = zip_error_strerror(&ze);
    zip_error_fini(&ze);
    zip_source_free(src);
    return gtl::status::error(kMsgCannotSave, path, why);
  }
  zip_error_fini(&ze);
  zip_source_keep(src);  // it holds the archive after zip_close
  auto fail = [&](const std::string& why) {
    zip_discard(z);
    zip_source_free(src);
    return gtl::status::error(kMsgCannotSave, path, why);
  };
  // Entries still in the archive are copied as they are stored there,
  // compressed: nothing is decompressed or compressed again (a stored entry
  // is deflated on the way, as a written one is). Written entries' buffers
  // outlive zip_close, which reads them.
  for (const auto& [name, e] : entries_) {
    zip_source_t* data =
        e.bytes ? zip_source_buffer(z, e.bytes->data(), e.bytes->size(), 0)
                : zip_source_zip(z, archive_->zip.get(), e.index, ZIP_FL_COMPRESSED, 0, -1);
    if (!data || zip_file_add(z, name.c_str(), data, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE) < 0) {
      if (data) zip_source_free(data);
      return fail(ZipMessage(z));
    }
  }
  if (zip_close(z) != 0) return fail(ZipMessage(z));
  std::string archive;
  zip_stat_t st;
  zip_stat_init(&st);
  bool ok = zip_source_open(src) == 0;
  if (ok) {
    ok = zip_source_stat(src, &st) == 0 && (st.valid & ZIP_STAT_SIZE);
    if (ok) {
      archive.resize(static_cast<std::size_t>(st.size));
      ok = zip_source_read(src, archive.data(), archive.size()) == static_cast<zip_int64_t>(archive.size());
    }
    zip_source_close(src);
  }
  zip_source_free(src);
  if (!ok) return gtl::status::error(kMsgCannotSave, path, "cannot build the archive in memory");
  return WriteFileAtomic(path, archive);
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
  if (it->second.bytes) {
    bytes = *it->second.bytes;
    return {};
  }
  return ReadFromArchive(it->first, it->second, bytes);
}

gtl::status Package::Write(std::wstring_view name, std::string bytes) {
  if (auto s = CheckEntryName(name); s.failed()) return s;
  Entry& e = entries_[str::to_utf8(name)];
  e.size = bytes.size();
  e.bytes = std::move(bytes);
  return {};
}

gtl::status Package::Remove(std::wstring_view name) {
  entries_.erase(str::to_utf8(name));
  return {};
}

}  // namespace oc::package
