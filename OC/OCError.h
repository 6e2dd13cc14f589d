#pragma once
// The object-container framework's status values.
#include <string>

#include "QVI/gtl/status.h"

namespace oc {

struct OCError {
  // An operation the node or value type does not support ("Set" on a
  // read-only member).
  static gtl::status not_supported(const std::wstring& what, const std::wstring& where);
  // A name, tag or value that is not recognised.
  static gtl::status not_recognized(const std::wstring& what, const std::wstring& where);
  // A value that cannot be assigned to a member (wrong type, out of range).
  static gtl::status file_assign(const std::wstring& what, const std::wstring& where);
};

}  // namespace oc
