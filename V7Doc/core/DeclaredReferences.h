#pragma once
// The references a container's records hold, found from the records'
// declarations rather than from code written per table. A container bound
// to the declaration of the collection it persists as (the manager's
// DeclareRecords) answers usage queries about the records its records name,
// follows their renumbering and clears what named a deleted record: a
// reference to a gone record becomes 0, and a list element declared to
// mean nothing without it leaves its list.
#include <vector>

#include "V7Doc/core/IQVContainer.h"

namespace oc {
struct Member;
class RecordType;
class RefPlan;
class RefVisitor;
}  // namespace oc

namespace v7 {

class UndoHistory;

class DeclaredReferences {
 public:
  // The container's records are the elements of collection member
  // `collection` (a table, a list of records, or a key map declared Ref),
  // held at `field`.
  DeclaredReferences(const oc::Member& collection, void* field);
  // The container is the top-level object `record` of declared `type`
  // itself: its own settings' references (oc::OwnRefPlanOf) are its
  // record 0's.
  DeclaredReferences(const oc::RecordType& type, void* record);

  // The containers whose records are referred to, ascending; `any` is set
  // when some reference names its container itself (a GGID), so that any
  // container may be referred to.
  const std::vector<GID>& Targets(bool& any) const;
  bool RefersTo(GID container) const;

  // Appends GGID(self, holder) to usage[r] for each record (holder) that
  // refers to record r of `container`; once per holder and record. The
  // list grows when a reference names a record beyond it.
  void AppendUsage(GID self, GID container, UsageList& usage) const;
  // What a repair did: whether it changed any reference, and whether the
  // history (when one was given) can take every change back.
  struct Repair {
    bool changed = false;
    bool restorable = true;
  };
  // Rewrites the references to `container` by the map of a full compaction
  // (renumber[old] is the new GID, 0 for a deleted record); a reference
  // beyond the map names nothing and is cleared. With a history, each
  // changed reference is recorded into its open transaction.
  Repair Renumber(GID container, const std::vector<GID>& renumber, UndoHistory* history = nullptr);
  // Clears the references to the records `ids` (ascending) of `container`.
  Repair Forget(GID container, const std::vector<GID>& ids, UndoHistory* history = nullptr);

 private:
  void Walk(oc::RefVisitor& visitor) const;
  template <class Map>
  Repair Remap(GID container, Map map, UndoHistory* history);

  const oc::Member* member_;  // null: field_ is the object itself
  void* field_;
  const oc::RefPlan* plan_;
};

}  // namespace v7
