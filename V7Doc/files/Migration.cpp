// The migration works on one parsed tree: the current document is built
// under a second root element beside the old one, old elements are moved
// (not copied) into it, and the old root is removed at the end. Subtrees
// below which no table entry can match move in one step, so that the cost
// follows the parts of the document that did change. No path is built as
// text while walking: an element's level points at its parent's, what the
// table knows of its pattern is one step from what it knows of the
// parent's, and the steps of the new path name texts that live as long as
// the migration. Texts are made only for messages and for element names
// that are not single steps of the table's patterns.
#include "V7Doc/files/Migration.h"

#include <array>
#include <charconv>
#include <cstring>
#include <deque>
#include <optional>
#include <pugixml.hpp>
#include <unordered_map>
#include <unordered_set>

#include "OC/Path.h"
#include "OC/Scalar.h"
#include "OC/xml/XML.h"
#include "OC/xml/XMLError.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentSchema.h"
#include "V7Doc/files/MigrationTable.h"

namespace v7::files {
namespace mig = migration;
namespace {
constexpr unsigned kMsgBadIndex = 31200;
constexpr unsigned kMsgUnknownEnumerator = 31201;
constexpr unsigned kMsgWrongType = 31202;
constexpr unsigned kMsgTooDeep = 31204;
constexpr unsigned kMsgTooFar = 31205;
constexpr std::size_t kMaxDepth = 128;

// Where a path stands in today's schema while it is walked.
struct Cursor {
  const oc::TagNode* node = nullptr;  // children of the element reached
  const oc::Member* member = nullptr; // the member of the element reached
  bool element = false;               // an index selected one entry of it
};

// One step of a path in the new tree.
// Its texts are NUL-terminated and outlive it: element names of the old
// tree, tags of the schema, or text the migration keeps until it ends.
struct Step {
  std::string_view name;        // element name, UTF-8
  bool has_index = false;
  std::uint64_t index = 0;      // a record's ID, or a zero-based position
  Cursor cur;                   // the schema after this step (node null: unknown)
  bool known = false;           // the step is a member or wrapper of the schema
  std::string_view entry_tag;   // the collection's element tag
  bool by_id = true;            // entries carry their <ID>
  std::string_view pad;         // text of an unset value (arrays of values)
};

const oc::TagNode& RootLayout() { return oc::TypeOf<QVDocument>().Layout(); }

// Entries of a collection carry their <ID> in a table and in a list whose
// records declare one (the per-analysis item lists).
bool KeyedByID(const oc::Member& m) {
  if (m.type == oc::ValueType::Table) return true;
  return m.HoldsRecords() && m.record().Layout().Child("ID") != nullptr;
}

// Moves `c` one step: `name`, then an index when `indexed`. False when the
// step names nothing of the schema.
// `n` is that step's node, found by the caller.
bool AdvanceTo(Cursor& c, const oc::TagNode* n, bool indexed) {
  if (!n) return false;
  c.member = n->member;
  c.element = false;
  if (!n->member) {
    c.node = n;
    return !indexed;
  }
  const oc::Member& m = *n->member;
  const bool collection = m.type == oc::ValueType::Table || m.type == oc::ValueType::Array;
  if (indexed && !collection) return false;
  if (indexed) {
    c.element = true;
    c.node = m.HoldsRecords() ? &m.record().Layout() : nullptr;
  } else {
    c.node = m.type == oc::ValueType::Struct ? &m.record().Layout() : nullptr;
  }
  return true;
}

bool Advance(Cursor& c, std::string_view name, bool indexed) {
  return c.node && AdvanceTo(c, c.node->Child(name), indexed);
}

// Splits a path of the table into steps (name, index text).
struct TextStep {
  std::wstring name;
  bool has_index = false;
  std::wstring index;
};
bool SplitPath(std::wstring_view path, std::vector<TextStep>& out) {
  out.clear();
  std::size_t i = 0;
  while (i < path.size()) {
    TextStep s;
    const std::size_t end = path.find_first_of(L".[", i);
    s.name = std::wstring(path.substr(i, end == std::wstring_view::npos ? std::wstring_view::npos : end - i));
    if (s.name.empty()) return false;
    i = end == std::wstring_view::npos ? path.size() : end;
    if (i < path.size() && path[i] == L'[') {
      const std::size_t close = path.find(L']', i);
      if (close == std::wstring_view::npos) return false;
      s.has_index = true;
      s.index = std::wstring(path.substr(i + 1, close - i - 1));
      i = close + 1;
    }
    out.push_back(std::move(s));
    if (i < path.size()) {
      if (path[i] != L'.') return false;
      ++i;
    }
  }
  return !out.empty();
}

std::optional<std::uint64_t> ParseIndex(std::string_view text) {
  std::uint64_t v = 0;
  const auto* b = text.data();
  const auto* e = b + text.size();
  auto [p, ec] = std::from_chars(b, e, v);
  if (ec != std::errc() || p != e || text.empty()) return std::nullopt;
  return v;
}

// The entries of a collection of the new tree by index, gathered on first
// use and kept up to date. Members of a record are few and found by name.
// Indices mostly run from 0 or 1 without gaps: those are kept by position
// (as long as the vector stays within a few times the entries it holds),
// the others in a map.
struct Children {
  bool indexed = false;
  std::uint64_t count = 0;  // entries, for positional collections

