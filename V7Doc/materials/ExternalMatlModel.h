#pragma once
// A material's add-in model: the model's type name in the add-in ("Name"),
// the add-in as stored ("Assembly", found through the add-in manager) and its
// field settings ("Fields").
//
// The field list is one text of "%s=%s" pairs (name=value) separated by ";",
// for example "E=20000;Nu=0.3". ";" is the separator because it is not a
// separator of function texts, so a value copied from an External function
// text never needs quoting; names hold no "=" and values no ";" (MakeFields
// refuses them). Blanks around names and values are not significant.
#include <string>
#include <utility>
#include <vector>

#include "QVI/gtl/status.h"

namespace v7 {

struct ExternalMatlModel {
  // Field settings as (name, value) pairs, in order.
  using FieldList = std::vector<std::pair<std::wstring, std::wstring>>;
  static constexpr wchar_t kFieldSeparator = L';';

  std::wstring Name_;
  std::wstring Assembly_;
  std::wstring Fields_;

  ExternalMatlModel() = default;
  ExternalMatlModel(std::wstring name, std::wstring assembly, std::wstring fields)
      : Name_(std::move(name)), Assembly_(std::move(assembly)), Fields_(std::move(fields)) {}

  const std::wstring& Name() const { return Name_; }
  const std::wstring& Assembly() const { return Assembly_; }
  const std::wstring& Fields() const { return Fields_; }
  void SetName(const std::wstring& v) { Name_ = v; }
  void SetAssembly(const std::wstring& v) { Assembly_ = v; }
  void SetFields(const std::wstring& v) { Fields_ = v; }

  // True when no model is named (the material uses none).
  bool IsEmpty() const { return Name_.empty() && Assembly_.empty(); }

  // Writes `fields` as "name=value;name=value". A name that is empty or holds
  // "=" or ";", or a value holding ";", gives an error and leaves `out` alone.
  static gtl::status MakeFields(const FieldList& fields, std::wstring& out);
  // Reads Fields() back into pairs. Empty pieces (";;", a trailing ";") are
  // skipped; a piece without "=" or with an empty name is an error naming it.
  gtl::status ParseFields(FieldList& fields) const;

  friend bool operator==(const ExternalMatlModel&, const ExternalMatlModel&) = default;
};

}  // namespace v7
