#pragma once
// What the document subcommands (info, get, set, convert) share.
#include <string>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

namespace qvdoc {

// Loads `file` into `doc` (and its result entries), or prints why to stderr
// as "qvdoc <command>: ..." and throws CLI::RuntimeError(1).
void LoadOrFail(const char* command, const std::string& file, v7::QVDocument& doc,
                v7::files::PackageEntries* results = nullptr, v7::files::LoadReport* report = nullptr);
// Prints "qvdoc <command>: <message>" to stderr and throws CLI::RuntimeError(1).
[[noreturn]] void FailWith(const char* command, const std::wstring& message);

}  // namespace qvdoc
