#include "OC/OCError.h"

namespace oc {
namespace {
constexpr unsigned kNotSupported = 31000;
constexpr unsigned kNotRecognized = 31001;
constexpr unsigned kFileAssign = 31002;
}  // namespace

gtl::status OCError::not_supported(const std::wstring& what, const std::wstring& where) {
  return gtl::status::error(kNotSupported, what, where);
}
gtl::status OCError::not_recognized(const std::wstring& what, const std::wstring& where) {
  return gtl::status::error(kNotRecognized, what, where);
}
gtl::status OCError::file_assign(const std::wstring& what, const std::wstring& where) {
  return gtl::status::error(kFileAssign, what, where);
}

}  // namespace oc
