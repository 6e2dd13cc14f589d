#pragma once
// Undoable edits of a document, for callers that may fail halfway.
#include <functional>
#include <string>

#include "QVI/gtl/status.h"

namespace v7 {

class QVDocument;

// A transaction that is taken back unless committed: open it, edit, and
// Commit(label) once everything succeeded; leaving the scope earlier (a
// return on an error, an exception) aborts, and the document is as before.
class DocumentTransaction {
 public:
  explicit DocumentTransaction(QVDocument& doc);
  ~DocumentTransaction();
  DocumentTransaction(const DocumentTransaction&) = delete;
  DocumentTransaction& operator=(const DocumentTransaction&) = delete;

  // Closes the transaction as one undo step named `label`.
  void Commit(const std::wstring& label);

 private:
  QVDocument& doc_;
  bool open_ = true;
};

// Runs `edit` as one undo step named `label`. When it returns a failure (or
// throws), everything it changed in the recorded tables is taken back and
// its status (or a status naming the exception) is returned.
gtl::status EditDocument(QVDocument& doc, const std::wstring& label,
                         const std::function<gtl::status(QVDocument&)>& edit);

}  // namespace v7
