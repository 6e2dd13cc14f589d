#pragma once
// The user's working options stored with the document ("globalUserOptions",
// persisted as "UserOptions").
#include <cstdint>

namespace v7::v7qvi {

struct GlobalUserOptions {
  bool bVerifyOnSave_ = true;       // "VerifyOnSave": validate before saving
  std::int32_t nAutoSaveMinutes_ = 0;  // "AutoSaveMinutes"; 0: never
  bool bConfirmDelete_ = true;      // "ConfirmDelete": ask before deleting used records
  std::int32_t nUndoLevels_ = 50;   // "UndoLevels": edits kept for undo
  bool bSnapToPoints_ = true;       // "SnapToPoints": drawing snaps to existing points
  friend bool operator==(const GlobalUserOptions&, const GlobalUserOptions&) = default;
};

}  // namespace v7::v7qvi
