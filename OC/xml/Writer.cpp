// Writing follows the layout of each record type: wrapper elements appear
// where some member below them is written, members at their default are
// left out, collections are written whole.
//
// The text is produced straight into the output string, with the layout a
// pugixml DOM saved with a two-space indent has (declaration line, one
// element per line, text inline, "<Tag />" for an empty element): building
// that DOM first and serialising it cost more than twice the time and held
// the whole tree in memory. An element is opened lazily, when its first
// child is written, so that a wrapper whose members are all at their
// defaults leaves no trace.
#include <charconv>
#include <cstring>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "OC/OCError.h"
#include "OC/Registry.h"
#include "OC/package/AtomicFile.h"
#include "OC/xml/XML.h"
#include "OC/xml/XmlText.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"

namespace oc::xml {
namespace {
constexpr unsigned kMsgNulInText = 31065;

class Writer {
 public:
  Writer(std::string& out, const KeptTexts* kept)
      : kept_(kept && !kept->empty() ? kept : nullptr), out_(out) {}

  void WriteDocument(std::string_view root_tag, std::string_view version, const RecordType& type,
                     const void* rec) {
    out_ += "<?xml version=\"1.0\"?>\n";
    root_attributes_ = " Version=\"";
    AppendEscapedAttribute(root_attributes_, version);
    root_attributes_ += '"';
    Begin(root_tag, &root_attributes_);
    WriteRecord(PlanOf(type), rec);
    End(true);
    out_ += '\n';
  }

 private:
  // An element whose start tag may not be written yet.
  struct Open {
    std::string_view tag;
    const std::string* attributes;  // already escaped, with leading blanks; or nullptr
    std::size_t index = 0;          // an element's index (a table record's ID)
    bool element = false;           // an element of a collection: "[index]" in paths
  };

  // Line break and two blanks per level before an element; the root
  // follows the declaration line directly.
  void Indent(std::size_t depth) {
    if (depth == 0) return;
    out_ += '\n';
    out_.append(2 * depth, ' ');
  }

  void StartTag(const Open& o) {
    out_ += '<';
    out_ += o.tag;
    if (o.attributes) out_ += *o.attributes;
  }

  void Begin(std::string_view tag, const std::string* attributes = nullptr) {
    open_.push_back({tag, attributes});
  }
  void BeginElement(std::string_view tag, std::size_t index) { open_.push_back({tag, nullptr, index, true}); }

  // Writes the start tags still pending, outermost first, up to `depth`.
  void FlushTo(std::size_t depth) {
    for (; written_ < depth; ++written_) {
      Indent(written_);
      StartTag(open_[written_]);
      out_ += '>';
    }
  }

  // Closes the innermost element. One that got no child is dropped, or
  // written empty when `keep_empty`.
  void End(bool keep_empty) {
    const std::size_t depth = open_.size() - 1;
    if (written_ == open_.size()) {
      out_ += '\n';  // the root's end tag too goes on a line of its own
      out_.append(2 * depth, ' ');
      out_ += "</";
      out_ += open_.back().tag;
      out_ += '>';
      --written_;
    } else if (keep_empty) {
      FlushTo(depth);
      Indent(depth);
      StartTag(open_.back());
      out_ += " />";
    }
    open_.pop_back();
  }

  // Starts a leaf element `<tag>`; its text follows, then CloseLeaf.
  void OpenLeaf(std::string_view tag) {
    FlushTo(open_.size());
    Indent(open_.size());
    out_ += '<';
    out_ += tag;
    out_ += '>';
  }
  void CloseLeaf(std::string_view tag) {
    out_ += "</";
    out_ += tag;
    out_ += '>';
  }

  template <class N>
  void AppendNumber(N v) {
    char buf[64];
    const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
    out_.append(buf, ec == std::errc() ? end : buf);
  }

