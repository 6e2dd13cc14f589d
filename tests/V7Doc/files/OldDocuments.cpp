#include "tests/V7Doc/files/OldDocuments.h"

#include <pugixml.hpp>
#include <sstream>

#include "OC/Scalar.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/Migration.h"
#include "V7Doc/files/MigrationTable.h"

namespace v7::files::testing {
namespace {
namespace mig = migration;

struct Leaf {
  std::wstring path;
  std::string text;
  std::string entry_tag;  // of the last collection on the path, when the old schema is not today's
  bool by_id = true;
};

struct Probe {
  const mig::Entry* entry = nullptr;
  std::vector<Leaf> old_leaves, new_leaves;
  std::vector<std::wstring> scaffold;  // collection entries left behind, at their new paths
};

const oc::Member* MemberAt(const std::wstring& path) {
  const oc::Member* m = nullptr;
  return ResolveInSchema(path, &m) == SchemaResolution::Member ? m : nullptr;
}
bool IsCollection(const oc::Member* m) {
  return m && (m->type == oc::ValueType::Table || m->type == oc::ValueType::Array);
}
// Entries of an unknown (old) collection carry their ID.
bool ByID(const oc::Member* m) {
  if (!IsCollection(m)) return true;
  return m->type == oc::ValueType::Table || (m->HoldsRecords() && m->record().Layout().Child("ID"));
}
std::wstring Singular(const std::wstring& name) {
  return name.size() > 1 && name.back() == L's' ? name.substr(0, name.size() - 1) : name + L"Item";
}

// `key` with "$k" bound: a record number (3) in collections whose entries
// carry an ID, the first position (0) in the others.
std::wstring Bind(const std::wstring& key, std::vector<std::wstring>* values = nullptr) {
  std::wstring out;
  for (std::size_t i = 0; i < key.size(); ++i) {
    if (key[i] == L'$' && i + 1 < key.size()) {
      const wchar_t* v = ByID(MemberAt(out.substr(0, out.size() - 1))) ? L"3" : L"0";
      if (values) values->push_back(v);
      out += v;
      ++i;
    } else {
      out += key[i];
    }
  }
  return out;
}
// `pattern` with "$k" replaced by values[k-1].
std::wstring Fill(const std::wstring& pattern, const std::vector<std::wstring>& values) {
  std::wstring out;
  for (std::size_t i = 0; i < pattern.size(); ++i)
    if (pattern[i] == L'$' && i + 1 < pattern.size()) out += values.at(static_cast<std::size_t>(pattern[++i] - L'1'));
    else out += pattern[i];
  return out;
}

// A value of `m`'s type that is not its default.
std::string ValueFor(const oc::Member& m, int k) {
  switch (m.ScalarType()) {
    case oc::ValueType::Bool: return m.type == oc::ValueType::Bool && m.def.b ? "false" : "true";
    case oc::ValueType::Int32:
    case oc::ValueType::Int64:
    case oc::ValueType::UInt32: return std::to_string(7 + k);
    case oc::ValueType::Double: {
      std::ostringstream s;
      s << 0.5 + k / 1024.0;
      return s.str();
    }
    case oc::ValueType::WString: return "Text " + std::to_string(k);
    case oc::ValueType::Enum:
      for (const auto& e : m.traits.enum_table->Entries())
        if (e.traits == 0 && !(m.type == oc::ValueType::Enum && e.value == m.def.i32)) return str::to_utf8(e.name);
      return "";
    default: return "";
  }
}

// The tag path of a value below a record of `type` (a direct value
// first, else the first of a nested record), "" when there is none.
std::wstring ValueBelow(const oc::RecordType& type, int depth = 0) {
  if (depth > 4) return L"";
  for (const auto& m : type.Members())
    if (oc::IsScalar(m->type)) return m->persist.tag;
  for (const auto& m : type.Members())
    if (m->type == oc::ValueType::Struct)
      if (std::wstring rest = ValueBelow(m->record(), depth + 1); !rest.empty()) return m->persist.tag + L"." + rest;
  return L"";
}

// Relative paths and values that fill the member at `path`.
std::vector<Leaf> Content(const std::wstring& path, int k) {
  const oc::Member* m = MemberAt(path);
  if (!m) return {};
  const bool element = path.back() == L']';
  if (oc::IsScalar(m->type) || (element && !m->HoldsRecords())) return {{L"", ValueFor(*m, k)}};
  if (m->type == oc::ValueType::Struct || element)
    return {{L"." + ValueBelow(m->record()), ValueFor(*MemberAt(path + L"." + ValueBelow(m->record())), k)}};
  const std::wstring index = ByID(m) ? L"[3]" : L"[0]";
  if (!m->HoldsRecords()) return {{index, ValueFor(*m, k), m->element_tag_utf8, ByID(m)}};
  const std::wstring below = index + L"." + ValueBelow(m->record());
  return {{below, ValueFor(*MemberAt(path + below), k), m->element_tag_utf8, ByID(m)}};
}

// Where each collection entry on `old_path` goes when the table is applied
// path by path (an element without an entry follows its parent).
std::vector<std::wstring> Scaffold(const std::wstring& old_path) {
  std::vector<std::wstring> out;
  std::wstring dest, pattern, prefix;
  std::vector<std::wstring> bound;
  for (std::size_t i = 0; i <= old_path.size(); ++i) {
    if (i < old_path.size() && old_path[i] != L'.' && old_path[i] != L'[') continue;
    const std::wstring p = old_path.substr(0, i);
    const std::wstring step = p.substr(prefix.size());
    std::wstring pat = pattern + step;
    if (!step.empty() && step[0] == L'[') {
      bound.push_back(step.substr(1, step.size() - 2));
      pat = pattern + L"[$" + std::to_wstring(bound.size()) + L"]";
    }
    const mig::Entry* e = mig::Lookup(p);
    if (!e) e = mig::Lookup(pat);
    if (!e) e = mig::LookupPrefix(pat);
    // Not for a collection already in today's form (an index follows).
    if (e && i < old_path.size() && old_path[i] == L'[' && e->replacement.starts_with(p + L"[")) e = nullptr;
    if (e) {
      if (e->Dropped()) return out;
      std::wstring r = Fill(e->replacement, bound);
      if (e->IsPrefix()) r += p.substr(Fill(e->key.substr(0, e->key.size() - 1), bound).size());
      dest = r;
    } else {
      dest += step;
    }
    if (i < old_path.size() && !step.empty() && step[0] == L'[') out.push_back(dest);
    prefix = p;
    pattern = pat;
  }
  return out;
}

Probe MakeProbe(const mig::Entry& e, int k) {
  Probe p;
  p.entry = &e;
  const std::wstring old_path = Bind(e.key);
  const oc::Member* en = nullptr;
  if (e.Dropped()) {
    p.old_leaves.push_back({old_path, "9"});
  } else if (e.IsPrefix()) {
    const oc::Member* target = nullptr;
    ResolveInSchema(e.replacement, &target);
    const std::wstring rest = ValueBelow(target->record());
    const std::wstring stem = old_path.substr(0, old_path.size() - 1);
    const std::string v = ValueFor(*MemberAt(e.replacement + rest), k);
    p.old_leaves.push_back({stem + rest, v});
    p.new_leaves.push_back({e.replacement + rest, v});
  } else if (ResolveInSchema(e.replacement, &en) == SchemaResolution::Enumerator) {
    std::vector<std::wstring> values;
    Bind(e.key, &values);
    const std::wstring new_path = Fill(e.replacement, values);
    const std::size_t od = old_path.rfind(L'.'), nd = new_path.rfind(L'.');
    p.old_leaves.push_back({old_path.substr(0, od), str::to_utf8(old_path.substr(od + 1))});
    p.new_leaves.push_back({new_path.substr(0, nd), str::to_utf8(new_path.substr(nd + 1))});
  } else {
    std::vector<std::wstring> values;
    Bind(e.key, &values);
    const std::wstring new_path = Fill(e.replacement, values);
    for (const Leaf& c : Content(new_path, k)) {
      p.old_leaves.push_back({old_path + c.path, c.text, c.entry_tag, c.by_id});
      p.new_leaves.push_back({new_path + c.path, c.text});
    }
    // A replacement below a dropped collection: the value goes with it.
    if (p.old_leaves.empty()) p.old_leaves.push_back({old_path, "Text " + std::to_string(k)});
  }
  // An entry's "ID" is its index: a value there must be the index itself.
  auto index_of_id = [](Leaf& l) {
    if (!l.path.ends_with(L"].ID")) return;
    const std::size_t open = l.path.rfind(L'[');
    l.text = str::to_utf8(l.path.substr(open + 1, l.path.size() - open - 5));
  };
  for (std::size_t i = 0; i < p.old_leaves.size(); ++i) {
    index_of_id(p.old_leaves[i]);
    if (i < p.new_leaves.size() && p.old_leaves[i].path.ends_with(L"].ID")) p.new_leaves[i].text = p.old_leaves[i].text;
  }
  for (const Leaf& l : p.old_leaves)
    for (std::wstring& s : Scaffold(l.path))
      // An entry left where today's schema has nothing is read as unknown
      // and skipped: it has no place in the current form.
      if (MemberAt(s.substr(0, s.rfind(L'[')))) p.scaffold.push_back(std::move(s));
  return p;
}

bool Related(const std::wstring& a, const std::wstring& b) {
  const std::wstring& s = a.size() < b.size() ? a : b;
  const std::wstring& l = a.size() < b.size() ? b : a;
  return l.starts_with(s) && (l.size() == s.size() || l[s.size()] == L'.' || l[s.size()] == L'[');
}
// One element used as a record by one path and as a collection by the
// other ("StabItems.SlipEntryExit" and "StabItems[3].Entry"): the two
// layouts of the old files, which no one document mixes.
bool Shapes(const std::wstring& a, const std::wstring& b) {
  std::size_t i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  if (i == a.size() || i == b.size()) return false;
  return (a[i] == L'.' && b[i] == L'[') || (a[i] == L'[' && b[i] == L'.');
}
bool Conflict(const Probe& a, const Probe& b) {
  for (const Leaf& l : a.old_leaves)
    for (const Leaf& m : b.old_leaves)
      if (Shapes(l.path, m.path)) return true;
  for (const auto* x : {&a.old_leaves, &a.new_leaves})
    for (const auto* y : {&b.old_leaves, &b.new_leaves})
      for (const Leaf& l : *x)
        for (const Leaf& m : *y)
          if (Related(l.path, m.path)) return true;
  return false;
}

// Puts `text` at `path` below `root`, making the elements on the way.
void Put(pugi::xml_node root, const std::wstring& path, const std::string* text, const Leaf* hint = nullptr) {
  pugi::xml_node at = root;
  std::wstring walked;
  std::size_t i = 0;
  while (i < path.size()) {
    const std::size_t end = path.find_first_of(L".[", i);
    const std::wstring name = path.substr(i, end == std::wstring::npos ? std::wstring::npos : end - i);
    walked += (walked.empty() ? L"" : L".") + name;
    const std::string n8 = str::to_utf8(name);
    pugi::xml_node next = at.child(n8.c_str());
    if (!next) next = at.append_child(n8.c_str());
    at = next;
    i = end == std::wstring::npos ? path.size() : end;
    if (i < path.size() && path[i] == L'[') {
      const std::size_t close = path.find(L']', i);
      const std::string index = str::to_utf8(path.substr(i + 1, close - i - 1));
      const oc::Member* m = MemberAt(walked);
      const bool last_index = path.find(L'[', close) == std::wstring::npos;
      const bool hinted = !IsCollection(m) && hint && !hint->entry_tag.empty() && last_index;
      const std::string tag = IsCollection(m) ? m->element_tag_utf8
                              : hinted        ? hint->entry_tag
                                              : str::to_utf8(Singular(name));
      pugi::xml_node entry;
      if (hinted ? hint->by_id : ByID(m)) {
        for (pugi::xml_node c = at.child(tag.c_str()); c && !entry; c = c.next_sibling(tag.c_str()))
          if (index == c.child_value("ID")) entry = c;
        if (!entry) {
          entry = at.append_child(tag.c_str());
          entry.append_child("ID").text() = index.c_str();
        }
      } else {
        std::size_t count = 0;
        for (pugi::xml_node c = at.child(tag.c_str()); c; c = c.next_sibling(tag.c_str())) {
          if (std::to_string(count) == index) entry = c;
          ++count;
        }
        while (!entry) {
          pugi::xml_node made = at.append_child(tag.c_str());
          // Unset values before the one asked for.
          if (m && m->element_type == oc::ValueType::Double) made.text() = "1.7976931348623157e+308";
          if (std::to_string(count++) == index) entry = made;
        }
      }
      walked += L"[" + path.substr(i + 1, close - i - 1) + L"]";
      at = entry;
      i = close + 1;
    }
    if (i < path.size() && path[i] == L'.') ++i;
  }
  if (text) at.text() = text->c_str();
}

std::string Text(const pugi::xml_document& d) {
  std::ostringstream s;
  d.save(s, "  ", pugi::format_default, pugi::encoding_utf8);
  return s.str();
}

}  // namespace

std::vector<GeneratedDocument> GenerateOldDocuments() {
  std::vector<std::vector<Probe>> packed;
  int k = 0;
  for (const mig::Entry& e : mig::Entries()) {
    Probe p = MakeProbe(e, k++);
    if (p.old_leaves.empty()) continue;
    std::size_t d = 0;
    for (; d < packed.size(); ++d) {
      bool clash = false;
      for (const Probe& q : packed[d]) clash = clash || Conflict(p, q);
      if (!clash) break;
    }
    if (d == packed.size()) packed.emplace_back();
    packed[d].push_back(std::move(p));
  }
  std::vector<GeneratedDocument> out;
  for (std::size_t d = 0; d < packed.size(); ++d) {
    pugi::xml_document old_doc, new_doc;
    pugi::xml_node old_root = old_doc.append_child("QVDocument");
    old_root.append_attribute("Version") = "0.9";
    pugi::xml_node new_root = new_doc.append_child("QVDocument");
    new_root.append_attribute("Version") = "1.0";
    GeneratedDocument g;
    g.name = (d < 9 ? "old_0" : "old_") + std::to_string(d + 1);
    // Three analyses in every document, for the per-analysis items to
    // belong to.
    for (int a = 1; a <= 3; ++a) {
      const std::string name = "Analysis " + std::to_string(a);
      Put(old_root, L"Analyses[" + std::to_wstring(a) + L"].Name", &name);
      Put(new_root, L"Analyses[" + std::to_wstring(a) + L"].Name", &name);
    }
    for (const Probe& p : packed[d]) {
      g.keys.push_back(p.entry->key);
      for (const Leaf& l : p.old_leaves) Put(old_root, l.path, &l.text, &l);
      for (const std::wstring& s : p.scaffold) Put(new_root, s, nullptr);
      for (const Leaf& l : p.new_leaves) Put(new_root, l.path, &l.text);
    }
    g.old_xml = Text(old_doc);
    g.current_xml = Text(new_doc);
    out.push_back(std::move(g));
  }
  return out;
}

}  // namespace v7::files::testing
