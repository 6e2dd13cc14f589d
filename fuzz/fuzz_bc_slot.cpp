// Fuzzes the reading of a BC slot: the first byte picks the slot (including
// numbers that name none), the rest is the slot's text. Whatever is built
// must answer its type, category and colour, and write back text that
// rebuilds the same slot.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QVI/str/Convert.h"
#include "V7Doc/materials/BC.h"
#include "V7Doc/materials/BoundaryFns.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const auto slot = static_cast<v7::DOFType>(data[0] % 10);
  const std::wstring text =
      str::to_wstring(std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));
  v7::BC bc;
  const gtl::status s = bc.SetSlot(slot, text);
  (void)s.message();
  (void)v7::GetBTypeCategory(bc);
  (void)bc.BCType();
  v7::SetBCDefaultColour(bc);
  const v7::IFn& fn = bc.DOF(slot);
  (void)v7::BoundaryTypeOf(fn);
  double x = 1.0;
  (void)fn->Calculate(&x, nullptr);
  v7::BC again;
  (void)again.SetSlot(slot, fn.as_wstring());
  if (s.succeeded() && again.DOF(slot).as_wstring() != fn.as_wstring()) __builtin_trap();
  return 0;
}
