#pragma once
// Turns the add-in name stored in a document (an "Assembly" value) into the
// full path of the add-in file.
//
// The folders searched, in order:
//  1. the folders of the environment variable QVV7_ADDIN_PATH (separated by
//     ':' on Linux, ';' on Windows);
//  2. the user's add-in folder: SetUserFolder's, else
//     $XDG_DATA_HOME/qvv7/addins, else $HOME/.local/share/qvv7/addins;
//  3. the folder of the open document (SetDocumentFolder).
// A stored name is a file name or a relative path below one of these folders.
// Names that could reach outside them are refused before any file is looked
// at: absolute paths, drive or root names, and any ".." step. A name whose
// resolved file (symbolic links followed) lies outside its folder is refused
// too. So a project file received from someone else cannot make the program
// load a library from an arbitrary place.
#include <filesystem>
#include <string>
#include <vector>

#include "QVI/gtl/status.h"

namespace qvi::addins {

class AddInsManager {
 public:
  static AddInsManager& Instance();

  // The full path of the add-in `name`, or a status saying why there is none
  // (a refused name, or a name found in no folder).
  gtl::status GetAddInPath(const std::wstring& name, std::wstring& path) const;

  // The folders searched, in order (folders that do not exist included).
  std::vector<std::filesystem::path> SearchFolders() const;

  // The user's add-in folder; empty restores the default.
  void SetUserFolder(const std::wstring& folder) { userFolder_ = folder; }
  // The folder of the open document; empty for none.
  void SetDocumentFolder(const std::wstring& folder) { documentFolder_ = folder; }

  // True when `name` is acceptable as a stored add-in name (see above).
  static bool IsContainedName(const std::wstring& name);

 private:
  AddInsManager() = default;
  std::wstring userFolder_;
  std::wstring documentFolder_;
};

}  // namespace qvi::addins
