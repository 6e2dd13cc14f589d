#include "OC/OCError.h"

#include <gtest/gtest.h>

namespace {

TEST(OCError, StatusesNameWhatAndWhere) {
  struct Case {
    gtl::status s;
    const wchar_t* expected;
  } cases[] = {
      {oc::OCError::not_supported(L"Set", L"Analyses[1].Kind"),
       L"Set is not supported at Analyses[1].Kind."},
      {oc::OCError::not_recognized(L"Knd", L"Analyses[1]"),
       L"\"Knd\" is not recognised at Analyses[1]."},
      {oc::OCError::file_assign(L"abc", L"Analyses[1].NumSlices"),
       L"Cannot assign \"abc\" at Analyses[1].NumSlices."},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(c.s.failed());
    EXPECT_EQ(c.s.message(), c.expected);
  }
}

}  // namespace