  pugi::xml_node Find(std::uint64_t i) const {
    if (i < dense_.size() && dense_[i]) return dense_[i];
    const auto it = sparse_.find(i);
    return it == sparse_.end() ? pugi::xml_node() : it->second;
  }
  // Enters `entry` at `i` unless an entry is there already.
  void Add(std::uint64_t i, pugi::xml_node entry) {
    if (Find(i)) return;
    if (i < 256 || i < 4 * held_) {
      if (i >= dense_.size()) dense_.resize(i + 1);
      dense_[i] = entry;
      ++held_;
    } else {
      sparse_.emplace(i, entry);
    }
  }

 private:
  std::vector<pugi::xml_node> dense_;
  std::size_t held_ = 0;  // entries in dense_
  std::unordered_map<std::uint64_t, pugi::xml_node> sparse_;
};

class Migrator {
 public:
  Migrator(pugi::xml_document& doc, std::string_view source, MigrationReport& report)
      : doc_(doc), err_(read_, source), report_(report), counts_(mig::Entries().size()),
        templates_(2 * mig::Entries().size()), max_position_(source.size() + 1024) {}

  gtl::status Run() {
    pugi::xml_node old_root = doc_.document_element();
    report_.fromVersion = str::to_wstring(old_root.attribute("Version").value());
    root_ = doc_.insert_child_after(old_root.name(), old_root);
    for (pugi::xml_attribute a = old_root.first_attribute(); a; a = a.next_attribute())
      root_.append_attribute(a.name()) = a.value();
    root_.attribute("Version") = str::to_utf8(kDocumentFormatVersion).c_str();
    Level top;
    top.layout = root_layout_;
    top.info = mig::RootInfo();
    std::vector<Step> none;
    Walk(old_root, top, none, 0);
    doc_.remove_child(old_root);
    for (std::size_t i = 0; i < counts_.size(); ++i) {
      if (!counts_[i].used) continue;
      const mig::Entry& e = mig::Entries()[i];
      report_.counts.push_back({e.key, e.replacement, counts_[i].action, counts_[i].values});
    }
    for (auto& m : read_.messages) report_.messages.push_back(std::move(m));
    report_.errors = read_.errors;
    for (const auto& s : report_.messages)
      if (s.failed()) return s;
    return {};
  }

 private:
  // An element of the old tree as the walk sees it. Its path is not kept as
  // text: the levels above it are on the stack of the walk, and the text is
  // made from them when a message or a ".*" entry needs it. What the table
  // knows of its pattern is found one step from its parent's.
  struct Level {
    const Level* parent = nullptr;       // nullptr at the document's root
    pugi::xml_node el;                   // the element
    bool entry = false;                  // an entry of a collection: its step is its index
    std::optional<std::uint64_t> index;  // an entry's index; none: no record number
    std::size_t bound = 0;               // its indices are the first `bound` of indices_
    const mig::PatternInfo* info = nullptr;  // the table on its pattern (indices as "$1", "$2")
    const mig::Entry* prefix = nullptr;      // the ".*" entry with the longest stem that begins it
    // A name that is no single step of the table's patterns (one holding
    // "." or "[", or not ASCII): from it on, patterns are looked up as text.
    bool odd = false;
    std::wstring odd_pattern;
    const oc::TagNode* layout = nullptr;  // schema children of the element
    const oc::TagNode* tag = nullptr;     // its node among its parent's `layout`
    const oc::Member* member = nullptr;   // the schema member it is
    bool collection = false;
  };
  struct Count {
    bool used = false;
    MigrationAction action = MigrationAction::Moved;
    std::size_t values = 0;
  };

  std::wstring Line(pugi::xml_node el) {
    const std::size_t line = err_.Line(el.offset_debug());
    return line ? str::to_wstring(static_cast<unsigned long long>(line)) : std::wstring(L"?");
  }

  static pugi::xml_node FirstElement(pugi::xml_node el) {
    pugi::xml_node c = el.first_child();
    while (c && c.type() != pugi::node_element) c = c.next_sibling();
    return c;
  }
  static pugi::xml_node NextElement(pugi::xml_node el) {
    pugi::xml_node c = el.next_sibling();
    while (c && c.type() != pugi::node_element) c = c.next_sibling();
    return c;
  }

  // The values (elements without element children) in `el`, counted
  // without recursion: a hostile file may nest far deeper than a stack.
  static std::size_t Leaves(pugi::xml_node el) {
    std::size_t n = 0;
    pugi::xml_node c = el;
    for (;;) {
      if (pugi::xml_node down = FirstElement(c)) {
        c = down;
        continue;
      }
      ++n;  // a leaf
      for (;;) {
        if (c == el) return n;
        if (pugi::xml_node next = NextElement(c)) {
          c = next;
          break;
        }
        c = c.parent();
      }
    }
  }
  static bool IsLeaf(pugi::xml_node el) { return !FirstElement(el); }

