#pragma once
// A function kind that evaluates a function of one of the document's lists by
// its number, optionally scaled by a modifier function of a companion list.
//
// Modifier rule: with a modifier named, the value is the function's value
// times the modifier's value at the same input (a modifier function holds
// factors, 1 meaning unchanged). Where either has no value there is none.
// The lists are those of the current document (QVDocumentGetCurrentHandle).
#include "V7Doc/core/GID.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/FnReferences.h"

namespace v7 {

class Func2D;

// The function `num` (from 1) of list `list` of the current document; null
// for 0, a number beyond the list, a deleted slot or no document.
const Func2D* FindFunc2D(GID list, int num);

// How a bound list names itself in text.
struct Func2DTableBinding {
  const wchar_t* typeName;   // the kind's type name
  const wchar_t* fnAttr;     // attribute of the function number
  const wchar_t* mfnAttr;    // attribute of the modifier number (empty: none)
};
const Func2DTableBinding& Func2DTableBindingOf(GID fnTable);

template <GID FnTable, GID MFnTable>
class FnFunc2DTable : public FnImpl, public ITableContext, public IFnReferences {
 public:
  static constexpr GID get_FnTable() { return FnTable; }
  static constexpr GID get_MFnTable() { return MFnTable; }

  FnFunc2DTable() = default;
  FnFunc2DTable(int fnNum, int mfnNum) : fnNum_(fnNum), mfnNum_(MFnTable ? mfnNum : 0) {}

  std::wstring Name() const override { return Func2DTableBindingOf(FnTable).typeName; }
  FnImpl* Clone() const override { return new FnFunc2DTable(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // No value where the numbers lead back to this function (see FnReferences.h).
  double Calculate(const double* x, const double* y) const override;
  // Checks that the numbers do not lead back in a cycle (error 33560).
  gtl::status UpdateCalculatedValues() override;
  // The function and, when named, the modifier.
  void GetFnReferences(std::vector<FnReference>& refs) const override;
  // Points to function `fnNum` and modifier `mfnNum` (0: none).
  gtl::status InitializeInstance(GID fnNum, GID mfnNum) override;

  const Func2D* Fn() const { return FindFunc2D(FnTable, fnNum_); }
  const Func2D* MFn() const { return MFnTable ? FindFunc2D(MFnTable, mfnNum_) : nullptr; }
  int FnNum() const { return fnNum_; }
  int MFnNum() const { return mfnNum_; }

 private:
  int fnNum_ = 0;
  int mfnNum_ = 0;
};

// Hydraulic boundary functions (list 18) with their modifiers (list 19).
using FnHydBoundTable = FnFunc2DTable<18, 19>;
// Stress boundary functions (list 31), which have no modifier list.
using FnStressBoundTable = FnFunc2DTable<31, 0>;

extern template class FnFunc2DTable<18, 19>;
extern template class FnFunc2DTable<31, 0>;

}  // namespace v7
