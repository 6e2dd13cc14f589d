#include "V7Doc/document/DocumentTransaction.h"

#include <exception>
#include <string>

#include "V7Doc/document/QVDocument.h"

namespace v7 {

DocumentTransaction::DocumentTransaction(QVDocument& doc) : doc_(doc) { doc_.BeginTransaction(); }

DocumentTransaction::~DocumentTransaction() {
  if (open_) doc_.AbortTransaction();
}

void DocumentTransaction::Commit(const std::wstring& label) {
  if (!open_) return;
  open_ = false;
  doc_.CommitTransaction(label);
}

gtl::status EditDocument(QVDocument& doc, const std::wstring& label,
                         const std::function<gtl::status(QVDocument&)>& edit) {
  DocumentTransaction t(doc);
  gtl::status s;
  try {
    s = edit(doc);
  } catch (const std::exception& e) {
    constexpr unsigned kEditFailed = 30004;  // "The edit "%s" failed and was taken back: %s."
    s = gtl::status::error(kEditFailed, label, std::string(e.what()));
  }
  if (!s.failed()) t.Commit(label);
  return s;
}

}  // namespace v7
