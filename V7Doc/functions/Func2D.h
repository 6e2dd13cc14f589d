#pragma once
// A named function of one variable as stored in the document's function
// lists, and the table of such functions (collections 11 to 51).
#include <string>
#include <vector>

#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/functions/FnDataPoints.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/Func2DTypes.h"

namespace v7 {

// The stored data of one function of a list.
struct Func2DData {
  std::wstring strName_;         // "Name"
  std::wstring strDescription_;  // "Description"
  IFn fn_;                       // the function; its kind decides the interpolation
  IFn estFn_;                    // the estimator the points came from, if any
  std::vector<FnPoint> points_;  // the drawn points (x, y, third value)

  friend bool operator==(const Func2DData&, const Func2DData&) = default;
};

class Func2D : public Func2DData {
 public:
  // An empty slot: no name, no function (this is the missing record).
  Func2D() = default;
  // A function with a name, description and function object.
  explicit Func2D(std::wstring name, std::wstring description = {}, IFn fn = IFn());
  // A new function as the user creates one: the default name (message
  // 20248) and the given function object.
  static Func2D NewFunction(IFn fn);

  const std::wstring& Name() const { return strName_; }
  void SetName(const std::wstring& n) { strName_ = n; }
  const std::wstring& Description() const { return strDescription_; }
  void SetDescription(const std::wstring& d) { strDescription_ = d; }
  const IFn& Fn() const { return fn_; }
  void SetFn(const IFn& fn) { fn_ = fn; }
  // The function as its text form ("Linear(SlopeBefore=0)"), as persisted;
  // empty for no function.
  std::wstring FnText() const;
  // Rebuilds the function from its text form; an empty text gives no
  // function. A text that names no kind, or a bad attribute, is refused and
  // the function is left as it was.
  gtl::status SetFnText(const std::wstring& text);
  // The same for the estimate function.
  std::wstring EstFnText() const;
  gtl::status SetEstFnText(const std::wstring& text);
  const IFn& GetEstFn() const { return estFn_; }
  void SetEstFn(const IFn& fn) { estFn_ = fn; }
  std::vector<FnPoint>& Points() { return points_; }
  const std::vector<FnPoint>& Points() const { return points_; }

  // Removes the points with any missing coordinate, keeping the others' order.
  void ClearMissingPoints();
  // Hands the points to the function object when it takes points (leaving out
  // a last point with a missing coordinate: the open row), then brings the
  // object up to date. Returns the object's update status.
  gtl::status UpdateFn();
  // The value of the function at x.
  double operator()(double x) const { return fn_(x); }
};

// Missing: no name and an undefined function.
inline bool IsMissing(const Func2D& f) { return f.strName_.empty() && f.fn_.IsUndefined(); }
// Resets to the default (missing) record with an empty description.
inline void SetMissing(Func2D& f) { f = Func2D(); }

// One numbered list of functions of one family.
class Func2DTable : public TQVContainerTableNoStoredID<Func2D> {
 public:
  explicit Func2DTable(eFunc2DListType::eFunc2DListType type = eFunc2DListType::eUndefined)
      : type_(type) {}

  eFunc2DListType::eFunc2DListType GetListType() const { return type_; }
  // The x/y quantity pairs that functions of this list may have.
  void GetAllXYTypes(std::vector<eFunc2D_XYTypes>& types) const;
  // Clears missing points and updates every function that is not missing.
  void OnUpdateCalculatedValues() override;

 private:
  eFunc2DListType::eFunc2DListType type_;
};

}  // namespace v7
