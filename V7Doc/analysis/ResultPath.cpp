#include "V7Doc/analysis/ResultPath.h"

#include <vector>

#include "QVI/str/Convert.h"
#include "QVI/str/Messages.h"
#include "V7Doc/analysis/AnalysisMessages.h"

namespace v7::v7qvi::analysis {
namespace {

namespace msg = v7::analysis_msg;
constexpr wchar_t kDelim = L';';  // code 59
constexpr wchar_t kQuote = L'"';  // code 34
constexpr wchar_t kLastText[] = L"(last)";
constexpr wchar_t kAllText[] = L"(all)";

// Quotes a field when reading it back would otherwise change it.
std::wstring QuoteField(const std::wstring& field) {
  const bool needs = field.find_first_of(L";\"") != std::wstring::npos ||
                     (!field.empty() && (field.front() == L' ' || field.back() == L' '));
  if (!needs) return field;
  std::wstring out(1, kQuote);
  for (wchar_t ch : field) {
    if (ch == kQuote) out += kQuote;
    out += ch;
  }
  out += kQuote;
  return out;
}

// Splits at delimiters outside quotes. A quote opens a quoted stretch only at
// the start of a field; inside it a doubled quote is one quote character.
bool SplitFields(const std::wstring& text, std::vector<std::wstring>& fields) {
  fields.assign(1, std::wstring());
  bool quoted = false;
  bool atFieldStart = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t ch = text[i];
    if (quoted) {
      if (ch == kQuote) {
        if (i + 1 < text.size() && text[i + 1] == kQuote) {
          fields.back() += kQuote;
          ++i;
        } else {
          quoted = false;
        }
      } else {
        fields.back() += ch;
      }
      continue;
    }
    if (ch == kDelim) {
      fields.emplace_back();
      atFieldStart = true;
      continue;
    }
    if (ch == kQuote && atFieldStart) {
      quoted = true;
      atFieldStart = false;
      continue;
    }
    fields.back() += ch;
    atFieldStart = false;
  }
  return !quoted;
}

gtl::status PathError(const std::wstring& text, const std::wstring& detail) {
  return gtl::status::error(msg::kHeadingDetail,
                            str::format(str::load_wstring(msg::kPathHeading), text), detail);
}

}  // namespace

std::wstring ResultPath::FullPath() const {
  std::wstring step;
  if (nStep_ == kStepLast)
    step = kLastText;
  else if (nStep_ == kStepAll)
    step = kAllText;
  else
    step = str::to_wstring(nStep_);
  return QuoteField(strPath_) + kDelim + QuoteField(strSubPath_) + kDelim + QuoteField(strFile_) +
         kDelim + step;
}

gtl::status ResultPath::SetDelimPath(const std::wstring& text) {
  std::vector<std::wstring> fields;
  if (!SplitFields(text, fields)) return PathError(text, str::load_wstring(msg::kPathOpenQuote));
  if (fields.size() > 4)
    return PathError(text, str::format(str::load_wstring(msg::kPathTooManyFields), fields.size()));
  fields.resize(4);
  std::int32_t step = kStepNone;
  const std::wstring_view stepText = str::trim(fields[3]);
  if (stepText == kLastText) {
    step = kStepLast;
  } else if (stepText == kAllText) {
    step = kStepAll;
  } else if (!stepText.empty()) {
    std::int64_t n = 0;
    if (!str::parse(stepText, n) || n < INT32_MIN || n > INT32_MAX)
      return PathError(text, str::format(str::load_wstring(msg::kPathBadStep), fields[3]));
    step = static_cast<std::int32_t>(n);
  }
  strPath_ = std::move(fields[0]);
  strSubPath_ = std::move(fields[1]);
  strFile_ = std::move(fields[2]);
  nStep_ = step;
  return {};
}

std::wstring ResultPath::DescriptionTimeStep(int step, double time) {
  switch (step) {
    case kStepNone: return str::load_wstring(msg::kStepNone);
    case kStepAll: return str::load_wstring(msg::kStepAll);
    case kStepLast: return str::load_wstring(msg::kStepLast);
    case kStepStart: return str::load_wstring(msg::kStepStart);
    default: break;
  }
  std::wstring text = str::format(str::load_wstring(msg::kStepNumber), step);
  if (qvi::IsNoValue(time)) return text;
  return str::format(str::load_wstring(msg::kStepAndTime), text,
                     str::format(str::load_wstring(msg::kStepTime), time));
}

}  // namespace v7::v7qvi::analysis
