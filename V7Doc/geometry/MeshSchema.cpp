// Persisted names of the finite-element mesh. Node and element numbers are
// positions in their lists, and every row is written (an element emptied by
// the mesher as an element with no nodes), so a mesh reloads with the same
// numbers without an ID per row. The eight-position node list is a
// fixed-length collection "Nodes[N]"; a file listing fewer positions leaves
// the rest 0 (absent), one listing more than eight is refused.
#include "OC/Schema.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/geometry/Mesh2D.h"

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<NODE>() {
  static const RecordType& t = Schema<NODE>(L"NODE")
      .Add(&NODE::dX_, L"dX_", L"X")
      .Add(&NODE::dY_, L"dY_", L"Y")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ELEM>() {
  static const RecordType& t = Schema<ELEM>(L"ELEM")
      .Add(&ELEM::anNodes_, L"anNodes_", L"Nodes[N]",
           meta::MetaDataTraits{}.Bounds(0, qvi::kNone))
      .Add(&ELEM::nMaterialID_, L"nMaterialID_", L"MaterialID")
      .Add(&ELEM::nIntegrationOrder_, L"nIntegrationOrder_", L"IntegrationOrder",
           meta::MetaDataTraits{}.Bounds(0, 9))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<ELEM1D>() {
  static const RecordType& t = Schema<ELEM1D>(L"ELEM1D")
      .Add(&ELEM1D::anNodes_, L"anNodes_", L"Nodes[N]",
           meta::MetaDataTraits{}.Bounds(0, qvi::kNone))
      .Add(&ELEM1D::nMaterialID_, L"nMaterialID_", L"MaterialID")
      .Add(&ELEM1D::nIntegrationOrder_, L"nIntegrationOrder_", L"IntegrationOrder",
           meta::MetaDataTraits{}.Bounds(0, 3))
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<NodePair>() {
  static const RecordType& t = Schema<NodePair>(L"NodePair")
      .Add(&NodePair::nNode1_, L"nNode1_", L"Node1", meta::MetaDataTraits{}.Bounds(0, qvi::kNone))
      .Add(&NodePair::nNode2_, L"nNode2_", L"Node2", meta::MetaDataTraits{}.Bounds(0, qvi::kNone))
      .Done();
  return t;
}

}  // namespace oc
