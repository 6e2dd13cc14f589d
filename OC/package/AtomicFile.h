#pragma once
// Replacing a file so that it is either the old file or the complete new
// one, never a part: the new content goes to one temporary beside the
// target, is flushed to disk, and is then renamed over the target.
//
// The temporary is named "<target>.qvv7-save-XXXXXX" (six random letters or
// digits) and is locked (flock) while its save runs. A save killed before
// the rename leaves its temporary behind; the next save of the same target
// removes every such temporary whose lock no process holds, so killed saves
// never pile up. The new file keeps the permission bits (and, where the
// process may, the owner) of the file it replaces; a new file gets the
// usual 0666 less the umask.
#include <string>
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"

namespace oc::package {

// The text between a target's name and the random suffix of its temporaries.
inline constexpr std::string_view kTempMarker = ".qvv7-save-";

// Reads the whole file `path` into `bytes` (message 31010 when it cannot).
gtl::status ReadWholeFile(const std::wstring& path, std::string& bytes);

// Writes `bytes` to `path` atomically.
gtl::status WriteFileAtomic(const std::wstring& path, std::string_view bytes);

// The temporaries of ours beside `path` (names "<path>.qvv7-save-XXXXXX"),
// whether stale or in use.
std::vector<std::wstring> TemporariesBeside(const std::wstring& path);

// For tests: when set, the next replacements fail just before the rename,
// with everything else done, as a full disk or a crash would leave them.
void SimulateFailureBeforeRename(bool on);

}  // namespace oc::package
