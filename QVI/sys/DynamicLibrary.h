#pragma once
// Dynamic loading of shared libraries: the one place that knows the
// platform's loader (dlopen/dlsym/dladdr here, LoadLibraryW/GetProcAddress on
// Windows).
//
// Libraries opened here are never closed: code handed out by an add-in (a
// function pointer bound into a function object) must stay valid for as long
// as any object holds it, and a process cannot know that moment. Closing is
// left to process exit.
//
// This file is compiled into the QVI library and, on its own, into the add-in
// bridge, so it depends on the standard library only.
#include <string>

namespace sys::dl {

// An opened library; null when opening failed.
using Handle = void*;

// Opens the library at `path` (UTF-8). On failure returns null and puts the
// loader's reason in `error`.
Handle Open(const std::string& path, std::string& error);
// The address of the exported symbol `name`, or null when the library has no
// such export.
void* Symbol(Handle library, const char* name);
// The file of the loaded library (or executable) that holds `address`, UTF-8;
// empty when the loader cannot tell.
std::string FileOf(const void* address);
// The platform's file name of a library with base name `base`:
// "lib<base>.so" on Linux, "<base>.dll" on Windows.
std::string FileName(const std::string& base);
// The separator of folder lists in environment variables (':' or ';').
char PathListSeparator();

}  // namespace sys::dl
