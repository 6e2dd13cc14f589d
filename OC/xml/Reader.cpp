// Reading walks the XML tree and the declarations together: each element is
// looked up among the children of the layout node it belongs to, so the
// cost is linear in the file and no path text is built unless a problem is
// reported.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <deque>
#include <pugixml.hpp>
#include <unordered_map>

#include "OC/OCError.h"
#include "OC/Registry.h"
#include "OC/xml/XML.h"

#include "OC/package/AtomicFile.h"
#include "OC/xml/XMLError.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"

namespace oc::xml {
namespace {
constexpr unsigned kMsgUnknownElement = 31003;
constexpr unsigned kMsgMalformedValue = 31004;
constexpr unsigned kMsgParseError = 31006;
constexpr unsigned kMsgWrongRoot = 31007;
constexpr unsigned kMsgDuplicateID = 31008;
constexpr unsigned kMsgInvalidID = 31009;
constexpr unsigned kMsgOutOfBoundsRead = 31012;
constexpr unsigned kMsgUnknownEnumName = 31013;
constexpr unsigned kMsgTooDeep = 31014;
constexpr unsigned kMsgMissingID = 31015;
constexpr unsigned kMsgDeletedOnRead = 31017;
constexpr unsigned kMsgUnknownMakesDeleted = 31018;
constexpr unsigned kMsgRefusedValue = 31032;
constexpr unsigned kMsgAt = 31040;
constexpr unsigned kMsgTooManyElements = 31042;
constexpr unsigned kMsgNotFinite = 31062;
constexpr unsigned kMsgAfterRoot = 31064;
constexpr unsigned kMsgIDTooHigh = 31066;
constexpr unsigned kMsgNotUtf8 = 31067;
constexpr unsigned kMsgNulReference = 31068;

// Elements deeper than this are refused: a declaration tree is far
// shallower, and recursion must stay bounded on hostile input.
constexpr std::size_t kMaxDepth = 128;
// IDs above the number of records leave empty slots (rows deleted and never
// compacted), and every slot costs a whole record. A table may leave as many
// empty slots as it has records, or kMinSlack when that is more; over the
// whole read, empty slots may take kGapBytesFloor plus kGapBytesPerInputByte
// bytes per byte of input. Beyond that an ID is refused: memory stays
// proportional to the file, whatever IDs it claims.
constexpr std::size_t kMinSlack = 1024;
constexpr std::size_t kGapBytesFloor = std::size_t{64} << 20;
constexpr std::size_t kGapBytesPerInputByte = 32;

// True when element name `name` is `tag`. Inline and stopping at the first
// difference: called once per element, where a strcmp call cost more than
// the comparison itself.
bool SameName(const std::string& tag, const char* name) {
  const std::size_t n = tag.size();
  for (std::size_t i = 0; i < n; ++i)
    if (name[i] != tag[i]) return false;  // also stops at name's end
  return name[n] == '\0';
}

// The offset of the first byte of `s` that is not part of well-formed UTF-8
// (RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF), or
// npos. A text that is not UTF-8 would be read with replacement characters
// and written back changed, so it is refused instead.
std::size_t InvalidUtf8At(std::string_view s) {
  std::size_t i = 0;
  while (i < s.size()) {
    const auto b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
      ++i;
      continue;
    }
    std::size_t n = 0;
    unsigned char lo = 0x80, hi = 0xBF;  // bounds of the second byte
    if (b >= 0xC2 && b <= 0xDF) n = 1;
    else if (b == 0xE0) n = 2, lo = 0xA0;
    else if (b == 0xED) n = 2, hi = 0x9F;
    else if (b >= 0xE1 && b <= 0xEF) n = 2;
    else if (b == 0xF0) n = 3, lo = 0x90;
    else if (b >= 0xF1 && b <= 0xF3) n = 3;
    else if (b == 0xF4) n = 3, hi = 0x8F;
    else return i;
    for (std::size_t k = 1; k <= n; ++k) {
      if (i + k >= s.size()) return i;
      const auto c = static_cast<unsigned char>(s[i + k]);
      if (k == 1 ? (c < lo || c > hi) : (c < 0x80 || c > 0xBF)) return i;
    }
    i += n + 1;
  }
  return std::string_view::npos;
}

// The offset of the first character reference to NUL ("&#0;", "&#x00;"),
// or npos.
std::size_t NulReferenceAt(std::string_view xml) {
  for (std::size_t at = xml.find("&#"); at != std::string_view::npos; at = xml.find("&#", at + 2)) {
    std::size_t i = at + 2;
    const bool hex = i < xml.size() && (xml[i] == 'x' || xml[i] == 'X');
    if (hex) ++i;
    const std::size_t digits = i;
    while (i < xml.size() && xml[i] == '0') ++i;
    if (i > digits && i < xml.size() && xml[i] == ';') return at;
  }
  return std::string_view::npos;
}

// The first `n` bytes of `text` after its leading blanks, for a message.
std::string_view TrimmedStart(std::string_view text, std::size_t n) {
  const std::size_t b = text.find_first_not_of(" \t\r\n");
  return b == std::string_view::npos ? std::string_view() : text.substr(b, n);
}

struct Frame {
  const std::wstring* name;
  std::uint64_t index;
  bool has_index;
};

class Reader {
 public:
  Reader(impl::XMLError& err, std::size_t input_bytes, KeptTexts& kept)
      : err_(err), kept_(kept), gap_budget_(kGapBytesFloor + kGapBytesPerInputByte * input_bytes) {}

