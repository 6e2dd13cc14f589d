#include "V7Doc/core/QVContainerManager.h"

#include <algorithm>

#include "V7Doc/core/DeclaredReferences.h"

namespace v7 {

void IQVContainer::DeclaredDeleter::operator()(DeclaredReferences* d) const { delete d; }

IQVContainer::~IQVContainer() {
  if (manager_) manager_->UnRegister(this);
}

void NotifyAdd(const IQVContainer& from, const std::vector<GID>& ids) {
  if (from.IsRegistered()) from.Manager().NotifyAdd(from.ID(), ids);
}
void NotifyDelete(const IQVContainer& from, const std::vector<GID>& ids) {
  if (from.IsRegistered()) from.Manager().NotifyDelete(from.ID(), ids);
}
void NotifyIDUpdate(const IQVContainer& from, const std::vector<GID>& renumber) {
  if (from.IsRegistered()) from.Manager().NotifyIDUpdate(from.ID(), renumber);
}

UndoHistory* RecordingHistoryOf(const IQVContainer& c) {
  if (!c.IsRegistered()) return nullptr;
  UndoHistory& h = c.Manager().History();
  return h.Recording() ? &h : nullptr;
}

UndoHistory* HistoryOf(const IQVContainer& c) { return c.IsRegistered() ? &c.Manager().History() : nullptr; }

std::size_t QVContainerManager::SlotOf(GID id) {
  if (id >= 1 && id <= 73) return id;
  if (id >= 5001 && id <= 5027) return id - 4926;
  return 0;
}

QVContainerManager::QVContainerManager() : subscribers_(kSlotCount) {}

QVContainerManager::~QVContainerManager() {
  history_.FreeMemory();
  TellCleanup(INotifyCleanupAction::Reason::Destroy);
  for (IQVContainer* c : containers_)
    if (c) c->manager_ = nullptr;
}

void QVContainerManager::Register(IQVContainer* c, const std::wstring& name, unsigned id) {
  if (!c) return;
  if (c->manager_ && c->manager_ != this) c->manager_->UnRegister(c);
  containers_.push_back(c);
  c->manager_ = this;
  c->name_ = name;
  c->id_ = id;
  if (!name.empty()) by_name_[name] = c;
  c->OnRegistration();
}

void QVContainerManager::UnRegister(IQVContainer* c) {
  if (!c) return;
  // The history may hold edits of the container that is going away.
  if (c->manager_ == this) history_.FreeMemory();
  std::erase(containers_, c);
  std::erase_if(by_name_, [c](const auto& kv) { return kv.second == c; });
  for (auto& slot : subscribers_) std::erase(slot, c);
  if (c->manager_ == this) c->manager_ = nullptr;
}

IQVContainer* QVContainerManager::GetContainer(const GID& id) const {
  if (id == 0) return nullptr;
  for (IQVContainer* c : containers_)
    if (c && c->ID() == id) return c;
  return nullptr;
}

IQVContainer* QVContainerManager::GetContainer(const std::wstring& name) const {
  if (name.empty()) return nullptr;
  auto it = by_name_.find(name);
  return it == by_name_.end() ? nullptr : it->second;
}

void QVContainerManager::DeclareRecords(GID id, const oc::Member& collection, void* field) {
  if (IQVContainer* c = GetContainer(id)) Bind(c, new DeclaredReferences(collection, field));
}

void QVContainerManager::DeclareRecords(GID id, const oc::RecordType& type, void* record) {
  if (IQVContainer* c = GetContainer(id)) Bind(c, new DeclaredReferences(type, record));
}

void QVContainerManager::Bind(IQVContainer* c, DeclaredReferences* declared) {
  c->declared_.reset(declared);
  bool any = false;
  const std::vector<GID> targets = c->declared_->Targets(any);
  for (GID t : targets) Subscribe(c, t);
  if (any)
    for (IQVContainer* other : containers_)
      if (other) Subscribe(c, other->ID());
}

void QVContainerManager::Subscribe(IQVContainer* c, GID target) {
  auto& slot = subscribers_[SlotOf(target)];
  if (c && std::find(slot.begin(), slot.end(), c) == slot.end()) slot.push_back(c);
}

const std::vector<IQVContainer*>& QVContainerManager::Subscribers(GID target) const {
  return subscribers_[SlotOf(target)];
}

void QVContainerManager::GetUsageOf(const GID& container, UsageList& usage) {
  if (!GetContainer(container)) return;
  usage.assign(MaxID(container), {});
  // Copy: a subscriber may not change the lists, but be safe against it.
  const auto subscribers = subscribers_[SlotOf(container)];
  for (IQVContainer* s : subscribers) {
    if (!s || s->ID() == container) continue;
    s->OnGetUsageOf(container, usage);
    if (s->declared_ && s->declared_->RefersTo(container))
      s->declared_->AppendUsage(s->ID(), container, usage);
  }
  IQVContainer* self = GetContainer(container);
  if (self->declared_ && self->declared_->RefersTo(container))
    self->declared_->AppendUsage(container, container, usage);
}

unsigned QVContainerManager::MaxID(const GID& container) {
  IQVContainer* c = GetContainer(container);
  if (!c) return 0;
  UsageList list;
  c->OnGetUsageOf(container, list);
  return static_cast<unsigned>(list.size());
}

void QVContainerManager::Clear() {
  // Clearing the whole document is not undoable: the history would hold
  // records of the project that is gone.
  history_.Suspend();
  const auto containers = containers_;
  for (IQVContainer* c : containers)
    if (c) c->Clear();
  history_.Resume();
  history_.FreeMemory();
  TellCleanup(INotifyCleanupAction::Reason::Clear);
}

void QVContainerManager::FullCompact() {
  // One undo step for the whole compaction, whichever tables record it.
  UndoHistory::Scope step(history_.Recording() ? &history_ : nullptr, false);
  const auto containers = containers_;
  for (IQVContainer* c : containers) {
    if (!c) continue;
    std::vector<GID> renumber;
    c->FullCompact(renumber);
  }
}

void QVContainerManager::NotifyAllUpdateCalculatedValues() {
  const auto containers = containers_;
  for (IQVContainer* c : containers)
    if (c) c->OnUpdateCalculatedValues();
}

void QVContainerManager::RegisterCleanupAction(const CleanupAction& action) {
  if (action && std::find(cleanup_actions_.begin(), cleanup_actions_.end(), action) ==
                    cleanup_actions_.end())
    cleanup_actions_.push_back(action);
}

bool QVContainerManager::UnregisterCleanupAction(const CleanupAction& action) {
  auto it = std::find(cleanup_actions_.begin(), cleanup_actions_.end(), action);
  if (it == cleanup_actions_.end()) return false;
  cleanup_actions_.erase(it);
  return true;
}

int QVContainerManager::UndoFreeMemory() {
  history_.FreeMemory();
  const int told = static_cast<int>(cleanup_actions_.size());
  TellCleanup(INotifyCleanupAction::Reason::UndoFreeMemory);
  return told;
}

void QVContainerManager::TellCleanup(INotifyCleanupAction::Reason reason) {
  const auto actions = cleanup_actions_;  // an action may unregister itself
  for (const auto& a : actions) a->OnCleanup(*this, reason);
}

template <class F>
void QVContainerManager::ForEachListener(GID from, F&& f) {
  const auto& subscribers = subscribers_[SlotOf(from)];
  // By index: a listener may subscribe others while it is told.
  for (std::size_t i = 0; i < subscribers.size(); ++i) {
    IQVContainer* s = subscribers[i];
    if (!s || s->ID() == from) continue;
    if (auto* l = dynamic_cast<IQVChangeListener*>(s)) f(*l);
  }
}

template <class F>
void QVContainerManager::ForEachDeclared(GID from, F&& f) {
  const auto& subscribers = subscribers_[SlotOf(from)];
  for (std::size_t i = 0; i < subscribers.size(); ++i) {
    IQVContainer* s = subscribers[i];
    if (s && s->ID() != from && s->declared_ && s->declared_->RefersTo(from)) f(*s->declared_);
  }
  IQVContainer* self = GetContainer(from);
  if (self && self->declared_ && self->declared_->RefersTo(from)) f(*self->declared_);
}

void QVContainerManager::AddObserver(IQVChangeListener* l) {
  if (l && std::find(observers_.begin(), observers_.end(), l) == observers_.end()) observers_.push_back(l);
}
void QVContainerManager::RemoveObserver(IQVChangeListener* l) {
  observers_.erase(std::remove(observers_.begin(), observers_.end(), l), observers_.end());
}

void QVContainerManager::NotifyAdd(GID from, const std::vector<GID>& ids) {
  ForEachListener(from, [&](IQVChangeListener& l) { l.OnAdd(from, ids); });
  for (IQVChangeListener* o : observers_) o->OnAdd(from, ids);
}
// Declared references are repaired by the edit that sends the notice, and
// recorded with it when it is undoable; a replay of that edit puts them
// back from the record, so a notice sent by a replay repairs nothing. A
// repair that the history cannot take back makes the history unrestorable.
template <class F>
void QVContainerManager::RepairDeclared(GID from, F&& repair) {
  if (history_.Replaying()) return;
  UndoHistory* record = history_.Recording() && history_.InRecordedEdit() ? &history_ : nullptr;
  ForEachDeclared(from, [&](DeclaredReferences& d) {
    const DeclaredReferences::Repair r = repair(d, record);
    if (r.changed && !(record && r.restorable)) history_.Unrestorable();
  });
}

void QVContainerManager::NotifyDelete(GID from, const std::vector<GID>& ids) {
  RepairDeclared(from, [&](DeclaredReferences& d, UndoHistory* h) { return d.Forget(from, ids, h); });
  ForEachListener(from, [&](IQVChangeListener& l) { l.OnDelete(from, ids); });
  for (IQVChangeListener* o : observers_) o->OnDelete(from, ids);
}
void QVContainerManager::NotifyIDUpdate(GID from, const std::vector<GID>& renumber) {
  RepairDeclared(from, [&](DeclaredReferences& d, UndoHistory* h) { return d.Renumber(from, renumber, h); });
  ForEachListener(from, [&](IQVChangeListener& l) { l.OnIDUpdate(from, renumber); });
  for (IQVChangeListener* o : observers_) o->OnIDUpdate(from, renumber);
}

}  // namespace v7
