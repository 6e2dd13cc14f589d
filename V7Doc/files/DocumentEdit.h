#pragma once
// Editing a project on disk: one value by its path, or the whole project
// saved again in another form. Both load into a fresh document, so a file
// that does not load is never written, and both save atomically, so a
// failure leaves the file as it was, byte for byte.
#include <string>
#include <vector>

#include "QVI/gtl/status.h"

namespace v7 {
class QVDocument;
}

namespace v7::files {

// What SetValueInFile did.
struct SetReport {
  std::wstring value;                 // the stored value as displayed (with units)
  std::vector<gtl::status> warnings;  // from loading, and from the setter
};

// Sets the value at `path` of `doc` (member names, tags, aliases or a path
// expression) from `text`, checked as any Set checks it (type, enumeration
// name, bounds, read-only); a record or a collection is refused. On success
// `report` holds the value as displayed and any warning of the setter.
gtl::status SetValueInDocument(QVDocument& doc, const std::wstring& path, const std::wstring& text,
                               SetReport* report = nullptr);

// Loads `file` (".qvz" or ".xml"), sets the value at `path` (member names,
// tags, aliases or a path expression: "analyses[1].Name",
// "v7::doc::FileInfo().Title") from `text`, and saves the file in
// place with its result entries. The value is checked as any Set checks it
// (type, enumeration name, bounds, read-only); a path that names no value,
// or a value refused, fails and leaves the file untouched.
gtl::status SetValueInFile(const std::wstring& file, const std::wstring& path,
                           const std::wstring& text, SetReport* report = nullptr);

// Loads `in` and saves it as `out` (".qvz" or ".xml"). From one package to
// another the result entries go along; a bare document has none to give or
// take. Returns the number of result entries written in `written`.
gtl::status ConvertFile(const std::wstring& in, const std::wstring& out,
                        std::size_t* written = nullptr,
                        std::vector<gtl::status>* warnings = nullptr);

}  // namespace v7::files
