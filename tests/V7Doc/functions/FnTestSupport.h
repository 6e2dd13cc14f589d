#pragma once

#include <gtest/gtest.h>

#include <string>

#include "QVI/str/Convert.h"
#include "V7Doc/functions/FnImpl.h"

namespace v7::fntest {

// A function read from text; the text must be read.
inline IFn Make(const std::wstring& text) {
  IFn fn;
  const gtl::status s = FnCreate(text, fn);
  EXPECT_TRUE(s.succeeded()) << str::to_utf8(text) << ": " << s.message_utf8();
  return fn;
}

// A function read from text and updated; both must succeed.
inline IFn Estimate(const std::wstring& text) {
  IFn fn = Make(text);
  const gtl::status s = fn.Unshared()->UpdateCalculatedValues();
  EXPECT_TRUE(s.succeeded()) << str::to_utf8(text) << ": " << s.message_utf8();
  return fn;
}

}  // namespace v7::fntest
