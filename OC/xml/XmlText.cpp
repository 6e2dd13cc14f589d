#include "OC/xml/XmlText.h"

#include <array>
#include <cstdint>

namespace oc::xml {
namespace {

enum : std::uint8_t { kText = 1, kAttribute = 2 };

// Which bytes need escaping in which context; everything else (UTF-8
// continuation and lead bytes included) is copied as it is.
constexpr std::array<std::uint8_t, 256> MakeTable() {
  std::array<std::uint8_t, 256> t{};
  for (int c = 0; c < 32; ++c) t[c] = kText | kAttribute;
  t['\t'] = t['\n'] = t['\r'] = kAttribute;
  t['&'] = t['<'] = kText | kAttribute;
  t['>'] = kText;
  t['"'] = kAttribute;
  return t;
}
constexpr std::array<std::uint8_t, 256> kSpecial = MakeTable();

void AppendEscaped(std::string& out, std::string_view text, std::uint8_t context) {
  const char* p = text.data();
  const char* const end = p + text.size();
  while (p != end) {
    const char* run = p;
    while (p != end && !(kSpecial[static_cast<unsigned char>(*p)] & context)) ++p;
    out.append(run, static_cast<std::size_t>(p - run));
    if (p == end) return;
    const unsigned char c = static_cast<unsigned char>(*p++);
    switch (c) {
      case 0: return;
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: {
        const char ref[5] = {'&', '#', static_cast<char>('0' + c / 10), static_cast<char>('0' + c % 10), ';'};
        out.append(ref, sizeof ref);
      }
    }
  }
}

}  // namespace

void AppendEscapedText(std::string& out, std::string_view text) { AppendEscaped(out, text, kText); }

void AppendEscapedAttribute(std::string& out, std::string_view text) {
  AppendEscaped(out, text, kAttribute);
}

}  // namespace oc::xml
