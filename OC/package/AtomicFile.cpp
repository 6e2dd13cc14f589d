// POSIX file calls live here and only here.
#include "OC/package/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <fcntl.h>
#include <unistd.h>

#include "QVI/str/Convert.h"

namespace oc::package {
namespace {
constexpr unsigned kMsgCannotSave = 31023;
bool g_fail_before_rename = false;

gtl::status SaveError(const std::wstring& path, const char* what) {
  return gtl::status::error(kMsgCannotSave, path, std::string(what) + ": " + std::strerror(errno));
}

bool FsyncPath(const std::string& p, int flags) {
  const int fd = ::open(p.c_str(), flags);
  if (fd < 0) return false;
  const bool ok = ::fsync(fd) == 0;
  ::close(fd);
  return ok;
}
}  // namespace

void SimulateFailureBeforeRename(bool on) { g_fail_before_rename = on; }

gtl::status ReplaceFileAtomic(const std::wstring& path,
                              const std::function<gtl::status(const std::string& temp)>& produce) {
  const std::string target = str::to_utf8(path);
  const auto slash = target.find_last_of('/');
  const std::string dir = slash == std::string::npos ? "." : target.substr(0, slash + 1);
  std::string temp = target + ".tmp-XXXXXX";
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) return SaveError(path, "cannot create a temporary file");
  ::close(fd);
  gtl::status s = produce(temp);
  if (s.succeeded() && !FsyncPath(temp, O_RDONLY)) s = SaveError(path, "cannot flush");
  if (s.succeeded() && g_fail_before_rename) {
    errno = EIO;
    s = SaveError(path, "simulated failure");
  }
  if (s.succeeded() && std::rename(temp.c_str(), target.c_str()) != 0)
    s = SaveError(path, "cannot rename the temporary file");
  if (s.failed()) {
    ::unlink(temp.c_str());
    return s;
  }
  // The rename itself is durable once the folder is flushed.
  FsyncPath(dir, O_RDONLY | O_DIRECTORY);
  return {};
}

gtl::status ReadWholeFile(const std::wstring& path, std::string& bytes) {
  constexpr unsigned kMsgCannotOpenFile = 31010;
  std::ifstream in(str::to_utf8(path), std::ios::binary);
  if (!in) return gtl::status::error(kMsgCannotOpenFile, path);
  bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  if (in.bad()) return gtl::status::error(kMsgCannotOpenFile, path);
  return {};
}

gtl::status WriteFileAtomic(const std::wstring& path, std::string_view bytes) {
  return ReplaceFileAtomic(path, [&](const std::string& temp) -> gtl::status {
    std::FILE* f = std::fopen(temp.c_str(), "wb");
    if (!f) return SaveError(path, "cannot open the temporary file");
    const bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    const bool closed = std::fclose(f) == 0;
    if (!ok || !closed) return SaveError(path, "cannot write");
    return {};
  });
}

}  // namespace oc::package