  // The persisted text of a value, the same as FormatScalar gives, escaped.
  void AppendValue(ValueType type, const meta::MetaEnumCommon* table, const void* p) {
    switch (type) {
      case ValueType::Bool: out_ += *static_cast<const bool*>(p) ? "true" : "false"; break;
      case ValueType::Int32: AppendNumber(*static_cast<const std::int32_t*>(p)); break;
      case ValueType::UInt32: AppendNumber(*static_cast<const std::uint32_t*>(p)); break;
      case ValueType::Int64: AppendNumber(*static_cast<const std::int64_t*>(p)); break;
      // Shortest text that reads back to the same bits.
      case ValueType::Double: AppendNumber(*static_cast<const double*>(p)); break;
      case ValueType::WString:
        utf8_.clear();
        str::append_utf8(utf8_, *static_cast<const std::wstring*>(p));
        AppendEscapedText(out_, utf8_);
        break;
      case ValueType::Enum: {
        const std::int32_t v = *static_cast<const std::int32_t*>(p);
        if (const std::string* name = EnumName(table, v)) out_ += *name;
        else AppendNumber(v);  // a value missing from the table is kept as its number
        break;
      }
      default: break;
    }
  }

  // The escaped UTF-8 name of `v` in `table` (its first entry with that
  // value), or nullptr. Names are converted once per table and write.
  const std::string* EnumName(const meta::MetaEnumCommon* table, std::int32_t v) {
    if (!table) return nullptr;
    auto [it, fresh] = enum_names_.try_emplace(table);
    if (fresh) {
      for (const auto& e : table->Entries()) {
        utf8_.clear();
        str::append_utf8(utf8_, e.name);
        std::string escaped;
        AppendEscapedText(escaped, utf8_);
        it->second.push_back({e.value, std::move(escaped)});
      }
    }
    for (const auto& [value, name] : it->second)
      if (value == v) return &name;
    return nullptr;
  }

  // `index` is set for an element of a collection of values.
  void WriteLeaf(std::string_view tag, ValueType type, const meta::MetaEnumCommon* table,
                 const void* p, const std::size_t* index = nullptr) {
    // XML has no way to carry a NUL, not even as a reference: the text
    // would end there, so the write fails instead.
    if (type == ValueType::WString && nul_path_.empty() &&
        static_cast<const std::wstring*>(p)->find(L'\0') != std::wstring::npos)
      nul_path_ = PathTo(tag, index);
    if (const std::string* text = KeptText(type, p, tag, index)) {
      OpenLeaf(tag);
      AppendEscapedText(out_, *text);
      CloseLeaf(tag);
      return;
    }
    OpenLeaf(tag);
    AppendValue(type, table, p);
    CloseLeaf(tag);
  }

  // The text read for an enumeration that is still undefined, or nullptr.
  const std::string* KeptText(ValueType type, const void* p, std::string_view tag, const std::size_t* index) {
    if (!kept_ || type != ValueType::Enum || *static_cast<const std::int32_t*>(p) != qvi::kNone) return nullptr;
    const auto it = kept_->find(PathTo(tag, index));
    return it == kept_->end() ? nullptr : &it->second;
  }

  // A record type's layout flattened into the steps a write takes, built
  // once per type and write: the hot loop then reads one small contiguous
  // array per record instead of chasing member declarations and calling
  // through accessors for every value.
  struct Step {
    enum Op : std::uint8_t { OpenGroup, CloseGroup, Value, Complex } op;
    ValueType type = ValueType::Struct;
    bool fixed = false;            // Value: the field lies at `offset` in the record
    std::ptrdiff_t offset = 0;
    const Member* m = nullptr;     // Value, Complex
    const TagNode* node = nullptr; // OpenGroup
    const void* def = nullptr;     // Value: the default
    mutable const std::vector<Step>* sub = nullptr;  // Complex of records: their plan, once known
  };
  using Plan = std::vector<Step>;

  const Plan& PlanOf(const RecordType& type) {
    auto [it, fresh] = plans_.try_emplace(&type);
    if (fresh) BuildPlan(type.Layout(), static_cast<const char*>(type.Prototype()), it->second);
    return it->second;
  }

