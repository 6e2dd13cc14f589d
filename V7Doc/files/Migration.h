#pragma once
// Reading documents of the earlier generation.
//
// Such a document is recognised by its root alone: <QVDocument> with a
// "Version" whose leading number is below this generation's (1), such as
// "0.9". A document without a version, or of this generation, is read as it
// is and pays one attribute look-up for the check.
//
// An old document is migrated on its parsed XML tree, before the normal
// reader sees it, so that the reader knows one format. Each element's path
// (persisted tags, with the index of each collection entry: the record's
// "ID" where the entry carries one, else its zero-based position) is looked
// up in the table of MigrationTable.h: exactly, then with its indices as
// "$1", "$2" (outermost first), then by the ".*" prefixes; a leaf is first
// looked up with its text as a last step (an enumerator renamed together
// with its member). An element with an entry moves, with everything below it
// that has no entry of its own, to the replacement path; "***IGNORE DATA***"
// drops it and everything below it; an element without an entry stays where
// its parent went. A path is migrated once: a replacement is never looked up
// again. Where two old values land on one new path, the later in the file
// wins.
//
// Each moved value is checked against the member it lands in: a value of the
// wrong type fails the load, an enumerator text that names no value of the
// new member is kept as read with a warning; both name the old path, the new
// path and the line. An index that is no record number where a pattern binds
// it fails the load the same way.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "OC/RecordType.h"
#include "QVI/gtl/status.h"

namespace pugi {
class xml_document;
}

namespace v7::files {

// What one entry of the table did to a document.
enum class MigrationAction {
  Moved,    // to another place of the document
  Renamed,  // the same parent, another name (or another enumerator)
  Dropped,  // read and thrown away
};

struct MigrationCount {
  std::wstring key;          // the entry's old path pattern
  std::wstring replacement;  // its replacement
  MigrationAction action = MigrationAction::Moved;
  std::size_t values = 0;  // values (leaf elements) it took
};

struct MigrationReport {
  std::wstring fromVersion;             // the old document's version
  std::vector<MigrationCount> counts;   // by entry, in the table's order
  std::vector<gtl::status> messages;    // warnings and errors, in reading order
  std::size_t errors = 0;
};

// True for the "Version" of a document of the earlier generation.
bool IsEarlierGenerationVersion(std::wstring_view version);
// True when the parsed `doc` is of the earlier generation.
bool IsEarlierGeneration(const pugi::xml_document& doc);

// Rewrites the old document `doc` (parsed from `source`, for line numbers)
// into the current layout and version. Fails with the first error; the
// tree is then not to be read.
gtl::status MigrateDocument(pugi::xml_document& doc, std::string_view source, MigrationReport& report);

// How a path pattern of the table resolves in today's schema.
enum class SchemaResolution {
  None,        // no member
  Member,      // a member (any "$1"/fixed index on a collection)
  Enumerator,  // a member holding an enumeration, then one of its value names
  Prefix,      // a record member followed by the dot of a ".*" replacement
};
// `member`, when given, is set to the member reached (the enumeration
// member for Enumerator, the record member for Prefix).
SchemaResolution ResolveInSchema(std::wstring_view pattern, const oc::Member** member = nullptr);

}  // namespace v7::files
