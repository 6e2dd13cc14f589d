#include "QVI/gtl/status.h"

#include "QVI/str/Messages.h"

namespace gtl {

std::wstring status::message() const {
  if (succeeded()) return {};
  std::wstring text = str::load_wstring(id_);
  if (text.empty()) {
    text = L"message " + str::to_wstring(id_);
    for (std::size_t i = 0; i < args_.size(); ++i) text += (i == 0 ? L": " : L", ") + args_[i];
    return text;
  }
  return str::format(text, args_);
}

std::string status::message_utf8() const { return str::to_utf8(message()); }

}  // namespace gtl
