#pragma once
// Probability distributions of a material parameter. A distribution is
// evaluated at a cumulative probability p in [0, 1] supplied by the caller
// and returns the parameter value there (the inverse distribution); the
// caller owns the random source.
//
// The inverse distribution is tabulated by UpdateCalculatedValues:
//  - "Min" and "Max" truncate the distribution (an unset bound does not);
//    an unbounded tail is cut at the cumulative probability 1e-6 (4.75
//    standard deviations for a normal), so that every table is finite;
//  - the table starts from 65 points evenly spaced in p and halves every
//    interval whose midpoint value differs from the straight line by more
//    than 1e-5 of the table's value span, up to 4097 points, so that linear
//    interpolation follows the curved tails;
//  - the median is the table at p = 0.5 and the mean is that of the same
//    (truncated) distribution.
// The distributions themselves are Boost.Math's.
#include <cstdint>
#include <functional>
#include <memory>

#include "QVI/math/fn/interpolate/Linear.h"
#include "V7Doc/functions/FnImpl.h"

namespace v7 {

class FnProb : public FnImpl {
 public:
  // The computed distribution: median, mean, and the inverse distribution
  // (cumulative probability in, parameter value out).
  struct Table {
    double median = qvi::kNoValue;
    double mean = qvi::kNoValue;
    math::fn::interpolate::Linear inverse;
  };
  // Untruncated tails are cut at this cumulative probability (and 1 minus it).
  static constexpr double kTailCut = 1e-6;

  FnProb() = default;
  FnProb(const FnProb& o);
  FnProb& operator=(const FnProb& o);
  ~FnProb() override;

  // The parameter value at cumulative probability x[0]; qvi::kNoValue
  // without a table or for p outside [0, 1].
  double Calculate(const double* x, const double* y) const override;
  // Rebuilds the table when IsValid(); otherwise keeps the old one and
  // returns the reason.
  gtl::status UpdateCalculatedValues() override;
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;

  // The distribution code: 1 normal, 2 log-normal, 3 uniform, 4 triangular,
  // 5 drawn by the user.
  virtual int nType() const { return 0; }
  // Whether the entered parameters define a distribution.
  virtual bool IsValid() const { return false; }

  // The table's mean; qvi::kNoValue while there is no table.
  double Mean() const { return table_ ? table_->mean : qvi::kNoValue; }
  // The table's median; qvi::kNoValue while there is no table.
  double Median() const { return table_ ? table_->median : qvi::kNoValue; }
  // True when a table has been built.
  bool HasTable() const { return table_ != nullptr; }
  // The truncation bounds as entered.
  double Min() const { return min_; }
  double Max() const { return max_; }

 protected:
  // Builds a new table into `t`; the reason on failure.
  virtual gtl::status Build(Table& t) const = 0;
  // The error "distribution not valid" with a reason.
  gtl::status ProbError(const std::wstring& reason) const;
  // Reads a parameter of the kind; false when `a` is none of them.
  virtual bool ReadParameter(const FnAttr& a, gtl::status& s);
  // Fills t.inverse from the inverse q(p) on [0, 1] (see above).
  static void Tabulate(const std::function<double(double)>& q, Table& t);
  // The bounds in force: the table's ends, else the entered bounds.
  void AppendBoundsInForce(std::vector<FnAttr>& attrs) const;

  double min_ = qvi::kNoValue;
  double max_ = qvi::kNoValue;

 private:
  std::unique_ptr<Table> table_;
};

// Normal distribution of "Mean" and "SD" (above zero), truncated by "Min"
// and "Max".
class FnProbNormal : public FnProb {
 public:
  static const wchar_t* TypeName() { return L"Normal"; }
  FnProbNormal() = default;
  FnProbNormal(const double& mean, const double& sd);
  FnProbNormal(const double& mean, const double& sd, const double& min, const double& max);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnProbNormal(*this); }
  int nType() const override { return 1; }
  // Mean and SD set, SD above zero, Min below Max when both are set.
  bool IsValid() const override;
  // "Mean", "SD", "Min", "Max".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // "Min", "Max": the bounds in force.
  void GetCalcAttributes(std::vector<FnAttr>& attrs) const override;

 protected:
  gtl::status Build(Table& t) const override;
  bool ReadParameter(const FnAttr& a, gtl::status& s) override;

 private:
  double mean_ = qvi::kNoValue;
  double sd_ = qvi::kNoValue;
};

// Log-normal distribution shifted by "Loc": the parameter is Loc + Y with Y
// log-normal, and "Mean" and "SD" are the mean and standard deviation of the
// parameter before truncation (so Y has mean Mean - Loc). Loc unset is 0.
class FnProbLogNormal : public FnProb {
 public:
  static const wchar_t* TypeName() { return L"Log Normal"; }
  FnProbLogNormal() = default;
  FnProbLogNormal(const double& loc, const double& mean, const double& sd, const double& min,
                  const double& max);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnProbLogNormal(*this); }
  int nType() const override { return 2; }
  // Mean and SD set, SD above zero, Mean above Loc, Min below Max.
  bool IsValid() const override;
  // "Loc", "Mean", "SD", "Min", "Max".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // "Loc" (in force), "Min", "Max" (in force).
  void GetCalcAttributes(std::vector<FnAttr>& attrs) const override;
  // The location in force (0 when unset).
  double Loc() const { return qvi::IsNoValue(loc_) ? 0.0 : loc_; }

 protected:
  gtl::status Build(Table& t) const override;
  bool ReadParameter(const FnAttr& a, gtl::status& s) override;

 private:
  double loc_ = qvi::kNoValue;
  double mean_ = qvi::kNoValue;
  double sd_ = qvi::kNoValue;
};

// Uniform distribution between "Min" and "Max".
class FnProbUniform : public FnProb {
 public:
  static const wchar_t* TypeName() { return L"Uniform"; }
  FnProbUniform() = default;
  FnProbUniform(const double& min, const double& max);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnProbUniform(*this); }
  int nType() const override { return 3; }
  // Min and Max set, Min below Max.
  bool IsValid() const override;
  // "Min", "Max".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;

 protected:
  gtl::status Build(Table& t) const override;
};

// Triangular distribution from "Min" through "Mode" to "Max".
class FnProbTriangular : public FnProbUniform {
 public:
  static const wchar_t* TypeName() { return L"Triangular"; }
  FnProbTriangular() = default;
  FnProbTriangular(const double& min, const double& mode, const double& max);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnProbTriangular(*this); }
  int nType() const override { return 4; }
  // All three set, Min <= Mode <= Max, Min below Max.
  bool IsValid() const override;
  // "Min", "Mode", "Max".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;

 protected:
  gtl::status Build(Table& t) const override;
  bool ReadParameter(const FnAttr& a, gtl::status& s) override;

 private:
  double mode_ = qvi::kNoValue;
};

}  // namespace v7
