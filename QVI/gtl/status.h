#pragma once
// The result of every operation that can fail.
//
// A status is either success or a message number with "%s" arguments; the
// message text comes from the message table (str::load_wstring), so a status
// is cheap to make and to copy, and is rendered only when shown.
#include <string>
#include <utility>
#include <vector>

#include "QVI/str/Format.h"

namespace gtl {

class status {
 public:
  // How serious a failure is. Warnings are reported and work goes on (an
  // unknown element skipped on load); errors stop the operation.
  enum class severity : unsigned char { success, warning, error };

  // Success.
  status() = default;

  // A failure with message `id` and its arguments.
  status(unsigned id, std::vector<std::wstring> args, severity level = severity::error)
      : id_(id), level_(id == 0 ? severity::success : level), args_(std::move(args)) {}

  // Success, spelled out.
  static status success() { return {}; }

  // An error with message `id`; arguments may be text or numbers.
  template <class... Args>
  static status error(unsigned id, Args&&... args) {
    return status(id, {str::as_arg(std::forward<Args>(args))...}, severity::error);
  }

  // A warning with message `id`.
  template <class... Args>
  static status warning(unsigned id, Args&&... args) {
    return status(id, {str::as_arg(std::forward<Args>(args))...}, severity::warning);
  }

  bool succeeded() const { return level_ == severity::success; }
  bool failed() const { return level_ == severity::error; }
  bool is_warning() const { return level_ == severity::warning; }

  unsigned id() const { return id_; }
  severity level() const { return level_; }
  const std::vector<std::wstring>& args() const { return args_; }

  // The message text with its arguments filled in; empty for success. An id
  // missing from the table still renders, as "message N: args".
  std::wstring message() const;
  std::string message_utf8() const;

  friend bool operator==(const status&, const status&) = default;

 private:
  unsigned id_ = 0;
  severity level_ = severity::success;
  std::vector<std::wstring> args_;
};

// Keeps the first failure: `into` takes `s` only while `into` succeeds.
inline void keep_first_failure(status& into, const status& s) {
  if (into.succeeded() && !s.succeeded()) into = s;
}

}  // namespace gtl