  // Reads `el` into `rec`. `fresh` says that `rec` holds its type's
  // defaults (just made, or just reset), which lets nested records skip
  // their own reset when it would change nothing.
  void ReadRecord(const RecordType& type, void* rec, pugi::xml_node el, bool table_record, bool fresh) {
    ReadGroup(type.Layout(), rec, el, table_record, fresh);
  }

 private:
  struct Item {
    std::size_t rank;
    const TagNode* node;
    pugi::xml_node el;
  };

  std::wstring Where() const {
    std::wstring w;
    for (const auto& f : stack_) {
      if (f.name) {
        if (!w.empty()) w += L'.';
        w += *f.name;
      }
      if (f.has_index) w += L"[" + str::to_wstring(static_cast<unsigned long long>(f.index)) + L"]";
    }
    return w.empty() ? L"(root)" : w;
  }
  std::wstring Line(pugi::xml_node el) {
    const std::size_t line = err_.Line(el.offset_debug());
    return line ? str::to_wstring(static_cast<unsigned long long>(line)) : L"?";
  }
  void Unknown(pugi::xml_node el) {
    const std::wstring where = Where();
    err_.ReportError(gtl::status::warning(kMsgUnknownElement, str::to_wstring(el.name()), where, Line(el)));
  }

  bool Enter(pugi::xml_node el) {
    if (stack_.size() < kMaxDepth) return true;
    err_.ReportError(gtl::status::error(kMsgTooDeep, static_cast<unsigned long long>(kMaxDepth), Where(), Line(el)));
    return false;
  }

