#include "QVI/qvi/App.h"

#include <cstdlib>
#include <system_error>

#include "QVI/str/Convert.h"
#include "QVI/sys/DynamicLibrary.h"

namespace qvi::app {
namespace {

constexpr unsigned kMsgLibraryNotFound = 38000;
constexpr unsigned kMsgLibraryNotLoaded = 38001;

std::filesystem::path ToPath(const std::wstring& w) {
  const std::string u = str::to_utf8(w);
  return std::filesystem::path(std::u8string(u.begin(), u.end()));
}

std::wstring FromPath(const std::filesystem::path& p) {
  const std::u8string u = p.u8string();
  return str::to_wstring(std::string(u.begin(), u.end()));
}

}  // namespace

std::wstring LibraryName(const std::wstring& base) {
  return str::to_wstring(sys::dl::FileName(str::to_utf8(base)));
}

App& App::Instance() {
  static App app;
  return app;
}

std::vector<std::filesystem::path> App::LibraryFolders() const {
  std::vector<std::filesystem::path> folders;
  if (const char* env = std::getenv("QVV7_LIBRARY_PATH")) {
    std::string list = env;
    std::size_t start = 0;
    for (;;) {
      const std::size_t end = list.find(sys::dl::PathListSeparator(), start);
      const std::string one = list.substr(start, end - start);
      if (!one.empty()) folders.emplace_back(std::u8string(one.begin(), one.end()));
      if (end == std::string::npos) break;
      start = end + 1;
    }
  }
  // Any function of this library will do as the address to look up.
  const std::string self = sys::dl::FileOf(reinterpret_cast<const void*>(&LibraryName));
  if (!self.empty()) folders.push_back(std::filesystem::path(std::u8string(self.begin(), self.end())).parent_path());
  return folders;
}

void* App::LoadSuiteLibrary(const std::wstring& fileName, gtl::status& s) {
  s = {};
  if (auto it = loaded_.find(fileName); it != loaded_.end()) return it->second;
  const std::filesystem::path name = ToPath(fileName);
  std::vector<std::filesystem::path> candidates;
  if (name.is_absolute()) {
    candidates.push_back(name);
  } else {
    for (const auto& folder : LibraryFolders()) candidates.push_back(folder / name);
  }
  std::wstring searched;
  for (const auto& file : candidates) {
    searched += (searched.empty() ? L"" : L", ") + FromPath(file.parent_path());
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) continue;
    std::string why;
    const std::u8string u = file.u8string();
    void* h = sys::dl::Open(std::string(u.begin(), u.end()), why);
    if (!h) {
      s = gtl::status::error(kMsgLibraryNotLoaded, FromPath(file), str::to_wstring(why));
      return nullptr;
    }
    loaded_.emplace(fileName, h);
    return h;
  }
  s = gtl::status::error(kMsgLibraryNotFound, fileName, searched.empty() ? L"(no folder)" : searched);
  return nullptr;
}

}  // namespace qvi::app
