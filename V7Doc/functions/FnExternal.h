#pragma once
// A function evaluated by an add-in ("External"): a type ("Function") of an
// add-in library ("Assembly") with settings ("Field.<name>"), for example
//   External(Assembly=gardner_conductivity.so,Function=GardnerK,Field.KSat=2e-6)
//
// Setting the attributes loads the add-in through the bridge (see
// Common/ExternalObject.h and addins/QviAddIn.h) and binds the type's methods
// by name: "Calculate" (required), "SetID", "Initialize", "Review", "MaxPV",
// and "Dispose" when the instance is released.
//
// An add-in that is not available on this machine must not make a document
// unreadable: SetAttributes accepts well-formed attributes whatever happens
// to the add-in, keeps them (so the text round-trips and the document saves
// unchanged) and leaves the reason in LastError(); evaluation then gives the
// no-value marker. SetExternalFunction, which a user calls to choose an
// add-in, returns the binding status itself.
//
// Copies made by Clone share one implementation object (and so one add-in
// instance); an edit through any copy first gives that copy an
// implementation of its own, with a fresh instance.
#include <memory>
#include <string>
#include <vector>

#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/IFnReview.h"

namespace v7 {

class FnExternalImpl;

class FnExternal : public FnImpl, public ITableContext {
 public:
  static const wchar_t* TypeName() { return L"External"; }

  // "Field": the bare name of field attributes.
  static FnAttr FnAttrField();
  // "Field." + name, with the field's value.
  static FnAttr FnAttrField(const std::wstring& name, const std::wstring& value);

  // One field of this function; SetValue hands a new value to the add-in.
  class FieldRef {
   public:
    FieldRef(FnExternal& owner, std::size_t index) : owner_(&owner), index_(index) {}
    const std::wstring& Name() const;
    const std::wstring& Value() const;
    // Stores the value and re-initialises the add-in with it. A value that
    // cannot be written in the function's text (holding ",", "(", ")" or
    // "=") is refused; a value the add-in refuses is kept, and the status
    // (also in LastError) says so.
    gtl::status SetValue(const std::wstring& value);

   private:
    FnExternal* owner_;
    std::size_t index_;
  };

  // A type that Scan found: the function to choose and its label.
  struct LookupItem {
    std::wstring Function;             // the type name, for "Function"
    std::wstring Label;                // "Name (Field1, Field2)": Name alone without fields
    std::vector<std::wstring> Fields;  // the field names, in order
  };

  FnExternal();
  FnExternal(const FnExternal&) = default;
  FnExternal& operator=(const FnExternal&) = default;
  ~FnExternal() override;

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnExternal(*this); }
  // "Assembly", "Function", "Field.<name>" (and the parameter types).
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  // The add-in's value; the no-value marker when it is not loaded or the call
  // fails (LastError says why).
  double Calculate(const double* x, const double* y) const override;
  gtl::status LastError() const override;
  // "Assembly", "Function", then one "Field.<name>" per field.
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // The add-in's review when it offers "Review", else null.
  IFnReview* GetReview() const override;
  // Hands the function number to the add-in's "SetID" when it offers one.
  gtl::status InitializeInstance(GID fnNum, GID mfnNum) override;

  // Chooses the add-in and its type and binds it; the fields become the
  // type's declared fields, with the values already set kept and the others
  // at their declared defaults.
  gtl::status SetExternalFunction(const std::wstring& assembly, const std::wstring& function);

  // The types of `assembly` that offer "Calculate", with their fields.
  static gtl::status Scan(const std::wstring& assembly, std::vector<LookupItem>& items);

  const std::wstring& Assembly() const;
  const std::wstring& Function() const;
  std::size_t NumFields() const;
  FieldRef Field(std::size_t index) { return FieldRef(*this, index); }
  // The field named `name`; false when there is none.
  bool FindField(const std::wstring& name, std::size_t& index) const;
  // True when the add-in is loaded and "Calculate" bound.
  bool IsLoaded() const;
  // The add-in's "MaxPV" (the largest meaningful input), or the no-value
  // marker when it offers none or fails.
  double MaxPV() const;

 private:
  friend class FieldRef;
  // Gives this object an implementation of its own (copying the data).
  FnExternalImpl& Own();
  gtl::status SetFieldValue(std::size_t index, const std::wstring& value);

  // Takes the bound "Calculate" from the implementation after a (re)bind.
  void Refresh();

  std::shared_ptr<FnExternalImpl> impl_;
  // The bound "Calculate", kept here so that an evaluation reaches the add-in
  // without going through the implementation object.
  int (*calc_)(void*, const double*, const double*, double*) = nullptr;
  void* self_ = nullptr;
  // The failure of the last evaluation, when it failed.
  mutable bool callFailed_ = false;
  mutable gtl::status callError_;
};

}  // namespace v7
