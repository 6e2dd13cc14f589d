// POSIX file calls live here and only here.
#include "OC/package/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QVI/str/Convert.h"

namespace oc::package {
namespace {
constexpr unsigned kMsgCannotSave = 31023;
constexpr std::size_t kSuffixLength = 6;
bool g_fail_before_rename = false;

gtl::status SaveError(const std::wstring& path, const char* what) {
  return gtl::status::error(kMsgCannotSave, path, std::string(what) + ": " + std::strerror(errno));
}

struct Split {
  std::string dir;   // "." or the folder with its trailing "/"
  std::string base;  // the file name
};
Split SplitPath(const std::string& target) {
  const auto slash = target.find_last_of('/');
  if (slash == std::string::npos) return {".", target};
  return {target.substr(0, slash + 1), target.substr(slash + 1)};
}

bool IsSuffixChar(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

// True when `name` is "<base>.qvv7-save-XXXXXX".
bool IsTemporaryOf(std::string_view name, std::string_view base) {
  const std::size_t head = base.size() + kTempMarker.size();
  if (name.size() != head + kSuffixLength || name.substr(0, base.size()) != base ||
      name.substr(base.size(), kTempMarker.size()) != kTempMarker)
    return false;
  for (char c : name.substr(head))
    if (!IsSuffixChar(c)) return false;
  return true;
}

std::vector<std::string> TemporaryNames(const Split& where) {
  std::vector<std::string> out;
  DIR* d = ::opendir(where.dir.c_str());
  if (!d) return out;
  while (const dirent* e = ::readdir(d))
    if (IsTemporaryOf(e->d_name, where.base))
      out.push_back((where.dir == "." ? std::string() : where.dir) + e->d_name);
  ::closedir(d);
  return out;
}

// Removes the temporaries a killed save left: a live save holds the lock of
// its temporary, and the kernel drops the lock when the process dies.
void RemoveStaleTemporaries(const Split& where) {
  for (const std::string& name : TemporaryNames(where)) {
    const int fd = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0) continue;
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0) ::unlink(name.c_str());
    ::close(fd);
  }
}

// Creates and locks a new temporary beside the target; -1 when none can be
// made. The mode 0666 passes through the umask, as for any new file.
int CreateTemporary(const std::string& target, std::string& name) {
  static constexpr char kChars[] = "abcdefghijklmnopqrstuvwxyz0123456789";
  // A fresh source per save: no generator state is shared between threads
  // that save different documents.
  std::random_device rd;
  for (int attempt = 0; attempt < 100; ++attempt) {
    name = target;
    name += kTempMarker;
    unsigned long long bits = (static_cast<unsigned long long>(rd()) << 32) | rd();
    for (std::size_t i = 0; i < kSuffixLength; ++i, bits /= 36) name += kChars[bits % 36];
    const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0) {
      ::flock(fd, LOCK_EX);
      return fd;
    }
    if (errno != EEXIST) return -1;
  }
  return -1;
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

// The file a save replaces: a symbolic link is followed to the file it names
// (a relative link from the link's own folder), so that the link stays a link
// and the file it points at takes the new content, as when the file is
// written in place. A loop or an over-long chain leaves the path as given,
// and the rename then replaces the link rather than failing the save.
std::string FileBehindLinks(std::string target) {
  for (int hop = 0; hop < 40; ++hop) {
    struct stat st;
    if (::lstat(target.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return target;
    std::string link(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 4096), '\0');
    const ssize_t n = ::readlink(target.c_str(), link.data(), link.size());
    if (n <= 0) return target;
    link.resize(static_cast<std::size_t>(n));
    if (link.front() != '/') {
      const Split where = SplitPath(target);
      if (where.dir != ".") link = where.dir + link;
    }
    target = std::move(link);
  }
  return target;
}

void FsyncFolder(const std::string& dir) {
  const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}
}  // namespace

void SimulateFailureBeforeRename(bool on) { g_fail_before_rename = on; }

std::vector<std::wstring> TemporariesBeside(const std::wstring& path) {
  std::vector<std::wstring> out;
  for (const auto& name : TemporaryNames(SplitPath(str::to_utf8(path)))) out.push_back(str::to_wstring(name));
  return out;
}

gtl::status WriteFileAtomic(const std::wstring& path, std::string_view bytes) {
  const std::string target = FileBehindLinks(str::to_utf8(path));
  const Split where = SplitPath(target);
  RemoveStaleTemporaries(where);
  std::string temp;
  const int fd = CreateTemporary(target, temp);
  if (fd < 0) return SaveError(path, "cannot create a temporary file");
  gtl::status s;
  // The replacement keeps the permissions of the file it replaces; the
  // owner too when the process may give it (as root, or its own file).
  struct stat st;
  if (::stat(target.c_str(), &st) == 0 && S_ISREG(st.st_mode)) {
    if (::fchmod(fd, st.st_mode & 07777) != 0) s = SaveError(path, "cannot keep the file's permissions");
    else if (::fchown(fd, st.st_uid, st.st_gid) != 0) errno = 0;  // not ours to give: the saver owns it
  }
  if (s.succeeded() && !WriteAll(fd, bytes)) s = SaveError(path, "cannot write");
  if (s.succeeded() && ::fsync(fd) != 0) s = SaveError(path, "cannot flush");
  if (s.succeeded() && g_fail_before_rename) {
    errno = EIO;
    s = SaveError(path, "simulated failure");
  }
  if (s.succeeded() && std::rename(temp.c_str(), target.c_str()) != 0)
    s = SaveError(path, "cannot rename the temporary file");
  if (s.failed()) ::unlink(temp.c_str());
  ::close(fd);  // drops the lock, after the rename
  if (s.failed()) return s;
  // The rename itself is durable once the folder is flushed.
  FsyncFolder(where.dir);
  return {};
}

// The buffer is sized from the file's own size, so that a regular file
// arrives in one read into one allocation; one byte to spare lets the read
// that meets the end confirm it. A file that is not regular (a pipe) or that
// grows while it is read is read on to its end, the buffer doubling. A read
// error (a folder, a failing disk) is a status, never a short content.
gtl::status ReadWholeFile(const std::wstring& path, std::string& bytes) {
  constexpr unsigned kMsgCannotOpenFile = 31010;
  constexpr std::size_t kFirstChunk = 64 * 1024;
  const int fd = ::open(str::to_utf8(path).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return gtl::status::error(kMsgCannotOpenFile, path);
  struct stat st;
  const bool sized = ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode);
  std::string content(sized ? static_cast<std::size_t>(st.st_size) + 1 : kFirstChunk, '\0');
  std::size_t have = 0;
  for (;;) {
    if (have == content.size()) content.resize(std::max(2 * content.size(), kFirstChunk));
    const ssize_t n = ::read(fd, content.data() + have, content.size() - have);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      ::close(fd);
      return gtl::status::error(kMsgCannotOpenFile, path);
    }
    if (n == 0) break;
    have += static_cast<std::size_t>(n);
  }
  ::close(fd);
  content.resize(have);
  bytes = std::move(content);
  return {};
}

}  // namespace oc::package
