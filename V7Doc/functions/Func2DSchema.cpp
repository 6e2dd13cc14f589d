// Persisted names of a numbered function: its name, description, the text
// forms of its function and of its estimate, and its drawn points. The text
// form is what persists of a function object (its kind and attributes); the
// points are handed to it again when the list is brought up to date.
#include "OC/Schema.h"
#include "V7Doc/functions/Func2D.h"

namespace v7 {
namespace {
std::wstring TextOf(const IFn& fn) { return fn.IsUndefined() ? std::wstring() : fn.as_wstring(); }

gtl::status FromText(const std::wstring& text, IFn& target) {
  if (text.empty()) {
    target.reset();
    return {};
  }
  IFn fn;
  if (auto s = FnCreate(text, fn); s.failed()) return s;
  target = fn;
  return {};
}
}  // namespace

std::wstring Func2D::FnText() const { return TextOf(fn_); }
gtl::status Func2D::SetFnText(const std::wstring& text) { return FromText(text, fn_); }
std::wstring Func2D::EstFnText() const { return TextOf(estFn_); }
gtl::status Func2D::SetEstFnText(const std::wstring& text) { return FromText(text, estFn_); }

}  // namespace v7

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<FnPoint>() {
  static const RecordType& t = Schema<FnPoint>(L"FnPoint")
      .Add(&FnPoint::x, L"x", L"X")
      .Add(&FnPoint::y, L"y", L"Y")
      .Add(&FnPoint::z, L"z", L"Z")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Func2D>() {
  static const RecordType& t = Schema<Func2D>(L"Func2D")
      .Add(&Func2D::Name, &Func2D::SetName, L"strName_", L"Name")
      .Add(&Func2D::Description, &Func2D::SetDescription, L"strDescription_", L"Description")
      .Add(&Func2D::FnText, &Func2D::SetFnText, L"fn_", L"Fn")
      .Add(&Func2D::EstFnText, &Func2D::SetEstFnText, L"estFn_", L"EstFn")
      .AddReach(+[](Func2D& f) -> auto& { return f.points_; }, L"points_", L"Points[Point]")
      .Done();
  return t;
}

}  // namespace oc
