#pragma once
// Enumeration names a document was read with that this version does not
// know (a member renamed or added by another version). Such a member reads
// as undefined; its text is kept here so that a save writes it back and a
// load and a save lose nothing.
//
// A text inside a record of a registered table is kept by the table and the
// record's ID, not by a path: it follows the record when a compaction
// renumbers it and goes with it when it is deleted, so that it never lands
// on another record that happens to take the same position.
#include <string>
#include <vector>

#include "V7Doc/core/IQVContainer.h"

namespace v7 {

struct KeptText {
  GID container = 0;    // the table of the record; 0 for a text outside any table
  GID record = 0;       // the record's ID in it
  std::wstring member;  // the rest of the path: ".Method" after the record, or the whole path
  std::string text;     // as read (UTF-8)
  bool operator==(const KeptText&) const = default;
};

class KeptTexts final : public IQVChangeListener {
 public:
  std::vector<KeptText>& Entries() { return entries_; }
  const std::vector<KeptText>& Entries() const { return entries_; }
  void Clear() { entries_.clear(); }

  void OnIDUpdate(GID container, const std::vector<GID>& renumber) override;
  void OnDelete(GID container, const std::vector<GID>& ids) override;
  void OnAdd(GID, const std::vector<GID>&) override {}

 private:
  std::vector<KeptText> entries_;
};

}  // namespace v7
