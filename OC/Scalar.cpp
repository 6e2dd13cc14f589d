#include "OC/Scalar.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"

namespace oc {

void* ScalarBox::Slot(ValueType type) {
  switch (type) {
    case ValueType::Bool: return &b;
    case ValueType::Int32:
    case ValueType::Enum: return &i32;
    case ValueType::UInt32: return &u32;
    case ValueType::Int64: return &i64;
    case ValueType::Double: return &d;
    case ValueType::WString: return &s;
    default: return nullptr;
  }
}

bool ScalarToInt64(ValueType type, const void* p, std::int64_t& out) {
  switch (type) {
    case ValueType::Bool: out = *static_cast<const bool*>(p) ? 1 : 0; return true;
    case ValueType::Int32:
    case ValueType::Enum: out = *static_cast<const std::int32_t*>(p); return true;
    case ValueType::UInt32: out = *static_cast<const std::uint32_t*>(p); return true;
    case ValueType::Int64: out = *static_cast<const std::int64_t*>(p); return true;
    case ValueType::Double: {
      const double d = *static_cast<const double*>(p);
      // 2^63 itself is out of range; everything below converts exactly.
      if (!(d >= -9223372036854775808.0 && d < 9223372036854775808.0) || d != std::trunc(d))
        return false;
      out = static_cast<std::int64_t>(d);
      return true;
    }
    case ValueType::WString: return str::parse(*static_cast<const std::wstring*>(p), out);
    default: return false;
  }
}

bool ScalarToDouble(ValueType type, const void* p, double& out) {
  switch (type) {
    case ValueType::Double: out = *static_cast<const double*>(p); return true;
    case ValueType::WString: return str::parse(*static_cast<const std::wstring*>(p), out);
    default: {
      std::int64_t i = 0;
      if (!ScalarToInt64(type, p, i)) return false;
      out = static_cast<double>(i);
      return true;
    }
  }
}

bool ScalarFromInt64(ValueType type, const meta::MetaEnumCommon* table, std::int64_t v, void* p) {
  switch (type) {
    case ValueType::Bool:
      if (v != 0 && v != 1) return false;
      *static_cast<bool*>(p) = v != 0;
      return true;
    case ValueType::Enum:
      if (!table || v < INT32_MIN || v > INT32_MAX || !table->Contains(static_cast<std::int32_t>(v)))
        return false;
      *static_cast<std::int32_t*>(p) = static_cast<std::int32_t>(v);
      return true;
    case ValueType::Int32:
      if (v < INT32_MIN || v > INT32_MAX) return false;
      *static_cast<std::int32_t*>(p) = static_cast<std::int32_t>(v);
      return true;
    case ValueType::UInt32:
      if (v < 0 || v > static_cast<std::int64_t>(UINT32_MAX)) return false;
      *static_cast<std::uint32_t*>(p) = static_cast<std::uint32_t>(v);
      return true;
    case ValueType::Int64: *static_cast<std::int64_t*>(p) = v; return true;
    case ValueType::Double: *static_cast<double*>(p) = static_cast<double>(v); return true;
    case ValueType::WString: *static_cast<std::wstring*>(p) = str::to_wstring(static_cast<long long>(v)); return true;
    default: return false;
  }
}

bool ScalarFromDouble(ValueType type, const meta::MetaEnumCommon* table, double v, void* p) {
  if (type == ValueType::Double) {
    *static_cast<double*>(p) = v;
    return true;
  }
  if (type == ValueType::WString) {
    *static_cast<std::wstring*>(p) = str::to_wstring(v);
    return true;
  }
  std::int64_t i = 0;
  if (!ScalarToInt64(ValueType::Double, &v, i)) return false;
  return ScalarFromInt64(type, table, i, p);
}

namespace {
template <class N>
void AppendNumber(N v, std::string& out) {
  char buf[64];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
  out.append(buf, ec == std::errc() ? end : buf);
}

template <class N>
bool ParseNumber(std::string_view t, N& v) {
  if (!t.empty() && t.front() == '+') t.remove_prefix(1);  // from_chars refuses a plus
  if (t.empty()) return false;
  auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), v);
  return ec == std::errc() && end == t.data() + t.size();
}

using str::is_blank;

// A plain loop: values are short and rarely padded, so the generic
// find_first_not_of (a search per character) cost more than the number.
std::string_view TrimBlanks(std::string_view t) {
  std::size_t b = 0, e = t.size();
  while (b < e && is_blank(t[b])) ++b;
  while (e > b && is_blank(t[e - 1])) --e;
  return t.substr(b, e - b);
}
}  // namespace

