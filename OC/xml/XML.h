#pragma once
// XML persistence of declared objects.
//
// The document is one root element (the top-level object's registered tag)
// with a "Version" attribute; below it every member is an element named by
// its persisted tag, wrapper elements where tags are dotted, collections as
// an element holding one element per entry, and the records of identified
// tables led by their <ID>. Members at their default are not written.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "OC/RecordType.h"

namespace pugi {
class xml_document;
}

namespace oc::xml {

// Texts a read could not take, by the path of the member that held them
// ("Analyses[1].Kind" -> "STABLE"): enumeration names unknown to this
// version, which read as the undefined value. Handed back to a write, each
// is written again, as read, where its member is still undefined, so that a
// load and a save lose nothing.
using KeptTexts = std::map<std::wstring, std::string>;

// What a read found.
struct ReadReport {
  std::vector<gtl::status> messages;  // warnings and errors, in reading order
  std::wstring version;               // the root's "Version" attribute
  std::size_t errors = 0;             // how many of the messages are errors
  KeptTexts kept;                     // unknown enumeration names, as read
};

// Reads the XML file `path` into the object of `target`. The file is read
// into a fresh object which replaces the target only when no error was
// found: on failure the target is untouched. Warnings (unknown elements,
// unknown enumeration names) do not fail the read.
gtl::status FileRead(const std::wstring& path, const IODS& target, ReadReport* report = nullptr);
// The same from text in memory (a package entry).
gtl::status StringRead(std::string_view xml, const IODS& target, ReadReport* report = nullptr);
// Parses `xml` with ParseOptions into `doc`, refusing what StringRead
// refuses before reading (a NUL reference, no element); `what` names the
// expected object in a parse error.
gtl::status StringParse(std::string_view xml, pugi::xml_document& doc, std::wstring_view what,
                        ReadReport* report = nullptr);
// Reads an already parsed (and possibly rewritten) document. `source` is the
// text it was parsed from, for line numbers; empty when there is none.
gtl::status FileImport(const pugi::xml_document& doc, const IODS& target,
                       ReadReport* report = nullptr, std::string_view source = {});
// Writes the object of `source` as XML text (UTF-8), with the texts of
// `kept` (from the read that made the object) where their members are still
// undefined. Fails, writing nothing, on a text that holds a NUL.
gtl::status StringWrite(const IODS& source, std::string& xml, const KeptTexts* kept = nullptr);
// Writes the object of `source` to the XML file `path`.
gtl::status FileWrite(const IODS& source, const std::wstring& path);

// The parse options every reader uses: whitespace-only text kept as a
// value, line ends kept as written (a "\r" in a text survives).
unsigned ParseOptions();

// Fixes that the element at tag path `first` is written and read before the
// one at `second` ("GeometryItems.Points" before "GeometryItems.Lines").
void RegisterPersistanceOrdering(std::wstring first, std::wstring second);

}  // namespace oc::xml
