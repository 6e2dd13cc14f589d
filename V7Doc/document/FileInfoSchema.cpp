// Persisted names of the document's file information.
#include "OC/Schema.h"
#include "V7Doc/document/FileInfo.h"

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<FileInfo>() {
  using T = FileInfo;
  static const RecordType& t = Schema<T>(L"FileInfo")
      .Add(&T::title_, L"title_", L"Title")
      .Add(&T::author_, L"author_", L"Author")
      .Add(&T::comments_, L"comments_", L"Comments")
      .Add(&T::created_, L"created_", L"Created")
      .Add(&T::lastSavedBy_, L"lastSavedBy_", L"LastSavedBy")
      .Add(&T::lastSaved_, L"lastSaved_", L"LastSaved")
      .Add(&T::nRevision_, L"nRevision_", L"Revision", meta::MetaDataTraits{}.Bounds(0, 2147483646))
      .Done();
  return t;
}

}  // namespace oc
