#pragma once
// Helpers that declare a record member together with its accessor pair
// (mutable and constant reference, named after the member without its
// trailing underscore), and the text accessors through which function
// members are persisted.
#include <string>

#include "V7Doc/functions/FnImpl.h"

// Declares `Type Name_ = Init;` with accessors Name().
#define QV_MEMBER(Type, Name, Init) QV_MEMBER_AS(Type, Name, Name, Init)
// Declares `Type Name_ = Init;` with accessors Acc() (flags drop their "b").
#define QV_MEMBER_AS(Type, Name, Acc, Init)       \
  Type Name##_ = Init;                            \
  Type& Acc() { return Name##_; }                 \
  const Type& Acc() const { return Name##_; }

namespace v7 {
// The text a function member is persisted as.
std::wstring FnMemberText(const IFn& fn);
// Rebuilds a function member from its text. A text that does not build a
// function is kept inside an undefined function, so that it is written back
// unchanged rather than lost, and a warning names the text and the error
// (a reader reports it with the member's path and line).
gtl::status SetFnMemberText(IFn& fn, const std::wstring& text);
// The warning for a function text kept as written although building it
// failed with `error`.
gtl::status FnTextKeptWarning(const std::wstring& text, const gtl::status& error);
}  // namespace v7

// Inside record T: the getter/setter pair that persists the IFn member F as
// its text, for oc::Schema<T>::Add(&T::FnText<&T::f_>, &T::SetFnText<&T::f_>, ...).
#define QV_FN_TEXT_ACCESS(T)                                                   \
  template <::v7::IFn T::*F>                                                   \
  std::wstring FnText() const {                                                \
    return ::v7::FnMemberText(this->*F);                                       \
  }                                                                            \
  template <::v7::IFn T::*F>                                                   \
  ::gtl::status SetFnText(const std::wstring& text) {                          \
    return ::v7::SetFnMemberText(this->*F, text);                              \
  }