  static void BuildPlan(const TagNode& group, const char* proto, Plan& plan) {
    for (const auto& child : group.children) {
      const Member* m = child->member;
      if (!m) {
        plan.push_back({Step::OpenGroup});
        plan.back().node = child.get();
        BuildPlan(*child, proto, plan);
        plan.push_back({Step::CloseGroup});
        continue;
      }
      if (m->traits.IsLegacy()) continue;
      Step st{IsScalar(m->type) ? Step::Value : Step::Complex};
      st.type = m->type;
      st.m = m;
      if (st.op == Step::Value) {
        st.def = m->def.Slot(m->type);
        st.fixed = m->access->IsFixedOffset();
        if (st.fixed)
          st.offset = static_cast<const char*>(m->access->Field(const_cast<char*>(proto))) - proto;
      }
      plan.push_back(st);
    }
  }

  // ScalarEqual without the call: doubles and integers by bit pattern.
  static bool SameValue(ValueType type, const void* a, const void* b) {
    switch (type) {
      case ValueType::Bool: return *static_cast<const bool*>(a) == *static_cast<const bool*>(b);
      case ValueType::Int32:
      case ValueType::UInt32:
      case ValueType::Enum: return std::memcmp(a, b, 4) == 0;
      case ValueType::Int64:
      case ValueType::Double: return std::memcmp(a, b, 8) == 0;
      default: return ScalarEqual(type, a, b);
    }
  }

  const Plan& SubPlan(const Step& st) {
    if (!st.sub) st.sub = &PlanOf(st.m->record());
    return *st.sub;
  }

  void WriteRecord(const Plan& plan, const void* rec) {
    const char* base = static_cast<const char*>(rec);
    for (const Step& st : plan) {
      switch (st.op) {
        case Step::OpenGroup: Begin(st.node->tag); break;
        case Step::CloseGroup: End(false); break;
        case Step::Value: {
          const void* value = base + st.offset;
          if (!st.fixed) {
            value = st.m->access->Field(const_cast<char*>(base));
            if (!value) {
              st.m->access->Load(rec, box_.Slot(st.type));
              value = box_.Slot(st.type);
            }
          }
          // An undefined enumeration at its default is still written when
          // it was read from a name this version does not know.
          if (!SameValue(st.type, value, st.def) || KeptText(st.type, value, st.m->tag_utf8, nullptr))
            WriteLeaf(st.m->tag_utf8, st.type, st.m->traits.enum_table, value);
          break;
        }
        case Step::Complex: WriteComplex(st, rec); break;
      }
    }
  }

  void WriteComplex(const Step& st, const void* rec) {
    const Member& m = *st.m;
    void* field = m.access->Field(const_cast<void*>(rec));
    const void* proto = m.access->Field(const_cast<void*>(m.owner->Prototype()));
    switch (m.type) {
      case ValueType::Struct: {
        Begin(m.tag_utf8);
        WriteRecord(SubPlan(st), field);
        // Members are skipped at the nested type's defaults, and the reader
        // starts a present element from those: an empty element is kept when
        // the value differs from the one the enclosing record starts with.
        const bool written = written_ == open_.size();
        End(!written && !m.record().Ops().equal(field, proto));
        return;
      }
      case ValueType::Array: {
        const std::size_t n = m.seq->Size(field);
        // An empty collection is written only where the default is not
        // empty, so that reading it back empties the member.
        if (n == 0 && m.seq->Size(proto) == 0) return;
        Begin(m.tag_utf8);
        for (std::size_t i = 0; i < n; ++i) {
          const void* item = m.seq->At(field, i);
          if (m.element_type == ValueType::Struct) {
            BeginElement(m.element_tag_utf8, i);
            WriteRecord(SubPlan(st), item);
            End(true);
          } else {
            WriteLeaf(m.element_tag_utf8, m.element_type, m.traits.enum_table, item, &i);
          }
        }
        End(true);
        return;
      }
      case ValueType::Table: {
        const std::size_t size = m.table->Size(field);
        Begin(m.tag_utf8);
        for (std::uint32_t id = 1; id <= size; ++id) {
          if (!m.table->IsLive(field, id)) continue;
          BeginElement(m.element_tag_utf8, id);
          WriteLeaf("ID", ValueType::UInt32, nullptr, &id);
          WriteRecord(SubPlan(st), m.table->At(field, id));
          End(true);
        }
        End(false);  // a table without live records is not written
        return;
      }
      default: return;
    }
  }