  // `fresh` is the record's state on entry and is cleared once anything may
  // have moved a member away from its default before it is read: the same
  // element met twice, or a setter (which may touch other members).
  void ReadGroup(const TagNode& group, void* rec, pugi::xml_node el, bool table_record, bool& fresh) {
    if (!Enter(el)) return;
    if (buffers_.size() <= stack_.size()) buffers_.resize(stack_.size() + 1);
    std::vector<Item>& items = buffers_[stack_.size()];
    items.clear();
    bool sorted = true;
    // The writer writes members in layout order: the next child is tried
    // first and the name index is the fallback, so a file in the usual order
    // costs one comparison per element.
    std::size_t expect = 0;
    const auto& children = group.children;
    for (pugi::xml_node c = el.first_child(); c; c = c.next_sibling()) {
      if (c.type() != pugi::node_element) continue;
      const char* name = c.name();
      const TagNode* n = nullptr;
      if (expect < children.size() && SameName(children[expect]->tag, name)) {
        n = children[expect].get();
      } else {
        n = group.Child(name);
        if (!n) {
          if (!(table_record && std::strcmp(name, "ID") == 0)) Unknown(c);
          continue;
        }
      }
      // The node's position among its siblings is its write rank.
      const std::size_t rank = n->rank;
      expect = rank + 1;
      if (!items.empty() && items.back().rank > rank) sorted = false;
      items.push_back({rank, n, c});
    }
    // Persistence orderings hold on read as well: elements found out of the
    // declared order are read in it (stable, so a repeated element's last
    // occurrence still wins).
    if (!sorted)
      std::stable_sort(items.begin(), items.end(),
                       [](const Item& a, const Item& b) { return a.rank < b.rank; });
    // Deeper levels use deeper buffers (every descent pushes a frame), and a
    // deque keeps this one in place while they are added.
    const TagNode* previous = nullptr;
    for (const Item& it : items) {
      // Sorted, a repeated element follows its first occurrence.
      if (it.node == previous) fresh = false;
      previous = it.node;
      stack_.push_back({&it.node->wtag, 0, false});
      if (it.node->member) ReadMember(*it.node->member, rec, it.el, fresh);
      else ReadGroup(*it.node, rec, it.el, false, fresh);
      stack_.pop_back();
    }
  }

  // True when the enclosing record's default for nested member `m` equals
  // the nested type's own default: a fresh record then needs no reset.
  bool DefaultsAgree(const Member& m) {
    const auto [it, added] = agree_.try_emplace(&m, false);
    if (added) {
      const RecordType& nested = m.record();
      const void* owner_default = m.access->Field(const_cast<void*>(m.owner->Prototype()));
      it->second = owner_default && nested.Ops().equal(owner_default, nested.Prototype());
    }
    return it->second;
  }

  // An enumeration written by its exact name, looked up among the table's
  // names in UTF-8 (converted once per table and read) instead of widening
  // the text first; true when that settled it. Only texts starting with a
  // letter are taken, which no number does: ParseScalar decides the rest
  // (numbers, blanks, other cases, unknown names) as before.
  bool FastEnum(ValueType type, const meta::MetaEnumCommon* table, const char* text, void* storage) {
    if (type != ValueType::Enum || !table) return false;
    const char c = text[0];
    if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) return false;
    auto [it, fresh] = enum_names_.try_emplace(table);
    if (fresh)
      for (const auto& e : table->Entries()) it->second.push_back({str::to_utf8(e.name), e.value});
    for (const auto& [name, value] : it->second)
      if (std::strcmp(name.c_str(), text) == 0) {
        *static_cast<std::int32_t*>(storage) = value;
        return true;
      }
    return false;
  }

  // Reads the text of `el` into a value of `type` at `storage`.
  void ReadValue(const Member& m, ValueType type, pugi::xml_node el, void* storage) {
    for (pugi::xml_node c = el.first_child(); c; c = c.next_sibling())
      if (c.type() == pugi::node_element) Unknown(c);
    const char* text = el.child_value();
    if (type == ValueType::WString) {
      if (const std::size_t at = InvalidUtf8At(text); at != std::string_view::npos) {
        err_.ReportError(gtl::status::error(kMsgNotUtf8, Where(), Line(el), static_cast<unsigned long long>(at + 1)));
        return;
      }
    }
    gtl::status warning;
    if (!FastEnum(type, m.traits.enum_table, text, storage) &&
        !ParseScalar(type, m.traits.enum_table, text, storage, warning)) {
      err_.ReportError(gtl::status::error(kMsgMalformedValue, str::to_wstring(text), Where(), Line(el)));
      return;
    }
    if (type == ValueType::Double && !std::isfinite(*static_cast<const double*>(storage)) &&
        !m.traits.AllowsNonFinite()) {
      err_.ReportError(gtl::status::error(kMsgNotFinite, str::to_wstring(text), Where(), Line(el)));
      return;
    }
    if (!warning.succeeded()) {
      const std::wstring where = Where();
      err_.ReportError(gtl::status::warning(kMsgUnknownEnumName, str::to_wstring(text),
                                            m.traits.enum_table->EnumName(), where, Line(el)));
      kept_[where] = text;
      last_kept_ = where;
    }
    double d = 0;
    if (OutsideBounds(type, storage, m.traits, d))
      // Kept as read: the record's own validation decides what to do with it.
      err_.ReportError(gtl::status::warning(kMsgOutOfBoundsRead, str::to_wstring(text), Where(), Line(el)));
  }

