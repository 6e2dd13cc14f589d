#include "QVI/sys/DynamicLibrary.h"

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace sys::dl {

#ifdef _WIN32

namespace {
std::wstring Widen(const std::string& utf8) {
  if (utf8.empty()) return {};
  const int n = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring w(static_cast<std::size_t>(n), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), w.data(), n);
  return w;
}
std::string Narrow(const std::wstring& w) {
  if (w.empty()) return {};
  const int n = WideCharToMultiByte(CP_UTF8, 0, w.data(), static_cast<int>(w.size()), nullptr, 0, nullptr, nullptr);
  std::string s(static_cast<std::size_t>(n), '\0');
  WideCharToMultiByte(CP_UTF8, 0, w.data(), static_cast<int>(w.size()), s.data(), n, nullptr, nullptr);
  return s;
}
}  // namespace

Handle Open(const std::string& path, std::string& error) {
  HMODULE h = LoadLibraryW(Widen(path).c_str());
  if (!h) error = "LoadLibrary failed with code " + std::to_string(GetLastError());
  return h;
}

void* Symbol(Handle library, const char* name) {
  if (!library || !name) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

std::string FileOf(const void* address) {
  HMODULE h = nullptr;
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                          static_cast<LPCWSTR>(address), &h))
    return {};
  std::wstring buf(32768, L'\0');
  const DWORD n = GetModuleFileNameW(h, buf.data(), static_cast<DWORD>(buf.size()));
  buf.resize(n);
  return Narrow(buf);
}

std::string FileName(const std::string& base) { return base + ".dll"; }
char PathListSeparator() { return ';'; }

#else

Handle Open(const std::string& path, std::string& error) {
  // RTLD_LOCAL keeps an add-in's symbols out of the global namespace, so two
  // add-ins may export the same names.
  void* h = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!h) {
    const char* why = dlerror();
    error = why ? why : "dlopen failed";
  }
  return h;
}

void* Symbol(Handle library, const char* name) {
  if (!library || !name) return nullptr;
  return dlsym(library, name);
}

std::string FileOf(const void* address) {
  Dl_info info{};
  if (!dladdr(address, &info) || !info.dli_fname) return {};
  return info.dli_fname;
}

std::string FileName(const std::string& base) { return "lib" + base + ".so"; }
char PathListSeparator() { return ':'; }

#endif

}  // namespace sys::dl
