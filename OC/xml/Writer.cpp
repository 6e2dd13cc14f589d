// Writing follows the layout of each record type: wrapper elements appear
// where some member below them is written, members at their default are
// left out, collections are written whole.
#include <pugixml.hpp>

#include "OC/OCError.h"
#include "OC/Registry.h"
#include "OC/package/AtomicFile.h"
#include "OC/xml/XML.h"
#include "QVI/str/Convert.h"

namespace oc::xml {
namespace {

class Writer {
 public:
  void WriteRecord(const RecordType& type, const void* rec, pugi::xml_node el) {
    WriteGroup(type.Layout(), rec, el);
  }

 private:
  void WriteGroup(const TagNode& group, const void* rec, pugi::xml_node el) {
    for (const auto& child : group.children) {
      if (child->member) {
        WriteMember(*child->member, rec, el);
        continue;
      }
      pugi::xml_node sub = el.append_child(child->tag.c_str());
      WriteGroup(*child, rec, sub);
      if (!sub.first_child()) el.remove_child(sub);
    }
  }

  void WriteValue(const Member& m, ValueType type, const void* storage, pugi::xml_node el) {
    FormatScalar(type, m.traits.enum_table, storage, text_);
    el.text().set(text_.c_str());
  }

  void WriteMember(const Member& m, const void* rec, pugi::xml_node parent) {
    if (m.traits.IsLegacy()) return;
    void* mrec = const_cast<void*>(rec);
    if (IsScalar(m.type)) {
      const void* value = m.access->Field(mrec);
      ScalarBox box;
      if (!value) {
        m.access->Load(rec, box.Slot(m.type));
        value = box.Slot(m.type);
      }
      if (ScalarEqual(m.type, value, m.def.Slot(m.type))) return;
      WriteValue(m, m.type, value, parent.append_child(m.tag_utf8.c_str()));
      return;
    }
    void* field = m.access->Field(mrec);
    const void* proto = m.access->Field(const_cast<void*>(m.owner->Prototype()));
    switch (m.type) {
      case ValueType::Struct: {
        pugi::xml_node sub = parent.append_child(m.tag_utf8.c_str());
        WriteRecord(m.record(), field, sub);
        // Members are skipped at the nested type's defaults, and the reader
        // starts a present element from those: an empty element is kept when
        // the value differs from the one the enclosing record starts with.
        if (!sub.first_child() && m.record().Ops().equal(field, proto)) parent.remove_child(sub);
        return;
      }
      case ValueType::Array: {
        const std::size_t n = m.seq->Size(field);
        // An empty collection is written only where the default is not
        // empty, so that reading it back empties the member.
        if (n == 0 && m.seq->Size(proto) == 0) return;
        pugi::xml_node sub = parent.append_child(m.tag_utf8.c_str());
        for (std::size_t i = 0; i < n; ++i) {
          pugi::xml_node e = sub.append_child(m.element_tag_utf8.c_str());
          const void* item = m.seq->At(field, i);
          if (m.element_type == ValueType::Struct) WriteRecord(m.record(), item, e);
          else WriteValue(m, m.element_type, item, e);
        }
        return;
      }
      case ValueType::Table: {
        const std::size_t size = m.table->Size(field);
        pugi::xml_node sub;
        for (std::uint32_t id = 1; id <= size; ++id) {
          if (!m.table->IsLive(field, id)) continue;
          if (!sub) sub = parent.append_child(m.tag_utf8.c_str());
          pugi::xml_node e = sub.append_child(m.element_tag_utf8.c_str());
          e.append_child("ID").text().set(id);
          WriteRecord(m.record(), m.table->At(field, id), e);
        }
        return;
      }
      default: return;
    }
  }

  std::string text_;
};

struct StringSink final : pugi::xml_writer {
  std::string& out;
  explicit StringSink(std::string& o) : out(o) {}
  void write(const void* data, size_t size) override { out.append(static_cast<const char*>(data), size); }
};

}  // namespace

gtl::status StringWrite(const IODS& source, std::string& xml) {
  if (!source.IsValid()) return OCError::not_recognized(L"(no object)", L"StringWrite");
  const RootInfo* info = OCRegistry::Instance().Root(*source.type);
  pugi::xml_document doc;
  pugi::xml_node root = doc.append_child(str::to_utf8(info ? info->tag : source.type->Name()).c_str());
  root.append_attribute("Version").set_value(str::to_utf8(info ? info->version : L"1").c_str());
  Writer().WriteRecord(*source.type, source.root, root);
  xml.clear();
  StringSink sink(xml);
  doc.save(sink, "  ", pugi::format_indent, pugi::encoding_utf8);
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