  void ReadMember(const Member& m, void* rec, pugi::xml_node el, bool& fresh) {
    if (IsScalar(m.type)) {
      if (void* f = m.access->Field(rec)) {
        ReadValue(m, m.type, el, f);
      } else {
        fresh = false;
        ScalarBox box;
        m.access->Load(rec, box.Slot(m.type));
        ReadValue(m, m.type, el, box.Slot(m.type));
        if (auto s = m.access->Store(rec, box.Slot(m.type)); s.failed())
          err_.ReportError(gtl::status::error(kMsgRefusedValue, s.message(), Where(), Line(el)));
        else if (s.is_warning())
          err_.ReportError(gtl::status::warning(kMsgAt, s.message(), Where(), Line(el)));
      }
      return;
    }
    void* field = m.access->Field(rec);
    switch (m.type) {
      case ValueType::Struct:
        // The writer skipped the members at the nested type's own defaults,
        // which may differ from what the enclosing record starts with; the
        // copy is skipped when the member is known to hold them already.
        if (!(fresh && DefaultsAgree(m))) m.record().Ops().copy(field, m.record().Prototype());
        ReadRecord(m.record(), field, el, false, true);
        return;
      case ValueType::Array: ReadArray(m, field, el); return;
      case ValueType::Table: ReadTable(m, field, el); return;
      default: return;
    }
  }

  void ReadArray(const Member& m, void* vec, pugi::xml_node el) {
    if (!Enter(el)) return;
    m.seq->Resize(vec, 0);
    std::size_t n = 0;
    for (pugi::xml_node c = el.first_child(); c; c = c.next_sibling()) {
      if (c.type() != pugi::node_element) continue;
      if (!SameName(m.element_tag_utf8, c.name())) {
        Unknown(c);
        continue;
      }
      if (n == m.seq->MaxSize()) {
        err_.ReportError(gtl::status::error(kMsgTooManyElements, static_cast<unsigned long long>(n), Where(), Line(c)));
        break;
      }
      m.seq->Resize(vec, n + 1);
      stack_.push_back({nullptr, n, true});
      void* item = m.seq->At(vec, n);
      // A new element is default-made (a fixed array's were reset at the
      // start), hence fresh.
      if (m.element_type == ValueType::Struct) ReadRecord(m.record(), item, c, false, true);
      else ReadValue(m, m.element_type, c, item);
      stack_.pop_back();
      ++n;
    }
    if (auto s = m.seq->Finish(vec, n); !s.succeeded())
      err_.ReportError(gtl::status(kMsgAt, {s.message(), Where(), Line(el)}, s.level()));
  }

