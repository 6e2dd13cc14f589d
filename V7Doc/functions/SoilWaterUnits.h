#pragma once
// The unit system of the current document as the soil-water functions see it.
namespace v7 {

// The suction at which every soil dries completely, 10^6 kPa (Fredlund and
// Xing, 1994), in the current document's pressure unit: 1e6 in metric units
// (kPa), 2.08854e7 otherwise (psf). No current document means metric.
double SuctionLimitOfUnitSystem();
// True when the current document is metric, or there is none.
bool CurrentDocumentIsMetric();
// Pressure of one kPa in the current document's unit (1 or 20.8854 psf).
double KiloPascalInDocumentUnits();

}  // namespace v7
