#include "V7Doc/functions/SoilWaterUnits.h"

#include "V7Doc/document/QVDocument.h"

namespace v7 {

bool CurrentDocumentIsMetric() {
  const QVDocumentHandle& doc = QVDocumentGetCurrentHandle();
  return !doc || doc->Eng().IsMetric();
}

double SuctionLimitOfUnitSystem() { return CurrentDocumentIsMetric() ? 1e6 : 2.08854e7; }

double KiloPascalInDocumentUnits() { return CurrentDocumentIsMetric() ? 1.0 : 20.8854; }

}  // namespace v7
