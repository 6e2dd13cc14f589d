#pragma once
// The application object: the one way the library loads the suite's other
// native libraries (the add-in bridge among them).
//
// Where a library is looked for, in order:
//  1. the folders of the environment variable QVV7_LIBRARY_PATH (separated by
//     ':' on Linux, ';' on Windows), so that a host or a test can point at a
//     build tree or at another bridge;
//  2. the folder of the library that holds this code (libQVV7.so found
//     through the loader's address lookup), where the build and the install
//     both put the bridge.
// The system's own search (LD_LIBRARY_PATH, the loader cache) is not used: a
// library of the same name elsewhere on the machine is never picked up by
// accident.
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "QVI/gtl/status.h"

namespace qvi::app {

// The file name of the suite library with base name `base` on this platform
// ("Qvi.MngSrv.Interop" -> "libQvi.MngSrv.Interop.so").
std::wstring LibraryName(const std::wstring& base);

class App {
 public:
  // The process-wide application object.
  static App& Instance();

  // Loads the library `fileName` (a bare file name, searched as above, or
  // an absolute path, taken as it is) once per process; later calls give the
  // same handle. On failure returns null and sets `s` to a status naming the
  // file and where it was looked for. (Not called LoadLibrary, which
  // windows.h defines as a macro.)
  void* LoadSuiteLibrary(const std::wstring& fileName, gtl::status& s);

  // The folders searched for a bare file name, in order.
  std::vector<std::filesystem::path> LibraryFolders() const;

 private:
  App() = default;
  std::map<std::wstring, void*> loaded_;
};

}  // namespace qvi::app
