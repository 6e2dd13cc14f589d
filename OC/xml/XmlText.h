#pragma once
// Escaping of element text and attribute values, exactly as pugixml writes
// them, so that a document written straight to text has the bytes a saved
// DOM would have: markup characters as entities, control characters other
// than tab, line feed and carriage return as two-digit character references
// ("&#01;"); in attributes those three as well, and the double quote.
// Text ends at its first NUL, as a C string given to a DOM would.
#include <string>
#include <string_view>

namespace oc::xml {

// Appends UTF-8 `text` to `out`, escaped as element content.
void AppendEscapedText(std::string& out, std::string_view text);
// Appends UTF-8 `text` to `out`, escaped as a double-quoted attribute value.
void AppendEscapedAttribute(std::string& out, std::string_view text);

}  // namespace oc::xml
