#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/KeptTextPaths.h"

#include <pugixml.hpp>

#include "OC/package/AtomicFile.h"
#include "OC/package/Package.h"
#include "OC/xml/XML.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentSchema.h"
#include "V7Doc/files/ReferenceCheck.h"
#include "V7Doc/functions/FnReferences.h"

namespace v7::files {
namespace {
constexpr unsigned kMsgCannotLoad = 31033;
constexpr unsigned kMsgCannotSave = 31034;
constexpr unsigned kMsgUnknownKind = 31035;
constexpr unsigned kMsgNoDocumentEntry = 31036;

bool EndsWithNoCase(std::wstring_view s, std::wstring_view ext) {
  return s.size() >= ext.size() && str::iequals(s.substr(s.size() - ext.size()), ext);
}

gtl::status LoadFailed(const std::wstring& path, const gtl::status& why) {
  return gtl::status::error(kMsgCannotLoad, path, why.message());
}
gtl::status SaveFailed(const std::wstring& path, const gtl::status& why) {
  return gtl::status::error(kMsgCannotSave, path, why.message());
}

std::wstring DocumentSource(const std::wstring& path) {
  return path + L" (" + oc::package::Package::kDocumentEntry + L")";
}

// Opens package `path` into `pkg` and takes its document entry out into
// `xml`: what stays in `pkg` are the other entries, none decompressed.
gtl::status OpenPackage(const std::wstring& path, oc::package::Package& pkg, std::string& xml) {
  if (!EndsWithNoCase(path, oc::package::Package::kExtension)) return gtl::status::error(kMsgUnknownKind, path);
  if (auto s = pkg.Open(path); s.failed()) return LoadFailed(path, s);
  if (!pkg.Contains(oc::package::Package::kDocumentEntry))
    return gtl::status::error(kMsgNoDocumentEntry, path, oc::package::Package::kDocumentEntry);
  if (auto s = pkg.Read(oc::package::Package::kDocumentEntry, xml); s.failed()) return LoadFailed(path, s);
  return pkg.Remove(oc::package::Package::kDocumentEntry);
}

}  // namespace

bool IsPackagePath(const std::wstring& path) { return EndsWithNoCase(path, oc::package::Package::kExtension); }
bool IsDocumentXmlPath(const std::wstring& path) { return EndsWithNoCase(path, L".xml"); }

gtl::status DocumentToXml(const QVDocument& doc, std::string& xml) {
  if (auto s = RegisterDocumentSchema(); s.failed()) return s;
  const oc::xml::KeptTexts kept = KeptTextsByPath(doc);
  return oc::xml::StringWrite(DocumentStore(const_cast<QVDocument&>(doc)), xml, &kept);
}

gtl::status DocumentFromXml(std::string_view xml, QVDocument& doc, const std::wstring& source,
                            LoadReport* report) {
  if (auto s = RegisterDocumentSchema(); s.failed()) return s;
  oc::xml::ReadReport read;
  pugi::xml_document dom;
  if (auto s = oc::xml::StringParse(xml, dom, kDocumentRootTag, &read); s.failed()) return LoadFailed(source, s);
  // A document of the earlier generation is brought to this one's layout
  // before the reader sees it; one of this generation costs the check.
  MigrationReport migrated;
  const bool old = IsEarlierGeneration(dom);
  if (old)
    if (auto s = MigrateDocument(dom, xml, migrated); s.failed()) return LoadFailed(source, s);
  // The reader builds a fresh document and moves it into `doc` only when
  // it found no error.
  if (auto s = oc::xml::FileImport(dom, DocumentStore(doc), &read, xml); s.failed())
    return LoadFailed(source, s);
  doc.OnCollectionsReplaced();
  // A reference to a record that is not there is reported, not repaired:
  // the file may have been edited by hand, and the number saves back as read.
  std::vector<gtl::status> dangling = CheckReferences(doc);
  AdoptKeptTexts(doc, read.kept);
  if (report) {
    report->version = old ? migrated.fromVersion : read.version;
    report->migrated = old;
    report->migration = std::move(migrated.counts);
    report->warnings = std::move(migrated.messages);
    for (const auto& m : read.messages)
      if (!m.succeeded()) report->warnings.push_back(m);
    report->warnings.insert(report->warnings.end(), dangling.begin(), dangling.end());
    // Functions whose numbers lead back to themselves load (the user can
    // mend them) but have no value; say so now rather than at evaluation.
    FindFnReferenceCycles(doc, report->warnings);
  }
  return {};
}

gtl::status SaveDocument(const QVDocument& doc, const std::wstring& path, oc::package::Package& package) {
  const bool isPackage = IsPackagePath(path);
  if (!isPackage && !IsDocumentXmlPath(path)) return gtl::status::error(kMsgUnknownKind, path);
  std::string xml;
  if (auto s = DocumentToXml(doc, xml); s.failed()) return SaveFailed(path, s);
  if (!isPackage) {
    if (auto s = oc::package::WriteFileAtomic(path, xml); s.failed()) return SaveFailed(path, s);
    return {};
  }
  if (auto s = package.Write(oc::package::Package::kDocumentEntry, std::move(xml)); s.failed())
    return SaveFailed(path, s);
  if (auto s = package.Save(path); s.failed()) return SaveFailed(path, s);
  return {};
}

gtl::status SaveDocument(const QVDocument& doc, const std::wstring& path, const PackageEntries& results) {
  oc::package::Package pkg;
  if (IsPackagePath(path))
    for (const auto& [name, bytes] : results) {
      if (name == oc::package::Package::kDocumentEntry) continue;  // the document is ours to write
      if (auto s = pkg.Write(name, bytes); s.failed()) return SaveFailed(path, s);
    }
  return SaveDocument(doc, path, pkg);
}

gtl::status LoadDocument(const std::wstring& path, QVDocument& doc, oc::package::Package& package,
                         LoadReport* report) {
  if (IsDocumentXmlPath(path)) {
    std::string xml;
    if (auto s = oc::package::ReadWholeFile(path, xml); s.failed()) return LoadFailed(path, s);
    if (auto s = DocumentFromXml(xml, doc, path, report); s.failed()) return s;
    package.Clear();
    return {};
  }
  oc::package::Package pkg;
  std::string xml;
  if (auto s = OpenPackage(path, pkg, xml); s.failed()) return s;
  if (auto s = DocumentFromXml(xml, doc, DocumentSource(path), report); s.failed()) return s;
  package = std::move(pkg);
  return {};
}

gtl::status LoadDocument(const std::wstring& path, QVDocument& doc, PackageEntries* results,
                         LoadReport* report) {
  if (IsDocumentXmlPath(path)) {
    std::string xml;
    if (auto s = oc::package::ReadWholeFile(path, xml); s.failed()) return LoadFailed(path, s);
    return DocumentFromXml(xml, doc, path, report);
  }
  oc::package::Package pkg;
  std::string xml;
  if (auto s = OpenPackage(path, pkg, xml); s.failed()) return s;
  // Every entry is read (and checked) before the document is replaced.
  PackageEntries others;
  if (results)
    for (const auto& name : pkg.List())
      if (auto s = pkg.Read(name, others[name]); s.failed()) return LoadFailed(path, s);
  if (auto s = DocumentFromXml(xml, doc, DocumentSource(path), report); s.failed()) return s;
  if (results) *results = std::move(others);
  return {};
}

gtl::status ListPackageEntries(const std::wstring& path, std::vector<std::wstring>& names) {
  oc::package::Package pkg;
  if (auto s = pkg.Open(path); s.failed()) return LoadFailed(path, s);
  names.clear();
  for (auto& name : pkg.List())
    if (name != oc::package::Package::kDocumentEntry) names.push_back(std::move(name));
  return {};
}

}  // namespace v7::files