  void ReadTable(const Member& m, void* table, pugi::xml_node el) {
    if (!Enter(el)) return;
    m.table->Clear(table);
    const RecordType& rt = m.record();
    std::size_t count = 0;
    for (pugi::xml_node c = el.child(m.element_tag_utf8.c_str()); c;
         c = c.next_sibling(m.element_tag_utf8.c_str()))
      ++count;
    const std::size_t limit = count + std::max(count, kMinSlack);
    // Rows are usually numbered 1..count: room for them up front spares the
    // table moving every record it holds as it grows. The count is bounded
    // by the parsed file, so a hostile file cannot make this large.
    m.table->ReserveCapacity(table, count);
    for (pugi::xml_node c = el.first_child(); c; c = c.next_sibling()) {
      if (c.type() != pugi::node_element) continue;
      if (!SameName(m.element_tag_utf8, c.name())) {
        Unknown(c);
        continue;
      }
      std::uint32_t id = 0;
      const pugi::xml_node idel = c.child("ID");
      gtl::status unused;
      if (!idel) {
        // Kept rather than dropped: it takes the first slot after the others.
        id = static_cast<std::uint32_t>(m.table->Size(table) + 1);
        err_.ReportError(gtl::status::warning(kMsgMissingID, Where(), Line(c), static_cast<unsigned long long>(id)));
      } else if (!ParseScalar(ValueType::UInt32, nullptr, idel.child_value(), &id, unused) || id == 0) {
        err_.ReportError(gtl::status::error(kMsgInvalidID, str::to_wstring(idel.child_value()), Where(), Line(idel)));
        continue;
      }
      const std::size_t size = m.table->Size(table);
      const std::size_t gap_bytes = id > size + 1 ? (id - size - 1) * m.table->SlotBytes() : 0;
      if (id > limit || gap_bytes > gap_budget_) {
        err_.ReportError(gtl::status::error(kMsgIDTooHigh, static_cast<unsigned long long>(id), Where(),
                                            Line(idel), static_cast<unsigned long long>(std::min(
                                                limit, size + gap_budget_ / m.table->SlotBytes())),
                                            static_cast<unsigned long long>(count)));
        continue;
      }
      gap_budget_ -= gap_bytes;
      if (m.table->IsLive(table, id)) {
        err_.ReportError(gtl::status::error(kMsgDuplicateID, static_cast<unsigned long long>(id), Where(), Line(c)));
        continue;
      }
      stack_.push_back({nullptr, id, true});
      // Built in its slot: no record to move there afterwards.
      void* rec = m.table->OpenSlot(table, id);
      rt.Ops().copy(rec, rt.Prototype());
      const std::size_t kept_before = kept_.size();
      ReadRecord(rt, rec, c, true, true);
      m.table->SealSlot(table, id);
      if (!m.table->IsLive(table, id)) {
        // A name this version does not know (the kind of an analysis written
        // by a later one) can leave the record looking like a tombstone. Read
        // on, it would vanish on the next save with every value it holds, so
        // the document is refused instead; a record with nothing unknown in
        // it was written deleted and reads so.
        if (kept_.size() != kept_before)
          err_.ReportError(gtl::status::error(kMsgUnknownMakesDeleted, Where(), Line(c),
                                              str::to_wstring(kept_[last_kept_]), last_kept_));
        else
          err_.ReportError(gtl::status::warning(kMsgDeletedOnRead, Where(), Line(c)));
      }
      stack_.pop_back();
    }
  }

  impl::XMLError& err_;
  KeptTexts& kept_;
  std::wstring last_kept_;  // the path of the latest unknown name kept
  std::size_t gap_budget_;  // bytes that empty slots may still take
  std::vector<Frame> stack_;
  std::deque<std::vector<Item>> buffers_;
  std::unordered_map<const Member*, bool> agree_;
  // Per enumeration table: its names in UTF-8 with their values, in table
  // order (the first entry of a name wins, as in MetaEnumCommon::ValueOf).
  std::unordered_map<const meta::MetaEnumCommon*, std::vector<std::pair<std::string, std::int32_t>>> enum_names_;
};

gtl::status FirstError(const ReadReport& r) {
  for (const auto& s : r.messages)
    if (s.failed()) return s;
  return r.errors ? gtl::status::error(kMsgMalformedValue, L"", L"", L"") : gtl::status{};
}

}  // namespace

unsigned ParseOptions() {
  // As a fragment, text outside the root element is kept as nodes instead
  // of being dropped, so that FileImport can refuse it.
  return (pugi::parse_default & ~pugi::parse_eol) | pugi::parse_ws_pcdata_single | pugi::parse_fragment;
}