  // The path of leaf `leaf` (or, with `index`, of element `index` of the
  // collection open last) as a read names it: "Analyses[3].Name".
  std::wstring PathTo(std::string_view leaf, const std::size_t* index) const {
    std::wstring path;
    auto add_index = [&](std::size_t i) { path += L"[" + str::to_wstring(static_cast<unsigned long long>(i)) + L"]"; };
    for (std::size_t i = 1; i < open_.size(); ++i) {
      if (open_[i].element) {
        add_index(open_[i].index);
        continue;
      }
      if (!path.empty()) path += L'.';
      path += str::to_wstring(open_[i].tag);
    }
    if (index) {
      add_index(*index);
      return path;
    }
    return path + (path.empty() ? L"" : L".") + str::to_wstring(leaf);
  }

 public:
  // The path of the first text that holds a NUL; empty when none did.
  const std::wstring& NulPath() const { return nul_path_; }

 private:
  std::wstring nul_path_;
  const KeptTexts* kept_;  // nullptr when there is none
  std::string& out_;
  std::vector<Open> open_;
  std::size_t written_ = 0;  // how many of open_ (outermost first) have their start tag out
  std::string root_attributes_;
  std::string utf8_;  // scratch: one text value in UTF-8 before escaping
  ScalarBox box_;     // scratch: the value of a getter/setter member
  std::unordered_map<const RecordType*, Plan> plans_;  // element references stay valid
  std::unordered_map<const meta::MetaEnumCommon*, std::vector<std::pair<std::int32_t, std::string>>>
      enum_names_;
};

// The size of the last text written for each root type: the next write
// of that type reserves it (plus a margin) up front, so that a document of
// tens of megabytes is not copied at every doubling of its buffer.
class SizeMemory {
 public:
  std::size_t Estimate(const RecordType* type) {
    const std::lock_guard lock(mutex_);
    const auto it = sizes_.find(type);
    return it == sizes_.end() ? 0 : it->second + it->second / 16;
  }
  void Remember(const RecordType* type, std::size_t size) {
    const std::lock_guard lock(mutex_);
    sizes_[type] = size;
  }

 private:
  std::mutex mutex_;
  std::unordered_map<const RecordType*, std::size_t> sizes_;
};

SizeMemory& LastSizes() {
  static SizeMemory memory;
  return memory;
}

}  // namespace

gtl::status StringWrite(const IODS& source, std::string& xml, const KeptTexts* kept) {
  if (!source.IsValid()) return OCError::not_recognized(L"(no object)", L"StringWrite");
  const RootInfo* info = OCRegistry::Instance().Root(*source.type);
  const std::string tag = str::to_utf8(info ? info->tag : source.type->Name());
  const std::string version = str::to_utf8(info ? info->version : L"1");
  xml.clear();
  xml.reserve(LastSizes().Estimate(source.type));
  Writer writer(xml, kept);
  writer.WriteDocument(tag, version, *source.type, source.root);
  LastSizes().Remember(source.type, xml.size());
  if (!writer.NulPath().empty()) {
    xml.clear();
    return gtl::status::error(kMsgNulInText, writer.NulPath());
  }
  return {};
}

gtl::status FileWrite(const IODS& source, const std::wstring& path) {
  std::string xml;
  if (auto s = StringWrite(source, xml); s.failed()) return s;
  return package::WriteFileAtomic(path, xml);
}

void RegisterPersistanceOrdering(std::wstring first, std::wstring second) {
  OCRegistry::Instance().RegisterOrdering(std::move(first), std::move(second));
}

}  // namespace oc::xml
