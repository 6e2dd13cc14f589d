#include "V7Doc/files/DocumentEdit.h"

#include "OC/Path.h"
#include "OC/package/Package.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/files/DocumentPaths.h"

namespace v7::files {
namespace {
constexpr unsigned kMsgNotAValue = 31045;
}  // namespace

gtl::status SetValueInDocument(QVDocument& doc, const std::wstring& path, const std::wstring& text,
                               SetReport* report) {
  SetReport local;
  SetReport& r = report ? *report : local;
  oc::IOC node;
  if (auto s = doc::FindInDocument(doc, path, node); s.failed()) return s;
  // A record or a collection has no text of its own to set.
  if (oc::IsArray(node) || node.Type() == oc::ValueType::Struct)
    return gtl::status::error(kMsgNotAValue, path, L"the document");
  const gtl::status set = node.Set(text);
  if (set.failed()) return set;
  if (set.is_warning()) r.warnings.push_back(set);
  r.value = oc::PrettyPrintValue(node);
  return {};
}

gtl::status SetValueInFile(const std::wstring& file, const std::wstring& path,
                           const std::wstring& text, SetReport* report) {
  SetReport local;
  SetReport& r = report ? *report : local;
  r = SetReport{};
  QVDocument doc;
  // The result entries stay in the file until the save copies them as
  // they are: setting one value costs the document, not the results.
  oc::package::Package results;
  LoadReport loaded;
  if (auto s = LoadDocument(file, doc, results, &loaded); s.failed()) return s;
  r.warnings = std::move(loaded.warnings);
  SetReport set;
  if (auto s = SetValueInDocument(doc, path, text, &set); s.failed())
    return s.id() == kMsgNotAValue ? gtl::status::error(kMsgNotAValue, path, file) : s;
  r.warnings.insert(r.warnings.end(), set.warnings.begin(), set.warnings.end());
  if (auto s = SaveDocument(doc, file, results); s.failed()) return s;
  r.value = std::move(set.value);
  return {};
}

gtl::status ConvertFile(const std::wstring& in, const std::wstring& out, std::size_t* written,
                        std::vector<gtl::status>* warnings) {
  QVDocument doc;
  oc::package::Package results;
  LoadReport loaded;
  if (auto s = LoadDocument(in, doc, results, &loaded); s.failed()) return s;
  if (warnings) *warnings = std::move(loaded.warnings);
  if (!IsPackagePath(out)) results.Clear();
  if (auto s = SaveDocument(doc, out, results); s.failed()) return s;
  // The document entry SaveDocument added is not a result.
  if (written) *written = results.List().size() - (IsPackagePath(out) ? 1 : 0);
  return {};
}

}  // namespace v7::files
