#pragma once
// From a file extension to the analysis kind that writes such files.
//
// Projects of earlier generations stored each analysis as a family of files
// that share a stem; the extension tells the kind and the content. Numbered
// series (".h12", one file per time step) are matched through their head
// pattern (".h*").
#include <span>
#include <string_view>

#include "V7Doc/analysis/ANALYSIS.h"

namespace v7::qvifile::ext {

// The kind of a file extension (with its leading dot), compared without
// regard to case; AnalysisKind::None when no kind writes such a file.
AnalysisKind KindByExt(std::wstring_view ext);

// The entries of the map, in the order they are entered (for tests and
// listings): extension and kind.
struct KindEntry {
  const wchar_t* ext;
  AnalysisKind kind;
};
std::span<const KindEntry> KindByExtEntries();

}  // namespace v7::qvifile::ext
