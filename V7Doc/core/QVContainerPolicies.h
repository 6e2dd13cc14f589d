#pragma once
// Policies of the container table: where a record's ID lives, what the table
// does around edits, and how slots are stored.
#include <vector>

#include "V7Doc/core/GID.h"

namespace v7 {

// The ID is the slot position; the record type knows its own tombstone
// through the free functions IsMissing(const T&) and SetMissing(T&).
namespace table_detail {
// Unqualified calls, so that the record's own functions are found by
// argument-dependent lookup in the record's namespace.
template <class T>
bool RecordIsMissing(const T& rec) {
  return IsMissing(rec);
}
template <class T>
void RecordSetMissing(T& rec) {
  SetMissing(rec);
}
}  // namespace table_detail

template <class T>
struct QVContainerNoStoredIDPolicy {
  static constexpr bool kStoresID = false;
  static bool IsMissing(const T& rec) { return table_detail::RecordIsMissing(rec); }
  static void SetMissing(T& rec) { table_detail::RecordSetMissing(rec); }
  static void SetID(T&, const GID&) {}
};

// The ID is stored in the record's member `Member` (its first field). The
// invariant: stored ID = position + 1 for a live record, 0 for a tombstone.
// The named per-type policies (MatlIDPolicy, SLIPIDPolicy, ...) derive from
// this one.
template <class T, GID T::*Member>
struct QVContainerStoredIDPolicy {
  static constexpr bool kStoresID = true;
  static bool IsMissing(const T& rec) { return rec.*Member == 0; }
  static void SetMissing(T& rec) {
    rec = T{};
    SetID(rec, 0);
  }
  static void SetID(T& rec, const GID& id) { rec.*Member = id; }
  static GID GetID(const T& rec) { return rec.*Member; }
};

// Edits of a plain table are not recorded anywhere.
template <class T>
struct QVContainerOpPolicy {
  static constexpr bool kRecordsUndo = false;
};

// Tables whose edits take part in the document's undo history. Every table
// operation behaves as under QVContainerOpPolicy; a registered or attached
// table also records it into its document's UndoHistory (see
// QVContainerTable.h).
//
// Which tables take part: those the user edits one record at a time and
// whose records follow the undo contract or are named undoable: materials,
// boundary conditions, climate data, thermosyphons and convective surfaces.
// The stability analyses' slip surfaces, surcharge and reinforcement loads
// take part too: their tables live inside an analysis's per-kind data, are
// not registered, and record into the document's history through the
// per-kind list that holds them (NestedTableOwner.h). The analyses table
// itself stays plain (below); an unrecorded change of it that could leave
// such a record pointing at the wrong data drops the history instead.
// Analyses, function lists, 3-D functions, result sets and the geometry
// tables keep the plain policy: their table types are fixed with it, a
// geometry edit touches thousands of records at once (remeshing, import)
// and would fill the history with images nobody undoes one by one, and
// results are rebuilt by the solvers, not edited. An edit of a plain table
// that repairs a reference held by any record drops the history rather
// than leave it unable to restore (UndoHistory.h).
template <class T>
struct QVContainerOpUndoPolicy {
  static constexpr bool kRecordsUndo = true;
};

// One contiguous vector of records, slots in identifier order.
template <class T>
struct QVContainerVectorStoragePolicy {
  using container_type = std::vector<T>;
};

}  // namespace v7
