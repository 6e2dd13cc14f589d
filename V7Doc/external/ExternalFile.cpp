#include "V7Doc/external/ExternalFile.h"

#include "QVI/str/Convert.h"

namespace v7 {
namespace {

using ResultPath = v7qvi::analysis::ResultPath;

struct FileKind {
  const wchar_t* option;  // member of ANALYSIS, as a path step
  const wchar_t* path;    // member of INPUT_FILES
  InitialCondOption ANALYSIS::*optionMember;
  ResultPath INPUT_FILES::*pathMember;
  bool noneAllowed;
};

// Indexed by ExternalFileType.
const FileKind kKinds[kNumExternalFileTypes] = {
    {L"initAirFlowCondOption_", L"pathAirFlow", &ANALYSIS::initAirFlowCondOption_, &INPUT_FILES::pathAirFlow, true},
    {L"dynStressOption_", L"pathStress", &ANALYSIS::dynStressOption_, &INPUT_FILES::pathStress, true},
    {L"initVolChangePWPCondOption_", L"pathPWP", &ANALYSIS::initVolChangePWPCondOption_, &INPUT_FILES::pathPWP, true},
    {L"finalPWPCondOption_", L"pathPWPFinal", &ANALYSIS::finalPWPCondOption_, &INPUT_FILES::pathPWPFinal, false},
    {L"transPWPCondOption_", L"pathPWPChange", &ANALYSIS::transPWPCondOption_, &INPUT_FILES::pathPWPChange, false},
    {L"InitThermCondOption_", L"pathThermo", &ANALYSIS::InitThermCondOption_, &INPUT_FILES::pathThermo, true},
    {L"InitPWPCondOption_", L"pathPWP", &ANALYSIS::InitPWPCondOption_, &INPUT_FILES::pathPWP, true},
    {L"initConcentrationCondOption_", L"pathConc", &ANALYSIS::initConcentrationCondOption_, &INPUT_FILES::pathConc,
     true},
    {L"hydroResultCondOption_", L"pathHydro", &ANALYSIS::hydroResultCondOption_, &INPUT_FILES::pathHydro, false},
    {L"initParticleCondOption_", L"pathPart", &ANALYSIS::initParticleCondOption_, &INPUT_FILES::pathPart, true},
    {L"initStressOption_", L"pathStress", &ANALYSIS::initStressOption_, &INPUT_FILES::pathStress, true},
};

const FileKind& KindOf(ExternalFileType t) {
  const auto i = static_cast<std::size_t>(t);
  return kKinds[i < std::size(kKinds) ? i : 0];
}

bool IsKnown(ExternalFileType t) {
  return static_cast<std::int32_t>(t) >= 0 && static_cast<std::int32_t>(t) < kNumExternalFileTypes;
}

}  // namespace

std::pair<std::wstring, std::wstring> ExternalFile::Patterns(ExternalFileType type, AnalysisKind kind) {
  if (!IsKnown(type)) return {};
  const std::wstring base = L"doc::Analyses()[" + std::wstring(kIndexPlaceholder) + L"].";
  const FileKind& k = KindOf(type);
  // A stability analysis reads its pore-water pressure source through its
  // own accessor.
  const std::wstring option = type == ExternalFileType::PWP && kind == AnalysisKind::Stab
                                  ? std::wstring(L"GetStabPWPCondOption()")
                                  : std::wstring(k.option);
  return {base + option, base + L"inputFiles_." + k.path};
}

const ANALYSIS* ExternalFile::Record() const {
  auto it = analyses_->Find(anlsId_);
  return it == analyses_->end() ? nullptr : &*it;
}

ANALYSIS* ExternalFile::Record() {
  auto it = analyses_->Find(anlsId_);
  return it == analyses_->end() ? nullptr : &*it;
}

std::pair<std::wstring, std::wstring> ExternalFile::GetValues() const {
  const ANALYSIS* a = Record();
  auto [option, path] = Patterns(type_, a ? a->kind : AnalysisKind::None);
  return {doc::FillIndex(option, anlsId_), doc::FillIndex(path, anlsId_)};
}

InitialCondOption ExternalFile::NormInitialCondOption() const {
  const ANALYSIS* a = Record();
  return a && IsKnown(type_) ? a->*KindOf(type_).optionMember : InitialCondOption::Undefined;
}

InitialCondOption* ExternalFile::PtrInitialCondOption() {
  ANALYSIS* a = Record();
  return a && IsKnown(type_) ? &(a->*KindOf(type_).optionMember) : nullptr;
}

const ResultPath& ExternalFile::NormResultPath() const {
  static const ResultPath kEmpty;
  const ANALYSIS* a = Record();
  return a && IsKnown(type_) ? a->inputFiles_.*KindOf(type_).pathMember : kEmpty;
}

ResultPath* ExternalFile::PtrResultPath() {
  ANALYSIS* a = Record();
  return a && IsKnown(type_) ? &(a->inputFiles_.*KindOf(type_).pathMember) : nullptr;
}

bool ExternalFile::InUse() const { return NormInitialCondOption() == InitialCondOption::Other; }

bool ExternalFile::IsNoneAllowed() const { return IsKnown(type_) && KindOf(type_).noneAllowed; }

bool ExternalFile::UseParentFirstStep() const {
  return type_ == ExternalFileType::VolChangePWPStart && NormInitialCondOption() == InitialCondOption::Parent;
}

}  // namespace v7
