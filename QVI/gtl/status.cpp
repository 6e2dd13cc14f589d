#include "QVI/gtl/status.h"

#include "QVI/str/Messages.h"

namespace gtl {

// Arguments quote input (names, values, file names), so each is escaped:
// a message stays one printable line whatever bytes the input held.
std::wstring status::message() const {
  if (succeeded()) return {};
  std::vector<std::wstring> args;
  args.reserve(args_.size());
  for (const std::wstring& a : args_) args.push_back(str::escape_controls(a));
  std::wstring text = str::load_wstring(id_);
  if (text.empty()) {
    text = L"message " + str::to_wstring(id_);
    for (std::size_t i = 0; i < args.size(); ++i) text += (i == 0 ? L": " : L", ") + args[i];
    return text;
  }
  return str::format(text, args);
}

std::string status::message_utf8() const { return str::to_utf8(message()); }

}  // namespace gtl
