#pragma once

#include <gtest/gtest.h>

#include <string>

#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/Func2D.h"

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

// A fresh document in the given units, current for the life of the object,
// whose water-content list (14) holds the given functions.
struct CurrentDocument {
  explicit CurrentDocument(std::initializer_list<const wchar_t*> waterContents = {},
                           EngUnitSystem units = EngUnitSystem::Metric) {
    doc->DataInit();
    doc->Eng().SetUnitSystem(units);
    QVDocumentSetCurrentHandle(doc);
    for (const wchar_t* text : waterContents) doc->FunctionList(14)->Add(Func2D(L"wc", L"", Make(text)));
  }
  ~CurrentDocument() { QVDocumentSetCurrentHandle(previous); }
  QVDocumentHandle previous = QVDocumentGetCurrentHandle();
  QVDocumentHandle doc{new QVDocument()};
};

}  // namespace v7::fntest
