#pragma once
// The message table: every user-facing text of the library, by number.
//
// Texts live in QVI/str/messages/*.def, one file per subsystem, as
// QVI_MESSAGE(number, L"text") lines. Numbers below 30000 are the suite's own
// historical numbers; numbers from 30000 on are this library's additions.
#include <string>
#include <vector>

namespace str {

// The text of message `id`, or an empty string when there is none.
std::wstring load_wstring(unsigned id);

// Every message number in the table, ascending (for consistency checks).
std::vector<unsigned> message_ids();

}  // namespace str
