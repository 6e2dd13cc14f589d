#pragma once
// A generator of documents of the earlier generation that exercise every
// entry of the migration table, each with the document of this generation
// it must become.
//
// Every entry gives one probe: an old path (its key with "$1" and "$2"
// bound), holding a value made up for the type of the member the
// replacement names, and what must be found afterwards: the value at the
// replacement path, the collection entries the old path leaves behind, or
// nothing for a dropped entry. Probes whose paths overlap go to different
// documents. The expectation is built from the new paths as a document of
// this generation and put through the ordinary reader and writer: it never
// goes through the migration.
#include <string>
#include <vector>

namespace v7::files::testing {

struct GeneratedDocument {
  std::string name;             // "old_01"
  std::string old_xml;          // of the earlier generation
  std::string current_xml;      // the same content in this generation's layout (not yet normalised)
  std::vector<std::wstring> keys;  // the table keys it exercises
};

std::vector<GeneratedDocument> GenerateOldDocuments();

}  // namespace v7::files::testing
