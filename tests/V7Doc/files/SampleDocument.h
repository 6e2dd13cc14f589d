#pragma once
// A project with something in every kind of collection the document holds
// today, deleted rows included, for the persistence tests.
#include "V7Doc/core/QVDocument.h"

namespace v7::testing {

void FillSampleDocument(QVDocument& doc);

}  // namespace v7::testing
