#pragma once
// What the document says about itself ("fileInfo", persisted as "FileInfo";
// aliases "doc::FileInfo" and "defdoc::FileInfo"): who made it and when, and
// what it is about. Dates are text in ISO 8601 form ("2026-11-24T01:02:03Z")
// as the host writes them; the library stores them as given.
#include <cstdint>
#include <string>

namespace v7 {

struct FileInfo {
  std::wstring title_;        // "Title"
  std::wstring author_;       // "Author"
  std::wstring comments_;     // "Comments"
  std::wstring created_;      // "Created"
  std::wstring lastSavedBy_;  // "LastSavedBy"
  std::wstring lastSaved_;    // "LastSaved"
  // "Revision": how often the document was saved; a host counts it up.
  std::int32_t nRevision_ = 0;
  friend bool operator==(const FileInfo&, const FileInfo&) = default;
};

}  // namespace v7