  // Appends element name `name` (UTF-8), the common ASCII case directly.
  static void AppendName(std::wstring& out, const char* name) {
    for (const char* p = name; *p; ++p)
      if (static_cast<unsigned char>(*p) >= 0x80) {
        out += str::to_wstring(p);
        return;
      } else {
        out += static_cast<wchar_t>(*p);
      }
  }
  // The name as a view; `odd` when it holds "." or "[" or is not ASCII.
  static std::string_view ScanName(const char* name, bool& odd) {
    const char* p = name;
    for (; *p; ++p)
      if (*p == '.' || *p == '[' || static_cast<unsigned char>(*p) >= 0x80) odd = true;
    return {name, static_cast<std::size_t>(p - name)};
  }

  // The path of `lv` as text: concrete (the indices as read), or as a
  // `pattern` (the indices as "$1", "$2", outermost first).
  static void AppendText(const Level& lv, bool pattern, std::wstring& out) {
    if (pattern && lv.odd) {
      out += lv.odd_pattern;
      return;
    }
    if (!lv.parent) return;
    AppendText(*lv.parent, pattern, out);
    AppendStep(lv, pattern, out);
  }
  static void AppendStep(const Level& lv, bool pattern, std::wstring& out) {
    if (lv.entry) {
      out += L'[';
      if (pattern) out += L'$', out += static_cast<wchar_t>(L'0' + lv.bound);
      else if (lv.index) out += str::to_wstring(static_cast<unsigned long long>(*lv.index));
      else out += str::to_wstring(lv.el.child("ID").child_value());
      out += L']';
      return;
    }
    if (lv.parent->parent) out += L'.';
    AppendName(out, lv.el.name());
  }
  static std::wstring Path(const Level& lv) {
    std::wstring out;
    AppendText(lv, false, out);
    return out;
  }
  static std::wstring Pattern(const Level& lv) {
    std::wstring out;
    AppendText(lv, true, out);
    return out;
  }

  // The level of child `c` of `parent` (at position `pos` among the
  // entries when `parent` is a collection; `first` is its first element);
  // `bad_index` for an entry whose ID is no record number.
  void ChildLevel(const Level& parent, pugi::xml_node c, pugi::xml_node first, std::uint64_t pos, Level& out,
                  bool& bad_index) {
    out.parent = &parent;
    out.el = c;
    out.layout = nullptr;
    out.tag = nullptr;
    out.member = nullptr;
    out.collection = false;
    out.odd = parent.odd;
    bad_index = false;
    if (parent.collection) {
      // An entry: its step is the collection's own, with its index.
      std::optional<std::uint64_t> index = pos;
      if (pugi::xml_node id = c.child("ID"); id && (!parent.member || KeyedByID(*parent.member))) {
        index = ParseIndex(id.child_value());
        if (index && *index == 0) index.reset();
      }
      bad_index = !index;
      out.entry = true;
      out.index = index;
      indices_.resize(parent.bound);
      indices_.push_back(index);
      out.bound = parent.bound + 1;
      if (out.odd) {
        out.odd_pattern.assign(parent.odd_pattern);
        AppendStep(out, true, out.odd_pattern);
        out.info = mig::Info(out.odd_pattern);
        out.prefix = mig::LookupPrefix(out.odd_pattern);
      } else {
        out.info = mig::InfoAtIndex(parent.info, out.bound);
        out.prefix = parent.prefix;  // a stem ends in a dot, never before an index
      }
      out.layout = parent.member && parent.member->HoldsRecords() ? &parent.member->record().Layout() : nullptr;
      return;
    }
    out.entry = false;
    out.index.reset();
    out.bound = parent.bound;
    bool odd_name = false;
    const std::string_view name = ScanName(c.name(), odd_name);
    if (out.odd || odd_name) {
      out.odd_pattern = out.odd ? parent.odd_pattern : Pattern(parent);
      out.odd = true;
      AppendStep(out, true, out.odd_pattern);
      out.info = mig::Info(out.odd_pattern);
      out.prefix = mig::LookupPrefix(out.odd_pattern);
    } else {
      out.info = mig::InfoBelow(parent.info, name);
      out.prefix = parent.info && parent.info->stem ? parent.info->stem : parent.prefix;
    }
    bool known = false;
    if (parent.layout) out.tag = parent.layout->Child(name);
    if (const oc::TagNode* n = out.tag) {
      known = true;
      if (!n->member) out.layout = n;
      else {
        out.member = n->member;
        if (n->member->type == oc::ValueType::Struct) out.layout = &n->member->record().Layout();
        out.collection = n->member->type == oc::ValueType::Table || n->member->type == oc::ValueType::Array;
        // The old layout may differ here (a single record where there is
        // a list now): a collection holds nothing but its entries.
        // (Its first element says which.)
        if (out.collection)
          if (first && n->member->element_tag_utf8 != first.name())
            out.collection = false, out.member = nullptr;
      }
    }
    // Where today's schema does not know the element, the table's keys say
    // whether it was a collection.
    if (!known) out.collection = out.info && out.info->collection;
  }

