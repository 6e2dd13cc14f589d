#pragma once
// The document root as the framework sees it: the top-level object
// "QVDocument", its members under their persisted names, their aliases and
// the persistence orderings.
//
// The root element is <QVDocument Version="1.0">. The version counts
// changes of this generation's layout: a reader that meets a higher one
// still reads what it knows and warns about the rest.
#include <string>

#include "OC/RecordType.h"
#include "QVI/gtl/status.h"

namespace v7 {
class QVDocument;

namespace files {

// The root element's name and format version.
inline constexpr const wchar_t* kDocumentRootTag = L"QVDocument";
inline constexpr const wchar_t* kDocumentFormatVersion = L"1.0";

// Declares the root, its aliases and orderings, and closes registration;
// done once per process (at library load, and on first use in case a host
// loads the library before its own declarations). Returns the first
// declaration problem, or success.
gtl::status RegisterDocumentSchema();

// The data store handle of a live document.
oc::IODS DocumentStore(QVDocument& doc);

}  // namespace files
}  // namespace v7
