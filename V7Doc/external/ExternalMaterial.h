#pragma once
// A loaded add-in material model: the instance of the type that a material's
// ExternalMatlModel names, with its fields applied and its calls bound
// ("CalculateMatrix", "UpdateStresses", "CalculateForce",
// "CalculateShearForce"; a model must offer at least one of the first two).
//
// Every call checks that it is bound and that the add-in's results are
// finite; a failure is a status (also kept in LastError), never a crash of
// the host's own making (see the contract in addins/QviAddIn.h).
#include <array>
#include <memory>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/external/AddInInstance.h"
#include "V7Doc/materials/ExternalMatlModel.h"

namespace v7::external {

class ExternalMaterial {
 public:
  ExternalMaterial();
  ~ExternalMaterial();

  // Loads the model; on failure nothing is bound and the status says why.
  gtl::status Load(const ExternalMatlModel& model);
  bool IsLoaded() const { return instance_ != nullptr; }
  const gtl::status& LastError() const { return lastError_; }

  // The 6 x 6 constitutive matrix (row-major, Voigt order) at a point.
  gtl::status CalculateMatrix(const QviMatlPoint& at, std::array<double, 36>& d);
  // The stresses at the end of a step with strain increment `dstrain`.
  gtl::status UpdateStresses(const QviMatlPoint& at, const std::array<double, 6>& dstrain,
                             std::array<double, 6>& stress);
  // Forces of a structural or interface element from its displacements.
  gtl::status CalculateForce(const std::vector<double>& in, std::vector<double>& out);
  gtl::status CalculateShearForce(const std::vector<double>& in, std::vector<double>& out);

 private:
  gtl::status Fail(gtl::status s);
  gtl::status Force(const QviDelegate& call, const char* name, const std::vector<double>& in,
                    std::vector<double>& out);

  std::unique_ptr<AddInInstance> instance_;
  std::wstring name_;
  QviDelegate matrix_{}, stresses_{}, force_{}, shearForce_{};
  gtl::status lastError_;
};

}  // namespace v7::external
