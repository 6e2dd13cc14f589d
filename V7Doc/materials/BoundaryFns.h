#pragma once
// Boundary functions: what one slot of a BC holds. Each kind keeps the
// boundary type it was given (its stored type) and answers Type(), the
// per-field boundary type the category and colour rules read.
//
// Kinds and their text forms (the type name comes first):
//   Constant(BType=1,Value=10)            BFnConst<B>
//   Function(BType=8,HydBoundFnNum=3)     BFnFunction<B>: BType is the XY
//                                         type of the referenced function
//   Climate(BType=1,ClimateDataSet=2)     BFnClimate<B>
//   ThermoSyphon(ThermoDataSet=1)         BFnThermoSyphon
//   PipeSurface(ConvSurfDataSet=1)        BFnPipeSurface
//   NormTanStress(Norm=100,Tan=0)         BFnNormTanStress<B>
//   FluidPressure(Value=0)                BFnFluidPressure<B>
// The counterparts of the fields differ only in their type enumeration B,
// which fixes the field, the function-number attribute and the type rules.
#include <cstdint>
#include <string>
#include <vector>

#include "V7Doc/core/GID.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/functions/FnReferences.h"
#include "V7Doc/materials/BoundaryTypes.h"

namespace v7 {

class ThermosyphonTable;
class ConvectiveSurfaceTable;

// What every boundary function answers.
class BFnImpl : public FnImpl {
 public:
  // The field this kind belongs to.
  virtual DOFType Field() const = 0;
  // The per-field boundary type (0: none).
  virtual std::int32_t Type() const = 0;
  // The type value the function was given ("BType"; 0 when it has none).
  std::int32_t StoredType() const { return nStoredType_; }
  void SetStoredType(std::int32_t t) { nStoredType_ = t; }
  // The function number it refers to (0: none).
  virtual GID FnNum() const { return 0; }
  // The climate data set it refers to (0: none or not a climate kind).
  virtual GID ClimateDataSet() const { return 0; }

  // The record the function names: the container it is in (each kind
  // declares its own: the field's boundary function list, the climate data,
  // the thermosyphons, the convective surfaces) and its number. Container 0:
  // the kind names no record.
  virtual GGID Reference() const { return {}; }
  // A copy naming record `id` of the same container instead (0: none).
  BFnImpl* Renamed(GID id) const;

