#pragma once
// A named function of one variable as stored in the document's function
// lists, and the table of such functions (collections 11 to 51).
#include <string>

#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

struct Func2D {
  std::wstring name;
  std::wstring description;
  bool bMissing_ = false;
  friend bool operator==(const Func2D&, const Func2D&) = default;
};

inline bool IsMissing(const Func2D& f) { return f.bMissing_; }
inline void SetMissing(Func2D& f) {
  f = Func2D{};
  f.bMissing_ = true;
}

template <class T>
class TQVContainerTableNoStoredID : public QVContainerTable<T> {
 public:
  TQVContainerTableNoStoredID() = default;
};

// One list of functions of one kind; the kind is the collection's GID.
class Func2DTable : public TQVContainerTableNoStoredID<Func2D> {
 public:
  Func2DTable() = default;
};

}  // namespace v7
