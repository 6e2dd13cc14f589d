#pragma once
// Functions that evaluate other functions of the document's lists by number
// (a boundary table, a probability density, a water-content curve), and the
// guard against numbers that lead back to where they started.
//
// A function list entry that names itself, directly or through others, has
// no value: it is reported as a cycle when a document is loaded or a
// function is updated, and evaluating it gives the no-value marker instead of
// recursing without end.
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/core/GID.h"

namespace v7 {

class FnImpl;
class Func2D;
class QVDocData;

// One function of one list: (list GID, function number from 1).
struct FnReference {
  GID list = 0;
  GID num = 0;
  friend bool operator==(const FnReference&, const FnReference&) = default;
  friend auto operator<=>(const FnReference&, const FnReference&) = default;
};

// Implemented by every kind that evaluates a function of a list by number.
class IFnReferences {
 public:
  virtual ~IFnReferences() = default;
  // Appends the functions this one evaluates (numbers of 0 left out).
  virtual void GetFnReferences(std::vector<FnReference>& refs) const = 0;
};

// The functions `fn` refers to (none for a kind without references).
std::vector<FnReference> FnReferencesOf(const FnImpl& fn);

// Follows the references of `fn` through the lists of `doc`; an error naming
// the chain (message 33560) when they come back to a function already on the
// way. Numbers that name nothing end a chain without complaint: evaluation
// gives no value there, which is the kind's own business.
gtl::status CheckFnReferences(const FnImpl& fn, const QVDocData& doc);
// The same against the current document (success when there is none).
gtl::status CheckFnReferences(const FnImpl& fn);

// Every reference cycle among the functions of `doc`'s lists, one warning
// per cycle, named from its first function in list order.
void FindFnReferenceCycles(const QVDocData& doc, std::vector<gtl::status>& problems);

// The value of function `num` of list `list` of the current document at
// (x, y): the no-value marker for a number that names nothing, and for a
// function whose evaluation comes back to itself.
double CalculateFunc2D(GID list, int num, const double* x, const double* y);

}  // namespace v7