 protected:
  // Makes the function name record `id` of its reference's container.
  virtual void Rename(GID id) { (void)id; }
  // Reads "BType"; unknown attributes are left to the kind.
  gtl::status ReadStoredType(const FnAttr& a, const wchar_t* kind);
  std::int32_t nStoredType_ = 0;
};

// A constant value of one field; its type is the stored type.
template <class B>
class BFnConst final : public BFnImpl {
 public:
  BFnConst(std::int32_t type = 0, double value = 0) : value_(value) { nStoredType_ = type; }
  std::wstring Name() const override { return L"Constant"; }
  FnImpl* Clone() const override { return new BFnConst(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return value_; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override;
  std::int32_t Type() const override { return nStoredType_; }
  double Value() const { return value_; }

 private:
  double value_;
};

// A value that varies in time, read from a boundary function list. The
// stored type is the XY type of that function; Type() maps it.
template <class B>
class BFnFunction final : public BFnImpl, public IFnReferences {
 public:
  BFnFunction(std::int32_t xyType = 0, GID fnNum = 0) : fnNum_(fnNum) { nStoredType_ = xyType; }
  std::wstring Name() const override { return L"Function"; }
  FnImpl* Clone() const override { return new BFnFunction(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double* x, const double* y) const override;
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override;
  std::int32_t Type() const override;
  GID FnNum() const override { return fnNum_; }
  GGID Reference() const override;
  // The function of the field's boundary list that the number names.
  void GetFnReferences(std::vector<FnReference>& refs) const override;
  // The function the number resolves to (undefined until attached).
  const IFn& Fn() const { return fn_; }
  void AttachFn(const IFn& fn) { fn_ = fn; }
  // Displacement kinds: how many stress points the condition lists.
  std::uint32_t Count() const { return nCount_; }
  void SetCount(std::uint32_t n) { nCount_ = n; }

 protected:
  void Rename(GID id) override;

 private:
  GID fnNum_;
  std::uint32_t nCount_ = 0;
  IFn fn_;
};

// Surface conditions from a climate data set.
template <class B>
class BFnClimate final : public BFnImpl {
 public:
  BFnClimate(std::int32_t type = 0, GID set = 0) : set_(set) { nStoredType_ = type; }
  std::wstring Name() const override { return L"Climate"; }
  FnImpl* Clone() const override { return new BFnClimate(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return qvi::kNoValue; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override;
  std::int32_t Type() const override;
  GID ClimateDataSet() const override { return set_; }
  GGID Reference() const override;

 protected:
  void Rename(GID id) override { set_ = id; }

 private:
  GID set_;
};

// Normal and tangential stress on a displacement boundary.
template <class B>
class BFnNormTanStress final : public BFnImpl {
 public:
  BFnNormTanStress(double norm = 0, double tan = 0) : norm_(norm), tan_(tan) {}
  std::wstring Name() const override { return L"NormTanStress"; }
  FnImpl* Clone() const override { return new BFnNormTanStress(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return norm_; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override;
  std::int32_t Type() const override { return 7; }
  double Norm() const { return norm_; }
  double Tan() const { return tan_; }

 private:
  double norm_, tan_;
};

// Fluid pressure on a displacement boundary (ponded water).
template <class B>
class BFnFluidPressure final : public BFnImpl {
 public:
  explicit BFnFluidPressure(double value = 0) : value_(value) {}
  std::wstring Name() const override { return L"FluidPressure"; }
  FnImpl* Clone() const override { return new BFnFluidPressure(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return value_; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override;
  std::int32_t Type() const override { return 9; }

 private:
  double value_;
};

// A thermosyphon (thermal field) by its number in the thermosyphon table.
class BFnThermoSyphon final : public BFnImpl {
 public:
  explicit BFnThermoSyphon(GID set = 0) : set_(set) {}
  std::wstring Name() const override { return L"ThermoSyphon"; }
  FnImpl* Clone() const override { return new BFnThermoSyphon(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return qvi::kNoValue; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override { return DOFType::Thermal; }
  // Against the current document's thermosyphon table.
  std::int32_t Type() const override;
  // 0 below 1; 5 beyond the table (or without one); else 6 when the
  // record's final flag is positive, 5 otherwise.
  std::int32_t Type(const ThermosyphonTable* table) const;
  GID ThermoDataSet() const { return set_; }
  GGID Reference() const override;

 protected:
  void Rename(GID id) override { set_ = id; }

 private:
  GID set_;
};

// A convective pipe surface (thermal field) by its number.
class BFnPipeSurface final : public BFnImpl {
 public:
  explicit BFnPipeSurface(GID set = 0) : set_(set) {}
  std::wstring Name() const override { return L"PipeSurface"; }
  FnImpl* Clone() const override { return new BFnPipeSurface(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return qvi::kNoValue; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  DOFType Field() const override { return DOFType::Thermal; }
  // Against the current document's convective-surface table.
  std::int32_t Type() const override;
  // 0 below 1; 8 beyond the table (or without one); else 8 for a surface
  // used as a surface-area boundary, 7 otherwise.
  std::int32_t Type(const ConvectiveSurfaceTable* table) const;
  GID ConvSurfDataSet() const { return set_; }
  GGID Reference() const override;

 protected:
  void Rename(GID id) override { set_ = id; }

 private:
  GID set_;
};

using HydBFnConst = BFnConst<HydBType>;
using HydBFnFunction = BFnFunction<HydBType>;
using HydBFnClimate = BFnClimate<HydBType>;
using AirBFnConst = BFnConst<AirBType>;
using AirBFnFunction = BFnFunction<AirBType>;
using ThermBFnConst = BFnConst<ThermBType>;
using ThermBFnFunction = BFnFunction<ThermBType>;
using ThermBFnClimate = BFnClimate<ThermBType>;
using ContamBFnConst = BFnConst<ContamBType>;
using ContamBFnFunction = BFnFunction<ContamBType>;
using GasBFnConst = BFnConst<GasBType>;
using GasBFnFunction = BFnFunction<GasBType>;
using GasBFnClimate = BFnClimate<GasBType>;
using XDispBFnConst = BFnConst<XDispBType>;
using XDispBFnFunction = BFnFunction<XDispBType>;
using XDispBFnNormTanStress = BFnNormTanStress<XDispBType>;
using XDispBFnFluidPressure = BFnFluidPressure<XDispBType>;
using YDispBFnConst = BFnConst<YDispBType>;
using YDispBFnFunction = BFnFunction<YDispBType>;
using YDispBFnNormTanStress = BFnNormTanStress<YDispBType>;
using YDispBFnFluidPressure = BFnFluidPressure<YDispBType>;
using RotBFnConst = BFnConst<RotBType>;

// The per-field boundary type of a slot's function: its Type() when it is a
// boundary function, else 0.
std::int32_t BoundaryTypeOf(const IFn& fn);

// Builds the boundary function of field `field` from its text. Plain
// numbers and the other function kinds are built as by FnCreate; the
// boundary kinds are built for the field (a "Constant" of the thermal slot
// is a ThermBFnConst). On failure `fn` is the undefined function.
gtl::status CreateBoundaryFn(DOFType field, const std::wstring& text, IFn& fn);

}  // namespace v7