  // The entry for the element at `lv` (holding `text` when a leaf); the
  // enumerator entry when `enumerator` is set.
  const mig::Entry* Find(const Level& lv, pugi::xml_node el, bool leaf, bool& enumerator) {
    enumerator = false;
    const mig::PatternInfo* info = lv.info;
    // Only where some key names a step below the member.
    if (leaf && info && info->inner) {
      const char* text = el.child_value();
      if (*text) {
        // Keys hold no concrete index: with indices only the pattern can
        // match, without them pattern and path are one.
        std::wstring key = Pattern(lv);
        key += L'.';
        key += str::to_wstring(text);
        // (A ".*" key is no enumerator: "Entry" holding "*" is a value.)
        if (const mig::Entry* e = mig::Lookup(key); e && !e->IsPrefix()) return enumerator = true, e;
      }
    }
    if (info && info->entry) return info->entry;
    return lv.prefix;
  }

  // `pattern` with "$k" replaced by the k-th bound index of `lv`; false
  // when one of them is no record number.
  bool Substitute(std::wstring_view pattern, const Level& lv, std::wstring& out) const {
    out.clear();
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      if (pattern[i] == L'$' && i + 1 < pattern.size() && pattern[i + 1] >= L'1' && pattern[i + 1] <= L'9') {
        const std::size_t k = static_cast<std::size_t>(pattern[i + 1] - L'1');
        if (k >= lv.bound || !indices_[k]) return false;
        out += str::to_wstring(static_cast<unsigned long long>(*indices_[k]));
        ++i;
      } else {
        out += pattern[i];
      }
    }
    return true;
  }

  // The text of an unset value of an array member, made once per load.
  std::string_view PadOf(const oc::Member& m) {
    auto [it, added] = pads_.try_emplace(&m);
    if (added) {
      oc::ScalarBox box;
      const oc::ValueType t = m.element_type;
      if (t == oc::ValueType::Double) *static_cast<double*>(box.Slot(t)) = qvi::kNoValue;
      else if (t == oc::ValueType::Enum || t == oc::ValueType::Int32)
        *static_cast<std::int32_t*>(box.Slot(t)) = qvi::kNone;
      oc::FormatScalar(t, m.traits.enum_table, box.Slot(t), it->second);
    }
    return it->second;
  }

  // Step `name` (with `index` when `has_index`) after `prev`, with what the
  // schema says of it; `old_entry` is the old tree's entry for a collection
  // the schema does not know. `name` must outlive the step and end in a
  // NUL (an element's name, or text kept by the migration). Where the
  // step is old element `lv`'s own name from where its parent was, the
  // node the level found is taken.
  void MakeStep(const Step* prev, std::string_view name, bool has_index, std::uint64_t index,
                pugi::xml_node old_entry, Step& s, const Level* lv = nullptr) {
    s = Step{};
    s.name = name;
    s.has_index = has_index;
    s.index = index;
    Cursor c = prev ? prev->cur : Cursor{root_layout_, nullptr, false};
    if (!prev || prev->known)
      s.known = lv && lv->parent && name.data() == lv->el.name() && c.node == lv->parent->layout
                    ? AdvanceTo(c, lv->tag, has_index)
                    : Advance(c, s.name, has_index);
    if (s.known) s.cur = c;
    const oc::Member* m = s.known ? c.member : nullptr;
    if (m && (m->type == oc::ValueType::Table || m->type == oc::ValueType::Array)) {
      s.entry_tag = m->element_tag_utf8;
      s.by_id = KeyedByID(*m);
      if (!m->HoldsRecords()) s.pad = PadOf(*m);
    } else if (old_entry) {
      s.entry_tag = old_entry.name();
      s.by_id = static_cast<bool>(old_entry.child("ID"));
    } else {
      s.entry_tag = s.name;
    }
  }

  // Text kept for the steps that name it, until the load ends.
  std::string_view Keep(std::string text) { return kept_.emplace_back(std::move(text)); }

  // An entry's replacement as steps, parsed once per load: `var[i]` is k
  // for a step indexed by "$k", 0 for a fixed index or none.
  struct Template {
    bool made = false;
    bool ok = false;
    std::vector<Step> steps;
    std::vector<std::size_t> var;
    const oc::Member* member = nullptr;
    MigrationAction action = MigrationAction::Moved;
    std::string value;  // an enumerator entry's new value
  };
  const Template& TemplateOf(const mig::Entry& e, bool enumerator) {
    Template& t = templates_[mig::IndexOf(e) * 2 + (enumerator ? 1 : 0)];
    if (t.made) return t;
    t.made = true;
    std::wstring_view repl = e.replacement, key = e.key;
    if (enumerator) {
      t.value = str::to_utf8(repl.substr(repl.rfind(L'.') + 1));
      repl = repl.substr(0, repl.rfind(L'.'));
      key = key.substr(0, key.rfind(L'.'));
    }
    if (e.IsPrefix()) repl.remove_suffix(1);  // the dot
    std::vector<TextStep> text;
    if (!SplitPath(repl, text)) return t;
    for (const TextStep& ts : text) {
      std::size_t var = 0;
      std::uint64_t index = 0;
      if (ts.has_index) {
        if (ts.index.size() == 2 && ts.index[0] == L'$') var = static_cast<std::size_t>(ts.index[1] - L'0');
        else if (const auto parsed = ParseIndex(str::to_utf8(ts.index))) index = *parsed;
        else return t;
      }
      Step s;
      MakeStep(t.steps.empty() ? nullptr : &t.steps.back(), Keep(str::to_utf8(ts.name)), ts.has_index, index, {}, s);
      t.steps.push_back(s);
      t.var.push_back(var);
    }
    t.member = t.steps.back().known ? t.steps.back().cur.member : nullptr;
    if (!e.IsPrefix() && oc::GetParent(key) == oc::GetParent(repl)) t.action = MigrationAction::Renamed;
    t.ok = true;
    return t;
  }

