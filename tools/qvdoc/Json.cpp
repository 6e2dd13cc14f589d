#include "tools/qvdoc/Json.h"

#include <cmath>
#include <cstdio>

#include "OC/Path.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentSummary.h"

namespace qvdoc {

std::string JsonString(std::string_view utf8) {
  std::string out = "\"";
  for (const char c : utf8) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", static_cast<unsigned>(c));
          out += buf;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

std::string JsonString(std::wstring_view text) { return JsonString(str::to_utf8(text)); }

std::string JsonNumber(double value) {
  if (qvi::IsNoValue(value) || !std::isfinite(value)) return "null";
  return str::to_utf8(str::to_wstring(value));
}

std::string Number(double value) {
  if (qvi::IsNoValue(value)) return "-";
  return str::to_utf8(str::to_wstring(value));
}

std::string JsonValue(const oc::IOC& node) {
  using oc::ValueType;
  switch (node.Type()) {
    case ValueType::Bool: {
      bool b = false;
      node.Get(b);
      return b ? "true" : "false";
    }
    case ValueType::Int32:
    case ValueType::UInt32:
    case ValueType::Int64: {
      std::int64_t v = 0;
      if (node.Get(v).failed()) return "null";
      return std::to_string(v);
    }
    case ValueType::Double: {
      double v = 0;
      if (node.Get(v).failed()) return "null";
      return JsonNumber(v);
    }
    case ValueType::WString:
    case ValueType::Enum: {
      std::wstring text;
      node.Get(text);
      return JsonString(text);
    }
    case ValueType::Struct: {
      std::string out = "{";
      for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c))
        out += (out.size() > 1 ? ", " : "") + JsonString(c.Name()) + ": " + JsonValue(c);
      return out + "}";
    }
    case ValueType::Array:
    case ValueType::Table: {
      const bool records = node.Template() && node.Template()->HoldsRecords();
      std::string out = "[";
      for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c)) {
        if (out.size() > 1) out += ", ";
        out += records ? "{\"id\": " + std::to_string(v7::files::ElementIndex(c)) +
                             ", \"name\": " + JsonString(v7::files::RecordLabel(c)) + "}"
                       : JsonValue(c);
      }
      return out + "]";
    }
  }
  return "null";
}

}  // namespace qvdoc
