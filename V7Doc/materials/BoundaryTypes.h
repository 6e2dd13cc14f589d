#pragma once
// The vocabulary of boundary conditions: the fields a BC constrains, the
// per-field boundary types carried by boundary functions, their categories
// and the field sets that make a BC's type.
//
// Category 1 fixes the field's primary variable (head, temperature,
// concentration, displacement), 2 gives a total flux, 3 a unit flux or a
// condition the solver reviews (climate, seepage face, convective surface).
#include <cstdint>

namespace v7 {

// The eight slots of a BC, numbered from 1.
enum class DOFType : std::int32_t {
  Hydraulic = 1,
  Air = 2,
  Thermal = 3,
  Contaminant = 4,
  Gas = 5,
  XDisp = 6,
  YDisp = 7,
  Rotation = 8,
};
inline constexpr int kNumDOF = 8;

enum class HydBType : std::int32_t {
  None = 0, Head = 1, Flux = 2, UnitFlux = 3, HeadFn = 4, UnitGradient = 5, PressureHead = 6,
  PressureHeadFn = 7, ZeroPressure = 8, LandClimate = 9, SeepageFace = 10,
};
enum class AirBType : std::int32_t { None = 0, AirPressure = 1, AirPressureFn = 2 };
enum class ThermBType : std::int32_t {
  None = 0, Temperature = 1, HeatFlux = 2, UnitHeatFlux = 3, LandClimate = 4,
  ThermosyphonFlux = 5, ThermosyphonConvective = 6, PipeFlux = 7, PipeSurfaceArea = 8,
};
enum class ContamBType : std::int32_t {
  None = 0, Concentration = 1, MassFlux = 2, UnitMassFlux = 3, SourceConcentration = 4,
  FreeExit = 5, ConcentrationFn = 6, ZeroDispersiveFlux = 7,
};
enum class GasBType : std::int32_t {
  None = 0, Concentration = 1, GasFlux = 2, UnitGasFlux = 3, LandClimate = 4,
};
// x and y displacement share one numbering.
enum class XDispBType : std::int32_t {
  None = 0, Displacement = 1, Force = 2, Stress = 3, Velocity = 4, Acceleration = 5, Spring = 6,
  NormTanStress = 7, StressFn = 8, FluidPressure = 9, Hydrostatic = 10,
};
enum class YDispBType : std::int32_t {
  None = 0, Displacement = 1, Force = 2, Stress = 3, Velocity = 4, Acceleration = 5, Spring = 6,
  NormTanStress = 7, StressFn = 8, FluidPressure = 9, Hydrostatic = 10,
};
enum class RotBType : std::int32_t { None = 0, Rotation = 1, Moment = 2 };

// The category of a BC (GetBTypeCategory).
enum class BCategory : std::int32_t { None = 0, Primary = 1, Flux = 2, UnitFlux = 3 };

// The set of fields a BC constrains, looked up in a fixed table of ten sets
// (BC::BCType). The x and y displacement slots count as one field,
// "displacement", so that a roller (one direction fixed) and a pin (both)
// are both stress-deformation conditions.
enum class BC_Type : std::int32_t {
  None = 0,                  // no field
  Hydraulic = 1,             // seepage
  Air = 2,                   // air flow
  Thermal = 3,               // heat transfer
  Contaminant = 4,           // contaminant transport
  Gas = 5,                   // gas transfer
  HydraulicAir = 6,          // coupled air-water flow
  HydraulicThermal = 7,      // soil-climate (water and heat together)
  Displacement = 8,          // stress-deformation and dynamic
  DisplacementRotation = 9,  // structural members: displacement and rotation
};

}  // namespace v7
