#pragma once
// A second, independent way to write a declared object: build the pugixml
// DOM element by element and let pugixml serialise it. The library writes
// text directly; the tests hold its bytes against this one's, so that the
// direct writer's layout, escaping and empty-element rules cannot drift.
#include <pugixml.hpp>

#include <string>

#include "OC/Registry.h"
#include "OC/RecordType.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"

namespace octest {

class ReferenceDomWriter {
 public:
  static std::string Write(const oc::IODS& source) {
    const oc::RootInfo* info = oc::OCRegistry::Instance().Root(*source.type);
    pugi::xml_document doc;
    pugi::xml_node root = doc.append_child(str::to_utf8(info ? info->tag : source.type->Name()).c_str());
    root.append_attribute("Version").set_value(str::to_utf8(info ? info->version : L"1").c_str());
    ReferenceDomWriter().Group(source.type->Layout(), source.root, root);
    struct Sink final : pugi::xml_writer {
      std::string out;
      void write(const void* data, size_t size) override { out.append(static_cast<const char*>(data), size); }
    } sink;
    doc.save(sink, "  ", pugi::format_indent, pugi::encoding_utf8);
    return sink.out;
  }

 private:
  void Group(const oc::TagNode& group, const void* rec, pugi::xml_node el) {
    for (const auto& child : group.children) {
      if (child->member) {
        Member(*child->member, rec, el);
        continue;
      }
      pugi::xml_node sub = el.append_child(child->tag.c_str());
      Group(*child, rec, sub);
      if (!sub.first_child()) el.remove_child(sub);
    }
  }

  static void Value(const oc::Member& m, oc::ValueType type, const void* p, pugi::xml_node el) {
    std::string text;
    oc::FormatScalar(type, m.traits.enum_table, p, text);
    el.text().set(text.c_str());
  }

  void Member(const oc::Member& m, const void* rec, pugi::xml_node parent) {
    using oc::ValueType;
    if (m.traits.IsLegacy()) return;
    void* mrec = const_cast<void*>(rec);
    if (oc::IsScalar(m.type)) {
      const void* value = m.access->Field(mrec);
      oc::ScalarBox box;
      if (!value) {
        m.access->Load(rec, box.Slot(m.type));
        value = box.Slot(m.type);
      }
      if (oc::ScalarEqual(m.type, value, m.def.Slot(m.type))) return;
      Value(m, m.type, value, parent.append_child(m.tag_utf8.c_str()));
      return;
    }
    void* field = m.access->Field(mrec);
    const void* proto = m.access->Field(const_cast<void*>(m.owner->Prototype()));
    if (m.type == ValueType::Struct) {
      pugi::xml_node sub = parent.append_child(m.tag_utf8.c_str());
      Group(m.record().Layout(), field, sub);
      if (!sub.first_child() && m.record().Ops().equal(field, proto)) parent.remove_child(sub);
    } else if (m.type == ValueType::Array) {
      const std::size_t n = m.seq->Size(field);
      if (n == 0 && m.seq->Size(proto) == 0) return;
      pugi::xml_node sub = parent.append_child(m.tag_utf8.c_str());
      for (std::size_t i = 0; i < n; ++i) {
        pugi::xml_node e = sub.append_child(m.element_tag_utf8.c_str());
        const void* item = m.seq->At(field, i);
        if (m.element_type == ValueType::Struct) Group(m.record().Layout(), item, e);
        else Value(m, m.element_type, item, e);
      }
    } else if (m.type == ValueType::Table) {
      pugi::xml_node sub;
      for (std::uint32_t id = 1; id <= m.table->Size(field); ++id) {
        if (!m.table->IsLive(field, id)) continue;
        if (!sub) sub = parent.append_child(m.tag_utf8.c_str());
        pugi::xml_node e = sub.append_child(m.element_tag_utf8.c_str());
        e.append_child("ID").text().set(id);
        Group(m.record().Layout(), m.table->At(field, id), e);
      }
    }
  }
};

}  // namespace octest
