#pragma once
// An optional account of a function's data for the user to review, given by
// kinds whose data is not all visible in their attributes (an add-in's).
#include <string>

namespace v7 {

class IFnReview {
 public:
  virtual ~IFnReview() = default;
  // A human-readable description of the function's data.
  virtual std::wstring ReviewText() const = 0;
};

}  // namespace v7
