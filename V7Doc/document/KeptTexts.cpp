#include "V7Doc/document/KeptTexts.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "V7Doc/core/TableUndoLog.h"
#include "V7Doc/core/UndoHistory.h"

namespace v7 {

// What one notice did to the texts. Undo maps the renumbered texts back
// and puts the gone ones back; redo follows the notice again.
class KeptTexts::Log final : public UndoEntry {
 public:
  Log(KeptTexts& texts, GID container, std::vector<GID> ids, bool renumber, std::vector<KeptText> gone)
      : texts_(texts), container_(container), ids_(std::move(ids)), renumber_(renumber), gone_(std::move(gone)) {}

  void Undo() override {
    if (renumber_) {
      const std::vector<GID> back = undo_detail::InvertMap(ids_);
      for (KeptText& k : texts_.entries_)
        if (k.container == container_ && k.record < back.size()) k.record = back[k.record];
    }
    texts_.entries_.insert(texts_.entries_.end(), gone_.begin(), gone_.end());
  }
  void Redo() override {
    std::vector<KeptText> gone;
    if (renumber_) texts_.Renumber(container_, ids_, gone);
    else texts_.Forget(container_, ids_, gone);
  }
  std::size_t Bytes() const override {
    std::size_t n = sizeof(*this) + ids_.capacity() * sizeof(GID) + gone_.capacity() * sizeof(KeptText);
    for (const KeptText& k : gone_) n += k.member.capacity() * sizeof(wchar_t) + k.text.capacity();
    return n;
  }

 private:
  KeptTexts& texts_;
  GID container_;
  std::vector<GID> ids_;  // the renumbering map, or the deleted IDs
  bool renumber_;
  std::vector<KeptText> gone_;
};

bool KeptTexts::Renumber(GID container, const std::vector<GID>& renumber, std::vector<KeptText>& gone) {
  if (container == 0) return false;
  bool changed = false;
  for (KeptText& k : entries_)
    if (k.container == container) {
      const GID now = k.record < renumber.size() ? renumber[k.record] : 0;
      if (now == 0) gone.push_back(k);
      else changed = changed || now != k.record;
      k.record = now;
    }
  std::erase_if(entries_, [&](const KeptText& k) { return k.container == container && k.record == 0; });
  return changed || !gone.empty();
}

bool KeptTexts::Forget(GID container, const std::vector<GID>& ids, std::vector<KeptText>& gone) {
  if (container == 0) return false;
  std::erase_if(entries_, [&](const KeptText& k) {
    const bool goes = k.container == container && std::binary_search(ids.begin(), ids.end(), k.record);
    if (goes) gone.push_back(k);
    return goes;
  });
  return !gone.empty();
}

void KeptTexts::OnIDUpdate(GID container, const std::vector<GID>& renumber) {
  if (history_ && history_->Replaying()) return;
  std::vector<KeptText> gone;
  if (Renumber(container, renumber, gone) && history_ && history_->Recording() && history_->InRecordedEdit())
    history_->Record(std::make_unique<Log>(*this, container, renumber, true, std::move(gone)));
}

void KeptTexts::OnDelete(GID container, const std::vector<GID>& ids) {
  if (history_ && history_->Replaying()) return;
  std::vector<KeptText> gone;
  if (Forget(container, ids, gone) && history_ && history_->Recording() && history_->InRecordedEdit())
    history_->Record(std::make_unique<Log>(*this, container, ids, false, std::move(gone)));
}

}  // namespace v7
