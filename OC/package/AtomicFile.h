#pragma once
// Replacing a file so that it is either the old file or the complete new
// one, never a part: the new content goes to a temporary beside the target,
// is flushed to disk, and is then renamed over the target.
#include <functional>
#include <string>
#include <string_view>

#include "QVI/gtl/status.h"

namespace oc::package {

// Reads the whole file `path` into `bytes` (message 31010 when it cannot).
gtl::status ReadWholeFile(const std::wstring& path, std::string& bytes);

// Writes `bytes` to `path` atomically.
gtl::status WriteFileAtomic(const std::wstring& path, std::string_view bytes);

// Calls `produce` with the name of a temporary file in the target's folder;
// when it succeeds, makes the temporary the target. On any failure the
// temporary is removed and the target is left as it was.
gtl::status ReplaceFileAtomic(const std::wstring& path,
                              const std::function<gtl::status(const std::string& temp)>& produce);

// For tests: when set, the next replacements fail just before the rename,
// with everything else done, as a full disk or a crash would leave them.
void SimulateFailureBeforeRename(bool on);

}  // namespace oc::package
