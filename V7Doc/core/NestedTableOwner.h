#pragma once
// Undoable record tables that live inside the records of another container
// (an analysis's surcharge loads, reinforcements and slip surfaces, kept in
// its per-kind data) rather than being registered themselves.
//
// Such a table records its edits into the history of the container that
// holds it, its owner, which attaches it (QVContainerTable::AttachTo). The
// log of an edit must not keep the table's address: the owner's records
// move when its list grows, and a record may be replaced, deleted or
// re-keyed by an edit that is not recorded. So the log knows the table by
// its place: the key of the owner's record that holds it and the table's
// number within that record, found when the edit is made and looked up
// again when it is undone or redone.
//
// What the owner promises:
// - it attaches the tables of every record it holds whenever it hands a
//   record out or its list changes shape (an attachment is per object, as a
//   registration is: a copy of a table is not attached, and an assigned
//   table stays attached where it is);
// - any change of its records that the history does not record and that
//   could make a place name another table or none (a record deleted,
//   replaced, re-keyed, a record put between others, the list refilled or
//   cleared) drops the history (UndoHistory::Unrestorable). An attached
//   table that is assigned other records drops it by itself.
#include <cstdint>

#include "V7Doc/core/IQVContainer.h"

namespace v7 {

class UndoHistory;

class NestedTableOwner {
 public:
  // Where a nested table is: the key of the owner's record (an analysis's
  // ID) and which of the record's tables it is.
  struct Place {
    GID key = 0;
    std::uint32_t table = 0;
    bool operator==(const Place&) const = default;
  };

  // The place of `table`; false when none of the owner's records holds it.
  virtual bool PlaceOf(const IQVContainer& table, Place& place) = 0;
  // The table at `place`; null when no record holds one there.
  virtual IQVContainer* TableAt(const Place& place) = 0;
  // The history the owner's document records into; null when the owner is
  // in no document.
  virtual UndoHistory* History() = 0;

 protected:
  ~NestedTableOwner() = default;
};

}  // namespace v7
