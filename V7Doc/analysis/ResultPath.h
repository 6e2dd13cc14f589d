#pragma once
// One result location: two path parts, a file and a step, convertible to and
// from one delimited text "a;b;file;step".
#include <cstdint>
#include <string>

#include "QVI/gtl/status.h"
#include "V7Doc/analysis/ResultInfo.h"

namespace v7::v7qvi::analysis {
class ResultPath;
}
namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7::v7qvi::analysis {

class ResultPath {
 public:
  ResultPath() = default;
  ResultPath(std::wstring path, std::wstring subPath, std::wstring file,
             std::int32_t step = kStepNone)
      : strPath_(std::move(path)), strSubPath_(std::move(subPath)), strFile_(std::move(file)),
        nStep_(step) {}

  // Empties the three texts and sets the step to none.
  void Clear() { *this = ResultPath{}; }
  // True when all three texts are empty.
  bool IsEmpty() const { return strPath_.empty() && strSubPath_.empty() && strFile_.empty(); }
  // True when only the file is set: a file outside any project.
  bool IsLocalFile() const { return !IsEmpty() && strPath_.empty() && strSubPath_.empty(); }

  // Sets the two path parts; the file and the step are kept.
  void SetPath(const std::wstring& path, const std::wstring& subPath) {
    strPath_ = path;
    strSubPath_ = subPath;
  }
  void SetFile(const std::wstring& file) { strFile_ = file; }
  void SetStep(std::int32_t step) { nStep_ = step; }

  const std::wstring& Path() const { return strPath_; }
  const std::wstring& SubPath() const { return strSubPath_; }
  const std::wstring& File() const { return strFile_; }
  int Step() const { return nStep_; }

  // "path;subPath;file;step", the step as "(last)", "(all)" or its number. A
  // text holding ';' or '"', or starting or ending with a blank, is quoted
  // with '"' and its quotes doubled, so that SetDelimPath reads it back.
  std::wstring FullPath() const;

  // Reads a text written by FullPath. Fields are split at ';' outside
  // quotes; a quoted field may hold ';' and doubled quotes. Fewer than four
  // fields leave the missing texts empty and the step none; an empty step
  // field is none too. A step that is not "(last)", "(all)" or a 32-bit whole
  // number, an unclosed quote or more than four fields give an error, and the
  // path is left as it was.
  gtl::status SetDelimPath(const std::wstring& text);

  // A label for a step: fixed texts for none, all, last and the start;
  // otherwise "Step n" and, unless `time` is the no-value marker, its time.
  static std::wstring DescriptionTimeStep(int step, double time);

  friend bool operator==(const ResultPath&, const ResultPath&) = default;

 private:
  friend const oc::RecordType& oc::TypeOf<ResultPath>();
  std::wstring strPath_;
  std::wstring strSubPath_;
  std::wstring strFile_;
  std::int32_t nStep_ = kStepNone;
};

}  // namespace v7::v7qvi::analysis