void FormatScalar(ValueType type, const meta::MetaEnumCommon* table, const void* p,
                  std::string& out) {
  out.clear();
  switch (type) {
    case ValueType::Bool: out = *static_cast<const bool*>(p) ? "true" : "false"; break;
    case ValueType::Int32: AppendNumber(*static_cast<const std::int32_t*>(p), out); break;
    case ValueType::UInt32: AppendNumber(*static_cast<const std::uint32_t*>(p), out); break;
    case ValueType::Int64: AppendNumber(*static_cast<const std::int64_t*>(p), out); break;
    // Shortest text that reads back to the same bits (-0 stays "-0").
    case ValueType::Double: AppendNumber(*static_cast<const double*>(p), out); break;
    case ValueType::WString: out = str::to_utf8(*static_cast<const std::wstring*>(p)); break;
    case ValueType::Enum: {
      const std::int32_t v = *static_cast<const std::int32_t*>(p);
      std::wstring name;
      // A value missing from the table is kept as its number rather than
      // lost; reading accepts the number back.
      if (table && table->ConvertTo(v, name)) out = str::to_utf8(name);
      else AppendNumber(v, out);
      break;
    }
    default: break;
  }
}

bool ParseScalar(ValueType type, const meta::MetaEnumCommon* table, std::string_view text,
                 void* p, gtl::status& warning) {
  if (type == ValueType::WString) {
    *static_cast<std::wstring*>(p) = str::to_wstring(text);
    return true;
  }
  const std::string_view t = TrimBlanks(text);
  switch (type) {
    case ValueType::Bool:
      if (t == "true" || t == "1") *static_cast<bool*>(p) = true;
      else if (t == "false" || t == "0") *static_cast<bool*>(p) = false;
      else return false;
      return true;
    case ValueType::Int32: return ParseNumber(t, *static_cast<std::int32_t*>(p));
    case ValueType::UInt32:
      if (!t.empty() && t.front() == '-') return false;
      return ParseNumber(t, *static_cast<std::uint32_t*>(p));
    case ValueType::Int64: return ParseNumber(t, *static_cast<std::int64_t*>(p));
    case ValueType::Double: {
      double d = 0;
      if (!ParseNumber(t, d)) return false;
      *static_cast<double*>(p) = d;
      return true;
    }
    case ValueType::Enum: {
      std::int32_t v = qvi::kNone;
      if (!table) return false;
      // A number is accepted when it is a value of the table (values written
      // by number because they were missing from the table).
      if (ParseNumber(t, v) && table->Contains(v)) {
        *static_cast<std::int32_t*>(p) = v;
        return true;
      }
      warning = table->ConvertFrom(str::to_wstring(t), v);
      *static_cast<std::int32_t*>(p) = v;
      return true;
    }
    default: return false;
  }
}

bool ScalarEqual(ValueType type, const void* a, const void* b) {
  switch (type) {
    case ValueType::Bool: return *static_cast<const bool*>(a) == *static_cast<const bool*>(b);
    case ValueType::Int32:
    case ValueType::Enum:
      return *static_cast<const std::int32_t*>(a) == *static_cast<const std::int32_t*>(b);
    case ValueType::UInt32:
      return *static_cast<const std::uint32_t*>(a) == *static_cast<const std::uint32_t*>(b);
    case ValueType::Int64:
      return *static_cast<const std::int64_t*>(a) == *static_cast<const std::int64_t*>(b);
    case ValueType::Double: return std::memcmp(a, b, sizeof(double)) == 0;
    case ValueType::WString:
      return *static_cast<const std::wstring*>(a) == *static_cast<const std::wstring*>(b);
    default: return false;
  }
}

void ScalarCopy(ValueType type, void* dst, const void* src) {
  switch (type) {
    case ValueType::Bool: *static_cast<bool*>(dst) = *static_cast<const bool*>(src); break;
    case ValueType::Int32:
    case ValueType::Enum:
      *static_cast<std::int32_t*>(dst) = *static_cast<const std::int32_t*>(src);
      break;
    case ValueType::UInt32:
      *static_cast<std::uint32_t*>(dst) = *static_cast<const std::uint32_t*>(src);
      break;
    case ValueType::Int64:
      *static_cast<std::int64_t*>(dst) = *static_cast<const std::int64_t*>(src);
      break;
    case ValueType::Double: *static_cast<double*>(dst) = *static_cast<const double*>(src); break;
    case ValueType::WString:
      *static_cast<std::wstring*>(dst) = *static_cast<const std::wstring*>(src);
      break;
    default: break;
  }
}

}  // namespace oc
