#pragma once
// JSON output for scripts (--json): texts escaped as RFC 8259 asks, numbers
// in their shortest exact form, and the no-value marker and non-finite
// numbers as null, which is what a reader takes for "no number here".
#include <string>
#include <string_view>

#include "OC/IOC.h"

namespace qvdoc {

std::string JsonString(std::wstring_view text);
std::string JsonString(std::string_view utf8);
std::string JsonNumber(double value);
// A node's value: true/false, a number, a string (enumerations by name),
// null for the no-value markers; a record as an object of its members, a
// collection of records as a list of {"id", "name"}, of values as a list.
std::string JsonValue(const oc::IOC& node);

// A number as text: shortest exact form, "-" for no value.
std::string Number(double value);

}  // namespace qvdoc
