#include "QVI/qvi/addins/AddInsManager.h"

#include <cstdlib>
#include <system_error>

#include "QVI/str/Convert.h"
#include "QVI/sys/DynamicLibrary.h"

namespace qvi::addins {
namespace {

constexpr unsigned kMsgRefusedName = 38003;
constexpr unsigned kMsgNotFound = 38004;

namespace fs = std::filesystem;

fs::path ToPath(const std::wstring& w) {
  const std::string u = str::to_utf8(w);
  return fs::path(std::u8string(u.begin(), u.end()));
}

fs::path FromEnv(const char* s) {
  const std::string u = s;
  return fs::path(std::u8string(u.begin(), u.end()));
}

std::wstring FromPath(const fs::path& p) {
  const std::u8string u = p.u8string();
  return str::to_wstring(std::string(u.begin(), u.end()));
}

// True when `inner` (canonical) lies in `folder` (canonical).
bool IsWithin(const fs::path& inner, const fs::path& folder) {
  auto f = folder.begin();
  auto i = inner.begin();
  for (; f != folder.end(); ++f, ++i) {
    if (f->empty()) continue;  // a trailing separator
    if (i == inner.end() || *i != *f) return false;
  }
  return true;
}

}  // namespace

AddInsManager& AddInsManager::Instance() {
  static AddInsManager m;
  return m;
}

bool AddInsManager::IsContainedName(const std::wstring& name) {
  if (name.empty() || name.find(L'\0') != std::wstring::npos) return false;
  // Both separators count on every platform: a name written on Windows is
  // read here too.
  std::wstring n = name;
  for (wchar_t& c : n)
    if (c == L'\\') c = L'/';
  const fs::path p = ToPath(n);
  if (p.is_absolute() || p.has_root_name() || p.has_root_directory()) return false;
  if (n.size() >= 2 && n[1] == L':') return false;  // a drive letter
  for (const auto& step : p)
    if (step == "..") return false;
  return true;
}

std::vector<fs::path> AddInsManager::SearchFolders() const {
  std::vector<fs::path> folders;
  if (const char* env = std::getenv("QVV7_ADDIN_PATH")) {
    const std::string list = env;
    std::size_t start = 0;
    for (;;) {
      const std::size_t end = list.find(sys::dl::PathListSeparator(), start);
      const std::string one = list.substr(start, end - start);
      if (!one.empty()) folders.push_back(FromEnv(one.c_str()));
      if (end == std::string::npos) break;
      start = end + 1;
    }
  }
  if (!userFolder_.empty()) {
    folders.push_back(ToPath(userFolder_));
  } else if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg) {
    folders.push_back(FromEnv(xdg) / "qvv7" / "addins");
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    folders.push_back(FromEnv(home) / ".local" / "share" / "qvv7" / "addins");
  }
  if (!documentFolder_.empty()) folders.push_back(ToPath(documentFolder_));
  return folders;
}

gtl::status AddInsManager::GetAddInPath(const std::wstring& name, std::wstring& path) const {
  path.clear();
  if (!IsContainedName(name)) return gtl::status::error(kMsgRefusedName, name);
  std::wstring n = name;
  for (wchar_t& c : n)
    if (c == L'\\') c = L'/';
  std::wstring searched;
  for (const fs::path& folder : SearchFolders()) {
    searched += (searched.empty() ? L"" : L", ") + FromPath(folder);
    std::error_code ec;
    const fs::path candidate = folder / ToPath(n);
    if (!fs::is_regular_file(candidate, ec)) continue;
    const fs::path real = fs::canonical(candidate, ec);
    if (ec) continue;
    const fs::path base = fs::canonical(folder, ec);
    if (ec || !IsWithin(real, base)) return gtl::status::error(kMsgRefusedName, name);
    path = FromPath(real);
    return {};
  }
  return gtl::status::error(kMsgNotFound, name, searched.empty() ? L"(no folder)" : searched);
}

}  // namespace qvi::addins
