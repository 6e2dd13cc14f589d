#pragma once
// Saving and loading a whole document: a project package (".qvz": the
// document entry and the result entries the caller supplies) or a bare
// document (".xml"). Saves replace the file atomically; loads read into a
// fresh document and replace the caller's only on success.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/files/Migration.h"

namespace oc::package {
class Package;
}

namespace v7 {
class QVDocument;

namespace files {

// Entries of a package other than the document: name -> bytes
// ("Analysis1/Heads.csv" -> the file).
using PackageEntries = std::map<std::wstring, std::string>;

// What a successful load found besides the data.
struct LoadReport {
  std::wstring version;                // the document's format version, as the file gives it
  std::vector<gtl::status> warnings;   // unknown elements or names, values outside bounds
  bool migrated = false;               // the file was of the earlier generation
  std::vector<MigrationCount> migration;  // what migration did, by entry
};

// True when `path` ends with ".qvz" or ".xml" (any case).
bool IsPackagePath(const std::wstring& path);
bool IsDocumentXmlPath(const std::wstring& path);

// The document as XML text (UTF-8).
gtl::status DocumentToXml(const QVDocument& doc, std::string& xml);
// Reads XML text into `doc`; on failure `doc` is untouched. `source` names
// the text in messages.
gtl::status DocumentFromXml(std::string_view xml, QVDocument& doc, const std::wstring& source,
                            LoadReport* report = nullptr);

// Saves `doc` to `path`: a package when it ends with ".qvz" (with
// `results` as further entries, names checked), bare XML when ".xml". On
// failure the file at `path` is as it was.
gtl::status SaveDocument(const QVDocument& doc, const std::wstring& path,
                         const PackageEntries& results = {});
// Loads `path` (".qvz" or ".xml") into `doc`; a package's other entries go
// to `results` when given. On failure `doc` and `results` are untouched and
// the status names the file and, for bad content, the line and path.
gtl::status LoadDocument(const std::wstring& path, QVDocument& doc,
                         PackageEntries* results = nullptr, LoadReport* report = nullptr);

// The same, keeping the package open: `package` lists the result entries
// of package `path` (empty for a ".xml"), none of them decompressed until
// Read asks for it. On failure `doc` and `package` are untouched.
gtl::status LoadDocument(const std::wstring& path, QVDocument& doc, oc::package::Package& package,
                         LoadReport* report = nullptr);
// Saves `doc` to `path` with the other entries of `package`: those read
// from a file and never rewritten are copied compressed as they were, so
// saving after an edit costs the document, not the results. Bare XML takes
// no entries. The package's document entry is replaced by `doc`.
gtl::status SaveDocument(const QVDocument& doc, const std::wstring& path, oc::package::Package& package);

// The names of the entries of package `path` other than the document,
// sorted, read from its directory alone: nothing is decompressed.
gtl::status ListPackageEntries(const std::wstring& path, std::vector<std::wstring>& names);

}  // namespace files
}  // namespace v7