  // Appends to `steps` (the replacement of ".*" entry `e`) the rest of the
  // path of `lv` below the entry's stem. False when it has none.
  bool AppendRest(const mig::Entry& e, const Level& lv, std::vector<Step>& steps) {
    // Most often the levels below the stem say it directly: names that are
    // single steps, entries with record numbers.
    std::size_t below = 0;
    bool direct = !lv.odd;
    const Level* stem = &lv;
    for (; stem && !(stem->info && stem->info->stem == &e); stem = stem->parent) {
      if (stem->entry && !stem->index) direct = false;
      ++below;
    }
    if (direct && stem && below > 0) {
      rest_.clear();
      for (const Level* l = &lv; l != stem; l = l->parent) rest_.push_back(l);
      if (rest_.back()->entry) return false;  // no name after the stem
      for (std::size_t i = rest_.size(); i-- > 0;) {
        const Level& l = *rest_[i];
        if (l.entry) return false;  // an index after an index
        const bool indexed = i > 0 && rest_[i - 1]->entry;
        Step s;
        MakeStep(&steps.back(), l.el.name(), indexed, indexed ? *rest_[i - 1]->index : 0, {}, s, &l);
        steps.push_back(s);
        if (indexed) --i;
      }
      return true;
    }
    // Otherwise the path as text, split as the table's paths are.
    std::wstring stem_text;
    Substitute(std::wstring_view(e.key).substr(0, e.key.size() - 1), lv, stem_text);
    const std::wstring path = Path(lv);
    if (stem_text.size() > path.size()) return false;
    std::vector<TextStep> rest;
    if (!SplitPath(std::wstring_view(path).substr(stem_text.size()), rest)) return false;
    for (const TextStep& ts : rest) {
      Step s;
      const auto index = ts.has_index ? ParseIndex(str::to_utf8(ts.index)) : std::optional<std::uint64_t>(0);
      MakeStep(&steps.back(), Keep(str::to_utf8(ts.name)), ts.has_index, index.value_or(0), {}, s);
      steps.push_back(s);
    }
    return true;
  }

  Children& EntriesOf(pugi::xml_node coll, const Step& s) {
    Children& ch = children_[coll.internal_object()];
    if (!ch.indexed) {
      ch.indexed = true;
      for (pugi::xml_node c = coll.child(s.entry_tag.data()); c; c = c.next_sibling(s.entry_tag.data())) {
        std::optional<std::uint64_t> index = ch.count;
        if (s.by_id) index = ParseIndex(c.child("ID").child_value());
        if (index) ch.Add(*index, c);
        ++ch.count;
      }
    }
    return ch;
  }

  // The element at the first `n` of `steps`, made where missing.
  // Placements come in runs below one record, and the values of one old
  // record go to a few places (the record, a shared one, a list of
  // values): the elements of the last few paths made are remembered, and a
  // path walks on from its longest common part with one of them.
  pugi::xml_node Ensure(const std::vector<Step>& steps, std::size_t n) {
    const auto common = [&](const std::vector<Made>& memo) {
      std::size_t i = 0;
      while (i < n && i < memo.size() && memo[i].has_index == steps[i].has_index &&
             memo[i].index == steps[i].index && memo[i].name == steps[i].name)
        ++i;
      return i;
    };
    // The path taken last, most often.
    std::size_t slot = last_, i = common(memos_[last_]);
    if (i < n)
      for (std::size_t k = 0; k < memos_.size(); ++k) {
        if (k == last_) continue;
        const std::size_t c = common(memos_[k]);
        if (c > i || (i == 0 && used_[k] < used_[slot])) slot = k, i = c;
      }
    last_ = slot;
    used_[slot] = ++clock_;
    std::vector<Made>& memo = memos_[slot];
    pugi::xml_node at = i ? memo[i - 1].node : root_;
    memo.resize(i);
    for (; i < n; ++i) {
      const Step& s = steps[i];
      pugi::xml_node next = at.child(s.name.data());
      at = next ? next : at.append_child(s.name.data());
      if (!s.has_index) {
        memo.push_back({std::string(s.name), false, 0, at});
        continue;
      }
      Children& entries = EntriesOf(at, s);
      pugi::xml_node e = entries.Find(s.index);
      if (!e) {
        if (s.by_id) {
          e = at.append_child(s.entry_tag.data());
          e.append_child("ID").text() = std::to_string(s.index).c_str();
          entries.Add(s.index, e);
          ++entries.count;
        } else {
          // Positions before the one asked for are filled with empty
          // entries (a record at its defaults, a value unset).
          while (entries.count <= s.index) {
            pugi::xml_node made = at.append_child(s.entry_tag.data());
            if (!s.pad.empty()) made.text() = s.pad.data();
            entries.Add(entries.count++, made);
          }
          e = entries.Find(s.index);
        }
      }
      at = e;
      memo.push_back({std::string(s.name), s.has_index, s.index, at});
    }
    return at;
  }

