#pragma once
// The document keeps unknown enumeration names by table and record (so that
// they follow their records); the reader reports them and the writer looks
// them up by member path ("Analyses[3].Method"). These convert between the
// two through the document's declaration: a table member's persisted path
// and the container registered at that member.
#include "OC/xml/XML.h"

namespace v7 {
class QVDocument;

namespace files {

// Stores `by_path` in `doc`, each text under its table and record where its
// path starts inside a registered table, else under its whole path.
void AdoptKeptTexts(QVDocument& doc, const oc::xml::KeptTexts& by_path);

// The document's kept texts by member path, as the writer takes them.
oc::xml::KeptTexts KeptTextsByPath(const QVDocument& doc);

}  // namespace files
}  // namespace v7
