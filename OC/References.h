#pragma once
// References between records, found from the declarations.
//
// A member that holds the number of a record of another collection says so
// in its one declaration (meta::MetaDataTraits::Ref, RefVia or RefsIn).
// From those declarations the framework walks any record, its nested
// records, lists and tables included, and hands every non-zero reference to
// a visitor, which may give it a new number: the same walk answers "who
// uses this record", renumbers after a compaction, clears what points at a
// deleted record and checks a loaded document for references to nothing.
//
// The references of a record type are flattened once into a plan (like the
// writer's), so a walk over a large table touches only the members that
// refer to something.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "OC/RecordType.h"

namespace oc {

// One reference met by a walk.
struct RefSite {
  const Member* member = nullptr;  // the declaring member (for an element: its list)
  std::uint32_t collection = 0;    // the collection whose record it names
};

class RefVisitor {
 public:
  virtual ~RefVisitor() = default;
  // False skips the references to `collection` without a call to Visit.
  virtual bool Wants(std::uint32_t collection) const {
    (void)collection;
    return true;
  }
  // Told before the references of each element of the collection that
  // ForEachRefIn walks: its table ID, its Key member's value, or its
  // position + 1.
  virtual void OnElement(std::uint32_t holder) { (void)holder; }
  // Called for every non-zero reference. Returns the number the reference
  // holds from now on: the same to keep it, 0 to clear it (an element of a
  // list of numbers, or a record declared DropWhenGone, then leaves its
  // list).
  virtual std::uint32_t Visit(const RefSite& site, std::uint32_t value) = 0;

  // The path of the reference being visited from the walk's root, in
  // persisted names with indexes ("Materials[3].Hydraulic.KFnNum"; list
  // elements are counted from 0, table records by their ID).
  std::wstring Path() const;

 // One step of the way from the walk's root to the reference: a member,
  // and for a list or table element its position (from 0) or ID.
  struct Frame {
    const Member* member;
    std::uint64_t index;
    bool has_index;
  };
  // The way to the reference being visited (with TrackPath on).
  const std::vector<Frame>& Frames() const { return frames_; }

 private:
  friend class RefWalker;
  std::vector<Frame> frames_;
  bool track_path_ = false;

 public:
  // Paths cost a little on every step: a visitor that reports paths asks
  // for them.
  void TrackPath(bool on) { track_path_ = on; }
};

// What a hook of a member declared RefsIn reports to: each reference the
// value holds, and the number it is to hold.
class RefSink {
 public:
  virtual ~RefSink() = default;
  virtual std::uint32_t Visit(std::uint32_t collection, std::uint32_t value) = 0;
};

// The flattened references of one record type.
class RefPlan;

// The plan of `type`, built on first use and kept.
const RefPlan& RefPlanOf(const RecordType& type);
// The plan of `type` without its tables and its members registered as
// collections (declared Collection): the references a top-level object
// holds in its own settings, its collections answering for themselves.
const RefPlan& OwnRefPlanOf(const RecordType& type);
// True when records of the plan's type hold references (in themselves or
// anything nested).
bool HasRefs(const RefPlan& plan);
// The collections the plan's records refer to, ascending; `any` is set when
// some reference names its collection in a member of its own (a GGID).
const std::vector<std::uint32_t>& RefTargets(const RefPlan& plan, bool& any);
// The element member declared Key (the element's identifier), or nullptr.
const Member* RefKey(const RefPlan& plan);

// Visits every reference of `rec`, a record of the plan's type. Returns
// true when the record is to leave its list (a DropWhenGone reference was
// cleared).
bool ForEachRef(const RefPlan& plan, void* rec, RefVisitor& visitor);

// Visits the references held by the elements of collection member `m` (a
// table, a list of records, numbers or key-map entries) at `field`, telling
// the visitor each element first (OnElement). Elements of a list that a
// cleared reference drops are removed.
void ForEachRefIn(const Member& m, void* field, RefVisitor& visitor);
// The number that `frames` (a visitor's Frames during a ForEachRefIn walk of
// `m` at `field`) lead to, or nullptr when the way passes through something
// that is not a plain field (a getter, a hook) or leads nowhere now.
std::uint32_t* RefAt(const Member& m, void* field, const std::vector<RefVisitor::Frame>& frames);
// What the first `count` of `frames` lead to (an element, a nested record,
// a number), or nullptr.
void* RefTarget(const Member& m, void* field, const std::vector<RefVisitor::Frame>& frames,
                std::size_t count);
// The same for a walk of a record's own references (ForEachRef over
// OwnRefPlanOf): `frames` start at the members of `record`.
std::uint32_t* RefAtInRecord(void* record, const std::vector<RefVisitor::Frame>& frames);
void* RefTargetInRecord(void* record, const std::vector<RefVisitor::Frame>& frames, std::size_t count);
// The plan of the elements of collection member `m` (their record type's,
// or, for a list of numbers or a key map declared Ref, the member's own).
const RefPlan& ElementRefPlan(const Member& m);

}  // namespace oc
