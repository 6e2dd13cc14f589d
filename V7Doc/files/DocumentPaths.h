#pragma once
// Path expressions about the document, as the suite's other modules write
// them:
//
//   "QVDocumentGetCurrent().analyses"          the current document, then a member path
//   "v7::doc::Climate()[2].Title"              an alias written as a call
//   "doc::Analyses()[OC_INDEX1].inputFiles_.pathPWP"   the index of one analysis
//   "doc::Analyses()[OC_INDEX1].GetStabPWPCondOption()"  an accessor written as a call
//
// Aliases are qualified names below the namespace v7, and a call may name
// one as seen from inside v7 or from outside: "v7::doc::Climate()" and
// "doc::Climate()" reach the same member. A step written as a call
// ("Name()") names the member "Name".
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "OC/IOC.h"
#include "QVI/gtl/status.h"

namespace v7 {
class QVDocument;

namespace doc {

// The accessor call that stands for the current document.
inline constexpr std::wstring_view kCurrentDocumentCall = L"QVDocumentGetCurrent()";
// The placeholder for the index of the analysis an expression is about.
inline constexpr std::wstring_view kIndexPlaceholder = L"OC_INDEX1";

// `expression` with every "OC_INDEX1" replaced by `index1`.
std::wstring FillIndex(std::wstring_view expression, std::uint64_t index1);

// Rewrites `expression` as a plain path of the document (member names and
// indices): the leading current-document call dropped, the alias resolved
// to its member, calls turned into member names, and "OC_INDEX1" replaced
// by `index1`. Fails, naming the expression, on a placeholder without an
// index or a malformed path; a name that reaches nothing fails on Find.
gtl::status NormalizeExpression(std::wstring_view expression, std::optional<std::uint64_t> index1,
                                std::wstring& path);

// Resolves `expression` in `document`.
gtl::status FindInDocument(QVDocument& document, std::wstring_view expression, oc::IOC& out,
                           std::optional<std::uint64_t> index1 = {});

// Resolves `expression` in the current document (QVDocumentGetCurrentHandle);
// fails when there is none.
gtl::status FindInCurrent(std::wstring_view expression, oc::IOC& out,
                          std::optional<std::uint64_t> index1 = {});

}  // namespace doc
}  // namespace v7