  // Places element `el` (moved from the old tree) as the last step of
  // `steps`: a value already there is replaced (the later wins), a record
  // already there takes `el`'s children.
  void Place(pugi::xml_node el, const std::vector<Step>& steps, bool leaf) {
    const Step& last = steps.back();
    if (last.has_index) {
      // The element becomes an entry of a collection.
      pugi::xml_node entry = Ensure(steps, steps.size());
      if (leaf) {
        entry.text() = el.child_value();
        return;
      }
      MoveChildren(el, entry);
      return;
    }
    pugi::xml_node parent = Ensure(steps, steps.size() - 1);
    if (pugi::xml_node there = parent.child(last.name.data())) {
      if (leaf || IsLeaf(there)) {
        Forget(there);
        parent.remove_child(there);
      } else {
        MoveChildren(el, there);
        return;
      }
    }
    if (last.name != el.name()) el.set_name(last.name.data());
    // A collection moved whole takes the entry name of its new place
    // ("GeometryItems.Edges" holds <Edge>, "GeometryItems.Lines" <Lines>).
    if (!leaf && last.known && last.cur.member &&
        (last.cur.member->type == oc::ValueType::Table || last.cur.member->type == oc::ValueType::Array))
      for (pugi::xml_node c = el.first_child(); c; c = c.next_sibling())
        if (c.type() == pugi::node_element && last.entry_tag != c.name()) c.set_name(last.entry_tag.data());
    parent.append_move(el);
  }

  // Drops what is remembered of `gone` and the elements below it, which are
  // about to be removed from the new tree.
  void Forget(pugi::xml_node gone) {
    // A remembered path runs from the root: `gone` is on it, or nothing
    // below it is.
    for (std::vector<Made>& memo : memos_)
      for (std::size_t i = 0; i < memo.size(); ++i)
        if (memo[i].node == gone) {
          memo.resize(i);
          break;
        }
    if (children_.empty()) return;
    children_.erase(gone.internal_object());
    for (pugi::xml_node c = FirstElement(gone); c;) {
      children_.erase(c.internal_object());
      if (pugi::xml_node down = FirstElement(c)) {
        c = down;
        continue;
      }
      while (c != gone && !NextElement(c)) c = c.parent();
      if (c == gone) break;
      c = NextElement(c);
    }
  }

  void MoveChildren(pugi::xml_node from, pugi::xml_node to) {
    children_.erase(to.internal_object());  // gathered again on next use
    while (pugi::xml_node c = from.first_child()) {
      if (c.type() == pugi::node_element && std::string_view(c.name()) == "ID" && to.child("ID")) {
        from.remove_child(c);
        continue;
      }
      to.append_move(c);
    }
  }

  // Checks the text of value `el` (at `lv`), moved by entry `e`, against
  // the member `m` it lands in.
  void Check(pugi::xml_node el, const Level& lv, const mig::Entry& e, bool enumerator, const oc::Member* m) {
    // Any text is a string.
    if (!m || !oc::IsScalar(m->ScalarType()) || m->ScalarType() == oc::ValueType::WString) return;
    const char* text = el.child_value();
    // The few enumerator texts of a document recur in every record: each
    // is looked up in its table once.
    const bool enumeration = m->ScalarType() == oc::ValueType::Enum && m->traits.enum_table;
    if (enumeration && known_enumerators_.contains(EnumText{m->traits.enum_table, text})) return;
    oc::ScalarBox box;
    gtl::status warning;
    const bool parsed = oc::ParseScalar(m->ScalarType(), m->traits.enum_table, text, box.Slot(m->ScalarType()), warning);
    if (parsed && warning.succeeded()) {
      if (enumeration) known_enumerators_.insert(EnumText{m->traits.enum_table, text});
      return;
    }
    // The paths, for the message.
    const std::wstring old_path = Path(lv);
    std::wstring_view repl = e.replacement;
    if (enumerator) repl = repl.substr(0, repl.rfind(L'.'));
    std::wstring new_path;
    Substitute(repl, lv, new_path);
    if (e.IsPrefix()) {
      std::wstring stem;
      Substitute(std::wstring_view(e.key).substr(0, e.key.size() - 1), lv, stem);
      if (stem.size() <= old_path.size()) new_path += old_path.substr(stem.size());
    }
    if (!parsed) {
      err_.ReportError(gtl::status::error(kMsgWrongType, str::to_wstring(text), old_path, Line(el),
                                          oc::TypeName(m->ScalarType()), new_path));
      return;
    }
    if (!warning.succeeded() && m->traits.enum_table)
      err_.ReportError(gtl::status::warning(kMsgUnknownEnumerator, str::to_wstring(text), old_path, Line(el),
                                            m->traits.enum_table->EnumName(), new_path));
  }

  void Tally(const mig::Entry& e, MigrationAction action, std::size_t values) {
    Count& c = counts_[mig::IndexOf(e)];
    c.used = true;
    c.action = action;
    c.values += values;
  }

