#pragma once
// Paths through a live object tree, and path patterns.
//
// A path is a list of steps separated by dots. A step names a member by its
// C++ name or its persisted tag, a wrapper element by its tag, or (first
// step only) a top-level member by its alias; the alias may be written as a
// call ("v7::doc::Climate()"). "[n]" after a step selects one element of a
// collection: zero-based in an array, the record's GID in an identified
// table. In a pattern, "[$1]".."[$9]" match any index and bind it, and a
// last step "*" matches the rest of a path.
#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OC/IOC.h"

namespace oc {

struct PathStep {
  std::wstring name;
  bool has_index = false;
  std::wstring index;  // the text between the brackets ("3", "$1")
};

// Splits a path into steps; fails on empty steps and unbalanced brackets.
gtl::status ParsePath(std::wstring_view path, std::vector<PathStep>& steps);
// A step's name without a trailing call "()": a member may be written as a
// call of its accessor ("GetStabPWPCondOption()", "v7::doc::Climate()").
std::wstring_view StripCall(std::wstring_view name);

// Resolves `path` from the object of `ds`: member names, tags and aliases.
gtl::status Find(const IODS& ds, std::wstring_view path, IOC& out);
// Resolves `path` by persisted tags only (the names a file uses).
gtl::status FindTag(const IODS& ds, std::wstring_view path, IOC& out);
// The path without its last step ("" for a one-step path).
std::wstring GetParent(std::wstring_view path);
// The path of the sibling `name` of the last step.
std::wstring GetSibling(std::wstring_view path, std::wstring_view name);
// True for a collection node (array or identified table).
bool IsArray(const IOC& node);

// What a pattern bound: index[k] for "$k+1", and the rest matched by "*".
struct Bindings {
  std::array<std::optional<std::uint64_t>, 9> index;
  std::wstring rest;
};
// True when `path` matches `pattern`; fills `b`. Names compare exactly; a
// wildcard bound twice must bind the same index.
bool Match(std::wstring_view pattern, std::wstring_view path, Bindings& b);
// `pattern` with each "$k" replaced by its bound index and a last "*"
// replaced by the bound rest. Unbound wildcards stay as they are.
std::wstring Substitute(std::wstring_view pattern, const Bindings& b);

struct OCSet {
  // An element name from a base name and indices: ("Points", {3}) -> "Points[3]".
  static std::wstring FormName(std::wstring_view base, std::initializer_list<std::uint64_t> indices);
  // The child of `parent` persisted under `tag`.
  static IOC FindTag(const IOC& parent, std::wstring_view tag) { return parent.GetSubOCByTag(tag); }
};

}  // namespace oc
