#include "OC/Path.h"

#include "OC/OCError.h"
#include "OC/Registry.h"
#include "QVI/str/Convert.h"

namespace oc {
namespace {

bool ParseIndex(std::wstring_view text, std::uint64_t& out) {
  if (text.empty() || text.size() > 19) return false;
  std::uint64_t v = 0;
  for (wchar_t c : text) {
    if (c < L'0' || c > L'9') return false;
    v = v * 10 + static_cast<std::uint64_t>(c - L'0');
  }
  out = v;
  return true;
}

// "$1".."$9" -> 0..8; -1 otherwise.
int Wildcard(std::wstring_view text) {
  if (text.size() == 2 && text[0] == L'$' && text[1] >= L'1' && text[1] <= L'9') return text[1] - L'1';
  return -1;
}

gtl::status Resolve(const IODS& ds, std::wstring_view path, IOC& out, bool tags_only) {
  if (!ds.IsValid()) return OCError::not_recognized(std::wstring(path), L"(no object)");
  std::vector<PathStep> steps;
  if (auto s = ParsePath(path, steps); s.failed()) return s;
  IOC cur(ds);
  std::wstring where;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const PathStep& st = steps[i];
    where += (i ? L"." : L"") + st.name;
    IOC next = tags_only ? cur.GetSubOCByTag(st.name) : cur.GetSubOC(st.name);
    // A member may be written as a call of its accessor.
    if (!next.IsValid() && !tags_only) {
      const std::wstring_view bare = StripCall(st.name);
      if (!bare.empty() && bare.size() < st.name.size()) next = cur.GetSubOC(bare);
    }
    if (!next.IsValid() && i == 0 && !tags_only)
      if (const Member* m = OCRegistry::Instance().ResolveAlias(*ds.type, StripCall(st.name)))
        next = cur.GetSubOC(m->name);
    if (!next.IsValid()) return OCError::not_recognized(st.name, where);
    if (st.has_index) {
      std::uint64_t n = 0;
      if (!IsArray(next)) return OCError::not_supported(L"An index on a value", where);
      if (!ParseIndex(st.index, n)) return OCError::not_recognized(st.index, where);
      where += L"[" + st.index + L"]";
      next = next.At(n);
      if (!next.IsValid()) return OCError::not_recognized(st.index, where);
    }
    cur = std::move(next);
  }
  cur.SetWhere(std::wstring(path));
  out = std::move(cur);
  return {};
}

}  // namespace

std::wstring_view StripCall(std::wstring_view name) {
  if (name.ends_with(L"()")) name.remove_suffix(2);
  return name;
}

gtl::status ParsePath(std::wstring_view path, std::vector<PathStep>& steps) {
  steps.clear();
  PathStep cur;
  int depth = 0;
  bool after_index = false;
  for (std::size_t i = 0; i <= path.size(); ++i) {
    const wchar_t c = i < path.size() ? path[i] : L'.';
    if (depth == 0 && c == L'.') {
      if (cur.name.empty()) return OCError::not_recognized(std::wstring(path), L"an empty path step");
      steps.push_back(std::move(cur));
      cur = PathStep{};
      after_index = false;
    } else if (c == L'[') {
      if (depth || cur.has_index || cur.name.empty())
        return OCError::not_recognized(std::wstring(path), L"a path index");
      depth = 1;
      cur.has_index = true;
    } else if (c == L']') {
      if (!depth) return OCError::not_recognized(std::wstring(path), L"a path index");
      depth = 0;
      after_index = true;
    } else if (depth) {
      cur.index += c;
    } else {
      // Text after "]" other than "." is a second index or garbage.
      if (after_index) return OCError::not_recognized(std::wstring(path), L"a path step");
      cur.name += c;
    }
  }
  if (depth) return OCError::not_recognized(std::wstring(path), L"a path index");
  return {};
}

gtl::status Find(const IODS& ds, std::wstring_view path, IOC& out) {
  return Resolve(ds, path, out, false);
}

gtl::status FindTag(const IODS& ds, std::wstring_view path, IOC& out) {
  return Resolve(ds, path, out, true);
}

std::wstring GetParent(std::wstring_view path) {
  int depth = 0;
  for (std::size_t i = path.size(); i-- > 0;) {
    if (path[i] == L']') ++depth;
    else if (path[i] == L'[') --depth;
    else if (path[i] == L'.' && depth == 0) return std::wstring(path.substr(0, i));
  }
  return {};
}

std::wstring GetSibling(std::wstring_view path, std::wstring_view name) {
  std::wstring parent = GetParent(path);
  return parent.empty() ? std::wstring(name) : parent + L"." + std::wstring(name);
}

bool IsArray(const IOC& node) {
  return node.kind() == IOC::Kind::Member &&
         (node.Type() == ValueType::Array || node.Type() == ValueType::Table);
}

bool Match(std::wstring_view pattern, std::wstring_view path, Bindings& b) {
  b = Bindings{};
  std::vector<PathStep> ps, xs;
  if (ParsePath(pattern, ps).failed() || ParsePath(path, xs).failed()) return false;
  const bool open = !ps.empty() && ps.back().name == L"*" && !ps.back().has_index;
  if (open) ps.pop_back();
  if (open ? xs.size() <= ps.size() : xs.size() != ps.size()) return false;
  for (std::size_t i = 0; i < ps.size(); ++i) {
    if (ps[i].name != xs[i].name || ps[i].has_index != xs[i].has_index) return false;
    if (!ps[i].has_index) continue;
    const int w = Wildcard(ps[i].index);
    if (w < 0) {
      if (ps[i].index != xs[i].index) return false;
      continue;
    }
    std::uint64_t n = 0;
    if (!ParseIndex(xs[i].index, n)) return false;
    if (b.index[w] && *b.index[w] != n) return false;
    b.index[w] = n;
  }
  if (open) {
    // The rest, spelt as in the path.
    std::size_t pos = 0;
    for (std::size_t i = 0; i < ps.size(); ++i) {
      pos = path.find(L'.', pos);
      // Dots inside an index cannot occur: indices are digits.
      ++pos;
    }
    b.rest = std::wstring(path.substr(pos));
  }
  return true;
}

std::wstring Substitute(std::wstring_view pattern, const Bindings& b) {
  std::wstring out;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const int w = i + 1 < pattern.size() ? Wildcard(pattern.substr(i, 2)) : -1;
    if (w >= 0 && b.index[w]) {
      out += str::to_wstring(static_cast<unsigned long long>(*b.index[w]));
      ++i;
    } else if (pattern[i] == L'*' && i + 1 == pattern.size() && (i == 0 || pattern[i - 1] == L'.')) {
      out += b.rest;
    } else {
      out += pattern[i];
    }
  }
  return out;
}

std::wstring OCSet::FormName(std::wstring_view base, std::initializer_list<std::uint64_t> indices) {
  std::wstring out(base);
  for (auto i : indices) out += L"[" + str::to_wstring(static_cast<unsigned long long>(i)) + L"]";
  return out;
}

}  // namespace oc