  // Moves the children of old element `el` (at `lv`) to their places below
  // the new path `to`.
  void Walk(pugi::xml_node el, const Level& lv, std::vector<Step>& to, std::size_t depth) {
    if (depth > kMaxDepth) {
      err_.ReportError(gtl::status::error(kMsgTooDeep, Path(lv), Line(el)));
      return;
    }
    std::uint64_t pos = 0;
    Level child;
    // The steps of an entry's replacement, in a buffer of this depth that
    // the walks of the elements of this depth share.
    if (step_buffers_.size() <= depth) step_buffers_.resize(depth + 1);
    std::vector<Step>& steps = step_buffers_[depth];
    // Handling an element moves nothing but itself and what it holds: its
    // next sibling is taken first.
    pugi::xml_node next;
    for (pugi::xml_node c = FirstElement(el); c; c = next) {
      next = NextElement(c);
      bool bad_index = false;
      if (lv.collection && std::string_view(c.name()) == "ID") continue;  // not an entry
      const pugi::xml_node first = FirstElement(c);
      const bool leaf = !first;
      ChildLevel(lv, c, first, pos, child, bad_index);
      if (lv.collection) ++pos;
      bool enumerator = false;
      const mig::Entry* e = Find(child, c, leaf, enumerator);
      // An entry that moves an element into an entry of its own name
      // ("ShakeItems" becomes "ShakeItems[1].Entry") is for the old single
      // record; an element that already holds today's entries stays.
      if (e && child.collection && child.member && e->replacement.find(L'[') != std::wstring::npos &&
          e->replacement.starts_with(Path(child) + L"["))
        e = nullptr;
      if (e && e->Dropped()) {
        Tally(*e, MigrationAction::Dropped, Leaves(c));
        continue;
      }
      if (e) {
        const Template& t = TemplateOf(*e, enumerator);
        if (!t.ok) continue;  // only a malformed table could get here
        steps = t.steps;
        bool bound = true;
        for (std::size_t i = 0; i < steps.size(); ++i)
          if (t.var[i]) {
            const std::size_t k = t.var[i] - 1;
            if (k >= child.bound || !indices_[k]) bound = false;
            else steps[i].index = *indices_[k];
          }
        if (!bound) {
          err_.ReportError(gtl::status::error(kMsgBadIndex, str::to_wstring(c.child("ID").child_value()),
                                              Path(child), Line(c), e->replacement));
          continue;
        }
        const oc::Member* member = t.member;
        if (e->IsPrefix()) {
          if (!AppendRest(*e, child, steps)) continue;
          member = steps.back().known ? steps.back().cur.member : nullptr;
        }
        if (!WithinReach(steps, child, c)) continue;
        Tally(*e, t.action, leaf ? 1 : Leaves(c));
        if (enumerator) c.text() = t.value.c_str();
        // Checked where it was read: the line is that of the old file.
        if (leaf) Check(c, child, *e, enumerator, member);
        if (!leaf && child.info && child.info->inner) {
          // A record stays a record where it goes, even when all it held
          // moves on; a wrapper is made only when something lands in it.
          if (steps.back().has_index) Ensure(steps, steps.size());
          Walk(c, child, steps, depth + 1);
          continue;
        }
        Place(c, steps, leaf);
        continue;
      }
      // No entry: the element stays where its parent went. `to` is the
      // path of the parent and grows by the child's step while it is
      // handled.
      if (lv.collection) {
        if (bad_index) {
          // A value below that an entry would move needs the index.
          Level kl;
          bool unused = false;
          for (pugi::xml_node k = FirstElement(c); k; k = NextElement(k)) {
            const pugi::xml_node kf = FirstElement(k);
            ChildLevel(child, k, kf, 0, kl, unused);
            bool en = false;
            const mig::Entry* ke = Find(kl, k, !kf, en);
            if (ke && !ke->Dropped() && ke->replacement.find(L'$') != std::wstring::npos)
              err_.ReportError(gtl::status::error(kMsgBadIndex, str::to_wstring(c.child("ID").child_value()),
                                                  Path(kl), Line(k), ke->replacement));
          }
          // Left as it is, for the reader to report.
          pugi::xml_node coll = Ensure(to, to.size());
          children_.erase(coll.internal_object());
          coll.append_move(c);
          continue;
        }
        Step s;
        MakeStep(to.size() > 1 ? &to[to.size() - 2] : nullptr, to.back().name, true, *child.index, c, s, &lv);
        if (!s.known && lv.member) s.by_id = KeyedByID(*lv.member);
        std::swap(to.back(), s);
        if (!WithinReach(to, child, c)) {
          std::swap(to.back(), s);
          continue;
        }
        Stay(c, child, to, leaf, depth);
        std::swap(to.back(), s);
      } else {
        // An entry's own ID was written with the entry where it went.
        if (leaf && !to.empty() && to.back().has_index && to.back().by_id && std::strcmp(c.name(), "ID") == 0)
          continue;
        Step s;
        MakeStep(to.empty() ? nullptr : &to.back(), c.name(), false, 0, {}, s, &child);
        to.push_back(s);
        Stay(c, child, to, leaf, depth);
        to.pop_back();
      }
    }
  }

