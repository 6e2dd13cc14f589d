#pragma once
// Where the tests find the example and fixture add-ins, and scoped changes of
// the process-wide bridge table and add-in folders.
#include <string>

#include "Common/ExternalObject.h"
#include "QVI/qvi/addins/AddInsManager.h"
#include "QVI/str/Convert.h"

namespace v7::testing {

inline std::wstring ExampleDir() { return str::to_wstring(QVV7_EXAMPLE_ADDIN_DIR); }
inline std::wstring FixtureDir() { return str::to_wstring(QVV7_TEST_ADDIN_DIR); }

// The examples in the user's add-in folder, the fixtures in the document's.
class AddInFolders {
 public:
  AddInFolders() {
    qvi::addins::AddInsManager::Instance().SetUserFolder(ExampleDir());
    qvi::addins::AddInsManager::Instance().SetDocumentFolder(FixtureDir());
  }
  ~AddInFolders() {
    qvi::addins::AddInsManager::Instance().SetUserFolder({});
    qvi::addins::AddInsManager::Instance().SetDocumentFolder({});
  }
};

// Installs `table` as the process-wide bridge for the scope.
class ScopedBridge {
 public:
  explicit ScopedBridge(const ExternalObject& table) : old_(ExternalObject::Install(table)) {}
  ~ScopedBridge() { ExternalObject::Install(old_); }

 private:
  ExternalObject old_;
};

}  // namespace v7::testing
