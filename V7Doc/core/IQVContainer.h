#pragma once
// The abstract container that the container manager registers and drives.
#include <memory>
#include <string>
#include <vector>

#include "V7Doc/core/GID.h"

namespace v7 {

class QVContainerManager;
class DeclaredReferences;

// The usage list of a query: entry r lists the records that refer to record r.
using UsageList = std::vector<std::vector<GGID>>;

class IQVContainer {
 public:
  IQVContainer() = default;
  // Registration is per object: a copy is unregistered.
  IQVContainer(const IQVContainer&) {}
  IQVContainer& operator=(const IQVContainer&) { return *this; }

  virtual ~IQVContainer();

  // Squeezes out deleted records; `renumber[old]` becomes the new GID of each
  // old one. The base has nothing to renumber and empties the map.
  virtual void FullCompact(std::vector<GID>& renumber) { renumber.clear(); }

  // Removes every record.
  virtual void Clear() = 0;

  // Called once by the manager right after registration; subscribe to other
  // containers here.
  virtual void OnRegistration() {}

  // Refresh values cached from other records.
  virtual void OnUpdateCalculatedValues() {}

  // Appends to usage[r] a GGID for each record of this container that refers
  // to record r of `container`.
  virtual void OnGetUsageOf(GID container, UsageList& usage) {
    (void)container;
    (void)usage;
  }

  // True when `id` names a live record (the load-time check of references
  // asks); a container without numbered records holds none.
  virtual bool HoldsRecord(GID id) const {
    (void)id;
    return false;
  }

  // The references its records hold as their declarations say (bound by
  // the manager's DeclareRecords); null when not bound.
  const DeclaredReferences* Declared() const { return declared_.get(); }

  // The container's identifier within the document (0 until registered).
  GID ID() const { return id_; }
  // The manager that registered this container; only valid once registered.
  QVContainerManager& Manager() const { return *manager_; }
  bool IsRegistered() const { return manager_ != nullptr; }
  // The collection name the container is registered and persisted under.
  std::wstring Name() const { return name_; }

 private:
  friend class QVContainerManager;
  QVContainerManager* manager_ = nullptr;
  GID id_ = 0;
  std::wstring name_;
  struct DeclaredDeleter {
    void operator()(DeclaredReferences* d) const;  // out of line: the type is not complete here
  };
  std::unique_ptr<DeclaredReferences, DeclaredDeleter> declared_;
};

// Containers that want to hear about changes to the containers they subscribed
// to also implement this interface. The manager passes on the notices that
// tables send when records are added, deleted or renumbered.
class IQVChangeListener {
 public:
  virtual ~IQVChangeListener() = default;
  // `renumber[old]` is the new GID of each old record (0: deleted).
  virtual void OnIDUpdate(GID container, const std::vector<GID>& renumber) = 0;
  // `ids` ascending.
  virtual void OnDelete(GID container, const std::vector<GID>& ids) = 0;
  // `ids` in the order added.
  virtual void OnAdd(GID container, const std::vector<GID>& ids) = 0;
};

// Sends change notices from a registered container to its subscribers; does
// nothing for an unregistered one. Kept out of line so that the table
// template does not need the manager's definition.
void NotifyAdd(const IQVContainer& from, const std::vector<GID>& ids);
void NotifyDelete(const IQVContainer& from, const std::vector<GID>& ids);
void NotifyIDUpdate(const IQVContainer& from, const std::vector<GID>& renumber);

class UndoHistory;
// The history a registered container records its edits into, null when it
// is not registered or nothing is to be recorded now (a step is being
// undone or redone, or recording is suspended).
UndoHistory* RecordingHistoryOf(const IQVContainer& c);
// The history of a registered container's document, recording or not;
// null when it is not registered.
UndoHistory* HistoryOf(const IQVContainer& c);

}  // namespace v7
