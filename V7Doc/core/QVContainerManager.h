#pragma once
// The container manager: knows every container of a document by GID and by
// name, passes change notices to subscribers, answers usage queries and drives
// whole-document operations.
#include <map>
#include <string>
#include <vector>

#include "QVI/gtl/handle.h"
#include "V7Doc/core/IQVContainer.h"
#include "V7Doc/core/UndoHistory.h"

namespace oc {
struct Member;
class RecordType;
}

namespace v7 {

class QVContainerManager {
 public:
  // Told when the manager cleans up.
  class INotifyCleanupAction : public gtl::handle_ref_counter {
   public:
    enum class Reason {
      Clear,           // every container was cleared
      UndoFreeMemory,  // memory held for undo may be released
      Destroy,         // the manager is going away
    };
    virtual void OnCleanup(QVContainerManager& manager, Reason reason) = 0;
  };
  using CleanupAction = gtl::handle<INotifyCleanupAction, gtl::handle_mgmt_refcounted>;

  // Subscription slots: 1..73 are their own slot, 5001..5027 map to 75..101,
  // every other GID (the band 1000..1025 included) shares slot 0. The sharing
  // is deliberate: a subscriber of one of those must check the GID it is
  // told about.
  static constexpr std::size_t kSlotCount = 102;
  static std::size_t SlotOf(GID container);

  QVContainerManager();
  ~QVContainerManager();
  QVContainerManager(const QVContainerManager&) = delete;
  QVContainerManager& operator=(const QVContainerManager&) = delete;

  // Enters `c` under `name` and `id`, then calls c->OnRegistration().
  void Register(IQVContainer* c, const std::wstring& name, unsigned id);
  // Removes `c` from every list; it is unregistered afterwards.
  void UnRegister(IQVContainer* c);

  // Null when unknown. Containers registered with an empty name are never
  // found by name.
  IQVContainer* GetContainer(const GID& id) const;
  IQVContainer* GetContainer(const std::wstring& name) const;

  // Binds container `id` to the declaration of the collection it persists
  // as: member `collection` (a table, list or key map) at `field`. The
  // references its records declare then answer usage queries, follow
  // renumbering and are cleared when their record is deleted, with no code
  // of the container's own; the container is subscribed to every container
  // its records refer to (to all registered ones when some reference names
  // its container itself).
  void DeclareRecords(GID id, const oc::Member& collection, void* field);
  // The same for a container that is itself a declared top-level object
  // (the document): its own settings' references, outside its collections.
  void DeclareRecords(GID id, const oc::RecordType& type, void* record);

  // Adds `c` to the subscribers of `target`'s slot (once).
  void Subscribe(IQVContainer* c, GID target);
  const std::vector<IQVContainer*>& Subscribers(GID target) const;

  // usage[r] lists every record of every subscriber of `container` that refers
  // to record r of it, and, for declared references, the records of the
  // container itself that refer to r (an analysis naming its parent). An
  // unregistered GID leaves `usage` untouched.
  void GetUsageOf(const GID& container, UsageList& usage);
  // The size the container gives its own usage list (highest ID plus one for
  // record tables, 0 for containers nobody refers to).
  unsigned MaxID(const GID& container);

  // Clear() on every container, in registration order.
  void Clear();
  // FullCompact on every container, in registration order, each with a fresh
  // map; the tables notify their subscribers of the renumbering.
  void FullCompact();
  // OnUpdateCalculatedValues() on every container, in registration order.
  void NotifyAllUpdateCalculatedValues();

  void RegisterCleanupAction(const CleanupAction& action);
  // False when `action` was not registered.
  bool UnregisterCleanupAction(const CleanupAction& action);
  // Drops the undo history (calling the recorded records' UndoFreeMemory)
  // and tells the cleanup actions that undo memory may go; returns how many
  // actions were told.
  int UndoFreeMemory();

  // `l` hears the change notices of every container, after the
  // subscribers (state kept beside the records, keyed by their IDs, follows
  // the records this way). Not owned; remove it before it goes.
  void AddObserver(IQVChangeListener* l);
  void RemoveObserver(IQVChangeListener* l);

  // The undo history the undoable tables record into.
  UndoHistory& History() { return history_; }
  const UndoHistory& History() const { return history_; }

  // Change notices from container `from` to the listeners in its slot.
  void NotifyAdd(GID from, const std::vector<GID>& ids);
  void NotifyDelete(GID from, const std::vector<GID>& ids);
  void NotifyIDUpdate(GID from, const std::vector<GID>& renumber);

  // The registered containers in registration order.
  std::vector<IQVContainer*>::const_iterator begin() const { return containers_.begin(); }
  std::vector<IQVContainer*>::const_iterator end() const { return containers_.end(); }
  std::size_t Count() const { return containers_.size(); }

 private:
  // Gives `c` the references `declared` finds (taking it) and subscribes it.
  void Bind(IQVContainer* c, DeclaredReferences* declared);
  void TellCleanup(INotifyCleanupAction::Reason reason);
  template <class F>
  void ForEachListener(GID from, F&& f);
  // Calls f on the declared references of every subscriber of `from`, and
  // of `from` itself, that refer to records of `from`.
  template <class F>
  void ForEachDeclared(GID from, F&& f);
  template <class F>
  void RepairDeclared(GID from, F&& repair);

  std::vector<IQVContainer*> containers_;
  std::map<std::wstring, IQVContainer*> by_name_;
  std::vector<std::vector<IQVContainer*>> subscribers_;
  std::vector<CleanupAction> cleanup_actions_;
  std::vector<IQVChangeListener*> observers_;
  UndoHistory history_;
};

}  // namespace v7
