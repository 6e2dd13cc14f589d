#include "V7Doc/functions/FnFunc2DTable.h"

#include <limits>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/Func2D.h"

namespace v7 {

const Func2D* FindFunc2D(GID list, int num) {
  const QVDocumentHandle& doc = QVDocumentGetCurrentHandle();
  if (!doc || num <= 0) return nullptr;
  const Func2DTable* table = doc->FunctionList(list);
  if (!table) return nullptr;
  auto it = table->Find(static_cast<GID>(num));
  return it == table->end() ? nullptr : &*it;
}

const Func2DTableBinding& Func2DTableBindingOf(GID fnTable) {
  static const Func2DTableBinding kHyd{L"HydBoundFnTable", L"HydBoundFnNum", L"HydModFnNum"};
  static const Func2DTableBinding kStress{L"StressBoundFnTable", L"StressBoundFnNum", L""};
  static const Func2DTableBinding kOther{L"Func2DTable", L"FnNum", L""};
  return fnTable == 18 ? kHyd : fnTable == 31 ? kStress : kOther;
}

template <GID F, GID M>
gtl::status FnFunc2DTable<F, M>::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  const Func2DTableBinding& b = Func2DTableBindingOf(F);
  for (const FnAttr& a : attrs) {
    int* target = a.Name == b.fnAttr ? &fnNum_ : (M && a.Name == b.mfnAttr) ? &mfnNum_ : nullptr;
    if (!target) continue;
    std::uint32_t n = 0;
    if (ReadAttr(a.Value, n) && n <= static_cast<std::uint32_t>(std::numeric_limits<int>::max()))
      *target = static_cast<int>(n);
    else
      gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
  }
  return s;
}

template <GID F, GID M>
void FnFunc2DTable<F, M>::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  const Func2DTableBinding& b = Func2DTableBindingOf(F);
  attrs.emplace_back(b.fnAttr, str::to_wstring(fnNum_));
  if (M) attrs.emplace_back(b.mfnAttr, str::to_wstring(mfnNum_));
}

template <GID F, GID M>
double FnFunc2DTable<F, M>::Calculate(const double* x, const double* y) const {
  const double v = CalculateFunc2D(F, fnNum_, x, y);
  if (qvi::IsNoValue(v) || mfnNum_ == 0) return v;
  // A modifier that is named but does not exist gives no value.
  const double factor = M ? CalculateFunc2D(M, mfnNum_, x, y) : qvi::kNoValue;
  return qvi::IsNoValue(factor) ? qvi::kNoValue : v * factor;
}

template <GID F, GID M>
gtl::status FnFunc2DTable<F, M>::UpdateCalculatedValues() {
  return CheckFnReferences(*this);
}

template <GID F, GID M>
void FnFunc2DTable<F, M>::GetFnReferences(std::vector<FnReference>& refs) const {
  if (fnNum_ > 0) refs.push_back({F, static_cast<GID>(fnNum_)});
  if (M && mfnNum_ > 0) refs.push_back({M, static_cast<GID>(mfnNum_)});
}

template <GID F, GID M>
gtl::status FnFunc2DTable<F, M>::InitializeInstance(GID fnNum, GID mfnNum) {
  constexpr GID kMax = static_cast<GID>(std::numeric_limits<int>::max());
  if (fnNum > kMax || mfnNum > kMax)
    return InvalidAttributeValue(Name(), FnAttr(Func2DTableBindingOf(F).fnAttr, str::to_wstring(fnNum)));
  fnNum_ = static_cast<int>(fnNum);
  mfnNum_ = M ? static_cast<int>(mfnNum) : 0;
  return {};
}

template class FnFunc2DTable<18, 19>;
template class FnFunc2DTable<31, 0>;

namespace {
const FnKindRegistrar kHyd(L"HydBoundFnTable", &CreateFn<FnHydBoundTable>);
const FnKindRegistrar kStress(L"StressBoundFnTable", &CreateFn<FnStressBoundTable>);
}  // namespace

}  // namespace v7