gtl::status FileImport(const pugi::xml_document& doc, const IODS& target, ReadReport* report,
                       std::string_view source) {
  ReadReport local;
  ReadReport& r = report ? *report : local;
  r = ReadReport{};
  if (!target.IsValid()) return OCError::not_recognized(L"(no object)", L"FileImport");
  impl::XMLError err(r, source);
  const pugi::xml_node root = doc.document_element();
  const RootInfo* info = OCRegistry::Instance().Root(*target.type);
  const std::wstring expected = info ? info->tag : target.type->Name();
  if (!root || str::to_wstring(root.name()) != expected) {
    err.ReportError(gtl::status::error(kMsgWrongRoot, root ? str::to_wstring(root.name()) : L"", expected));
    return FirstError(r);
  }
  // A document is its root element: a second element or text beside it
  // would be lost on the next save, so it is refused.
  for (pugi::xml_node n = doc.first_child(); n; n = n.next_sibling()) {
    if (n == root || (n.type() != pugi::node_element && n.type() != pugi::node_pcdata &&
                      n.type() != pugi::node_cdata))
      continue;
    const std::wstring what = n.type() == pugi::node_element
                                  ? L"element <" + str::to_wstring(n.name()) + L">"
                                  : L"text \"" + str::to_wstring(TrimmedStart(n.value(), 40)) + L"\"";
    const std::size_t line = err.Line(n.offset_debug());
    err.ReportError(gtl::status::error(
        kMsgAfterRoot, line ? str::to_wstring(static_cast<unsigned long long>(line)) : std::wstring(L"?"), what));
    return FirstError(r);
  }
  r.version = str::to_wstring(root.attribute("Version").value());
  // A fresh object takes the values; the target is replaced only on success.
  OCObject fresh(*target.type);
  Reader(err, source.size(), r.kept).ReadRecord(*target.type, fresh.get(), root, false, true);
  if (err.Errors() == 0) target.type->Ops().move(target.root, fresh.get());
  return FirstError(r);
}

gtl::status StringParse(std::string_view xml, pugi::xml_document& doc, std::wstring_view what,
                        ReadReport* report) {
  ReadReport local;
  ReadReport& r = report ? *report : local;
  r = ReadReport{};
  impl::XMLError err(r, xml);
  // The parser turns "&#0;" into a NUL that ends the text it stands in,
  // silently dropping the rest: refused before parsing.
  if (const std::size_t at = NulReferenceAt(xml); at != std::string_view::npos) {
    err.ReportError(gtl::status::error(kMsgNulReference, static_cast<unsigned long long>(err.Line(static_cast<std::ptrdiff_t>(at)))));
    return FirstError(r);
  }
  pugi::xml_parse_result res =
      doc.load_buffer(xml.data(), xml.size(), ParseOptions(), pugi::encoding_utf8);
  // Parsed as a fragment, a text without any element is no parse error to
  // pugixml; it is one here.
  if (res && !doc.document_element()) {
    res.status = pugi::status_no_document_element;
    res.offset = 0;
  }
  if (!res) {
    const std::size_t line = err.Line(res.offset);
    err.ReportError(gtl::status::error(kMsgParseError, std::wstring(what), res.description(),
                                       static_cast<unsigned long long>(line)));
    return FirstError(r);
  }
  return {};
}

gtl::status StringRead(std::string_view xml, const IODS& target, ReadReport* report) {
  pugi::xml_document doc;
  if (auto s = StringParse(xml, doc, target.type ? target.type->Name() : L"", report); s.failed()) return s;
  return FileImport(doc, target, report, xml);
}

gtl::status FileRead(const std::wstring& path, const IODS& target, ReadReport* report) {
  std::string bytes;
  if (auto s = package::ReadWholeFile(path, bytes); s.failed()) return s;
  return StringRead(bytes, target, report);
}

}  // namespace oc::xml