  // False, with an error, when a step of the new path `steps` of old
  // element `c` (at `lv`) asks for a position of a list that only
  // entries made up to it could reach: a list is filled with unset
  // entries up to a position, and no document of this size holds that
  // many (an ID taken as a position, as an analysis's for its entry of an
  // upgrade list, exceeds the records by no more than a table's spare
  // numbers).
  bool WithinReach(const std::vector<Step>& steps, const Level& lv, pugi::xml_node c) {
    for (const Step& s : steps) {
      if (!s.has_index || s.by_id || s.index <= max_position_) continue;
      std::wstring new_path;
      for (const Step& t : steps) {
        if (!new_path.empty()) new_path += L'.';
        new_path += str::to_wstring(t.name);
        if (t.has_index) new_path += L'[' + str::to_wstring(static_cast<unsigned long long>(t.index)) + L']';
      }
      err_.ReportError(gtl::status::error(kMsgTooFar, str::to_wstring(static_cast<unsigned long long>(s.index)),
                                          Path(lv), Line(c), new_path));
      return false;
    }
    return true;
  }

  // Element `c` (at `lv`) without an entry, at `to`.
  void Stay(pugi::xml_node c, const Level& lv, std::vector<Step>& to, bool leaf, std::size_t depth) {
    if (!leaf && lv.info && lv.info->inner) {
      if (to.back().has_index) Ensure(to, to.size());
      Walk(c, lv, to, depth + 1);
    } else {
      Place(c, to, leaf);
    }
  }

  pugi::xml_document& doc_;
  oc::xml::ReadReport read_;
  oc::xml::impl::XMLError err_;
  MigrationReport& report_;
  const oc::TagNode* root_layout_ = &RootLayout();
  pugi::xml_node root_;
  std::unordered_map<void*, Children> children_;
  std::vector<Count> counts_;                     // by entry
  std::vector<Template> templates_;               // by entry, then without or with enumerator
  std::vector<std::optional<std::uint64_t>> indices_;  // bound by the levels of the walk, outermost first
  std::unordered_map<const oc::Member*, std::string> pads_;
  struct EnumText {
    const void* table;
    std::string text;
    bool operator==(const EnumText&) const = default;
  };
  struct EnumTextHash {
    std::size_t operator()(const EnumText& e) const {
      return std::hash<std::string>()(e.text) ^ std::hash<const void*>()(e.table);
    }
  };
  std::unordered_set<EnumText, EnumTextHash> known_enumerators_;  // texts that name a value
  std::deque<std::string> kept_;
  std::vector<const Level*> rest_;
  std::deque<std::vector<Step>> step_buffers_;  // by depth
  struct Made {
    std::string name;
    bool has_index;
    std::uint64_t index;
    pugi::xml_node node;
  };
  std::array<std::vector<Made>, 4> memos_;
  std::array<std::uint64_t, 4> used_{};  // when each was last taken
  std::uint64_t clock_ = 0;
  std::size_t last_ = 0;                 // the one taken last
  std::uint64_t max_position_;           // the farthest list position a document of its size may ask for
};

}  // namespace

bool IsEarlierGenerationVersion(std::wstring_view version) {
  // The leading number: "0.9" is of the earlier generation, "1.0" of this.
  std::size_t i = 0;
  while (i < version.size() && version[i] == L' ') ++i;
  if (i == version.size() || version[i] < L'0' || version[i] > L'9') return false;
  std::uint64_t major = 0;
  for (; i < version.size() && version[i] >= L'0' && version[i] <= L'9' && major < 100; ++i)
    major = major * 10 + static_cast<std::uint64_t>(version[i] - L'0');
  return major < 1;
}

bool IsEarlierGeneration(const pugi::xml_document& doc) {
  const pugi::xml_node root = doc.document_element();
  if (!root || std::string_view(root.name()) != "QVDocument") return false;
  const pugi::xml_attribute v = root.attribute("Version");
  return v && IsEarlierGenerationVersion(str::to_wstring(v.value()));
}

gtl::status MigrateDocument(pugi::xml_document& doc, std::string_view source, MigrationReport& report) {
  report = MigrationReport{};
  if (auto s = RegisterDocumentSchema(); s.failed()) return s;
  return Migrator(doc, source, report).Run();
}

SchemaResolution ResolveInSchema(std::wstring_view pattern, const oc::Member** member) {
  const bool prefix = pattern.ends_with(L".");
  if (prefix) pattern.remove_suffix(1);
  std::vector<TextStep> text;
  if (!SplitPath(pattern, text)) return SchemaResolution::None;
  Cursor c{&RootLayout(), nullptr, false};
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string name = str::to_utf8(text[i].name);
    const oc::Member* before = c.member;
    if (Advance(c, name, text[i].has_index)) continue;
    // The last step may be a value of an enumeration member.
    if (i + 1 == text.size() && !prefix && i > 0 && before && before->traits.enum_table &&
        !text[i].has_index && !c.element) {
      std::int32_t v = 0;
      gtl::status w;
      if (oc::ParseScalar(oc::ValueType::Enum, before->traits.enum_table, name, &v, w) && w.succeeded()) {
        if (member) *member = before;
        return SchemaResolution::Enumerator;
      }
    }
    return SchemaResolution::None;
  }
  if (member) *member = c.member;
  if (prefix) return c.node ? SchemaResolution::Prefix : SchemaResolution::None;
  return SchemaResolution::Member;
}

}  // namespace v7::files
