#include "V7Doc/results/ResultTableReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/results/ResultMessages.h"

namespace v7::result {
namespace {

// Cell texts quoted in messages are cut here: a garbage cell can be a
// megabyte long.
constexpr std::size_t kMaxQuotedText = 40;

// Blanks within a row: every blank but the line feed, which ends the row.
bool IsBlank(char c) { return c != '\n' && str::is_blank(c); }

std::string Excerpt(std::string_view s) {
  if (s.size() <= kMaxQuotedText) return std::string(s);
  return std::string(s.substr(0, kMaxQuotedText)) + "...";
}

std::wstring NameOf(DataParamType p) {
  std::wstring n = meta::ToName(p);
  return n.empty() ? str::to_wstring(static_cast<long long>(p)) : n;
}

// Walks the rows of a table text. `p` is the start of the current row.
struct Cursor {
  const char* p;
  const char* end;
  std::size_t line = 0;  // line number of the current row, from 1

  // Moves to the start of the next row that holds more than blanks; false at
  // the end of the text. `p` must be at the start of a row.
  bool NextRow() {
    while (p < end) {
      ++line;
      const char* q = p;
      while (q < end && IsBlank(*q)) ++q;
      if (q < end && *q != '\n') return true;
      p = q < end ? q + 1 : end;
    }
    return false;
  }
  // Moves `p` past the end of the current row.
  void SkipRow(const char* from) {
    const void* nl = std::memchr(from, '\n', static_cast<std::size_t>(end - from));
    p = nl ? static_cast<const char*>(nl) + 1 : end;
  }
};

// One field of a row, without its blanks and quotes. `next` is where the
// following field starts, or null when the row ended with this field.
struct Field {
  std::string_view text;
  const char* next = nullptr;
  const char* rowEnd = nullptr;  // set when the row ended: the '\n' or end
  bool quoted = false;
  bool openQuote = false;
};

Field SplitField(const char* p, const char* end) {
  Field f;
  while (p < end && IsBlank(*p)) ++p;
  const char* start = p;
  const char* stop;
  if (p < end && *p == '"') {
    f.quoted = true;
    ++p;
    start = p;
    for (;;) {
      const char* q = static_cast<const char*>(std::memchr(p, '"', static_cast<std::size_t>(end - p)));
      const char* nl = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
      if (!q || (nl && nl < q)) {
        f.openQuote = true;
        f.rowEnd = nl ? nl : end;
        return f;
      }
      if (q + 1 < end && q[1] == '"') {
        p = q + 2;
        continue;
      }
      stop = q;
      p = q + 1;
      break;
    }
    while (p < end && IsBlank(*p)) ++p;
    // Text after the closing quote up to the delimiter is kept with the field
    // so that the caller can refuse it ("1"x).
    const char* d = p;
    while (d < end && *d != ',' && *d != '\n') ++d;
    if (d != p) stop = d;
    p = d;
  } else {
    while (p < end && *p != ',' && *p != '\n') ++p;
    stop = p;
    while (stop > start && IsBlank(stop[-1])) --stop;
  }
  f.text = std::string_view(start, static_cast<std::size_t>(stop - start));
  if (p < end && *p == ',') f.next = p + 1;
  else f.rowEnd = p;
  return f;
}

// Parses a whole field as a finite number; empty is the no-value marker.
bool ParseNumber(std::string_view t, double& v) {
  while (!t.empty() && IsBlank(t.back())) t.remove_suffix(1);
  while (!t.empty() && IsBlank(t.front())) t.remove_prefix(1);
  if (t.empty()) {
    v = qvi::kNoValue;
    return true;
  }
  const char* b = t.data();
  const char* e = b + t.size();
  if (*b == '+' && e - b > 1 && b[1] != '-' && b[1] != '+') ++b;
  const auto r = std::from_chars(b, e, v, std::chars_format::general);
  return r.ec == std::errc() && r.ptr == e && std::isfinite(v);
}

struct Header {
  std::vector<DataParamType> params;  // per header field; Undefined-like kNone when unknown
  std::vector<std::wstring> names;    // per header field
  std::size_t line = 0;
};

gtl::status ParseHeader(Cursor& c, std::wstring_view file, Header& h) {
  // A UTF-8 byte-order mark is no part of the first name.
  if (c.end - c.p >= 3 && std::memcmp(c.p, "\xEF\xBB\xBF", 3) == 0) c.p += 3;
  if (!c.NextRow()) return gtl::status::error(result_msg::kNoHeader, std::wstring(file));
  h.line = c.line;
  const char* p = c.p;
  for (;;) {
    Field f = SplitField(p, c.end);
    if (f.openQuote)
      return gtl::status::error(result_msg::kOpenQuote, std::wstring(file), h.line,
                                h.names.size() + 1);
    std::wstring name = str::to_wstring(f.text);
    const auto v = meta::EnumTable<DataParamType>().ValueOf(name);
    h.params.push_back(v ? static_cast<DataParamType>(*v) : static_cast<DataParamType>(qvi::kNone));
    h.names.push_back(std::move(name));
    if (!f.next) {
      c.SkipRow(f.rowEnd);
      return {};
    }
    p = f.next;
  }
}

}  // namespace

std::size_t ResultTable::Find(DataParamType p) const {
  const auto it = std::find(params_.begin(), params_.end(), p);
  return it == params_.end() ? npos : static_cast<std::size_t>(it - params_.begin());
}

gtl::status ReadResultTable(std::string_view text, std::wstring_view file,
                            const std::vector<DataParamType>& columns, ResultTable& table) {
  const std::wstring fileName(file);
  Cursor c{text.data(), text.data() + text.size()};
  Header h;
  if (auto s = ParseHeader(c, file, h); !s.succeeded()) return s;

  // Where each asked-for column comes from.
  std::vector<std::size_t> source(columns.size());
  std::vector<char> needed(h.params.size(), 0);
  std::size_t last = 0;
  for (std::size_t j = 0; j < columns.size(); ++j) {
    std::size_t found = ResultTable::npos;
    for (std::size_t f = 0; f < h.params.size(); ++f) {
      if (h.params[f] != columns[j]) continue;
      if (found != ResultTable::npos)
        return gtl::status::error(result_msg::kDuplicateColumn, fileName, h.line,
                                  NameOf(columns[j]), found + 1, f + 1);
      found = f;
    }
    if (found == ResultTable::npos)
      return gtl::status::error(result_msg::kMissingColumn, fileName, h.line, NameOf(columns[j]));
    source[j] = found;
    needed[found] = 1;
    last = std::max(last, found);
  }

  // Values go straight to their column-major slot: room is made for as
  // many rows as the text has line feeds (plus a last row without one), and
  // the columns are closed up at the end when blank rows left room unused.
  std::size_t capacity = 1;
  for (const char* q = c.p; (q = static_cast<const char*>(std::memchr(q, '\n', static_cast<std::size_t>(c.end - q))));
       ++q)
    ++capacity;
  const std::size_t n = columns.size();
  std::vector<double> values(n ? n * capacity : 0);
  std::vector<double> cell(h.params.size(), 0.0);
  std::size_t rows = 0;
  while (n && c.NextRow()) {
    const char* p = c.p;
    for (std::size_t f = 0; f <= last; ++f) {
      if (!p) {
        // The row ended before field f: name the first asked-for field missing.
        std::size_t miss = f;
        while (!needed[miss]) ++miss;
        return gtl::status::error(result_msg::kShortRow, fileName, c.line, miss + 1, h.names[miss]);
      }
      // The usual cell, a bare number up to its delimiter, is converted in
      // place; anything else (blanks before it, quotes, a sign, an empty
      // or bad cell) goes through the general field splitter below.
      if (needed[f] && p < c.end && *p != '"' && *p != '+' && !IsBlank(*p)) {
        double v = 0;
        const auto r = std::from_chars(p, c.end, v, std::chars_format::general);
        const char* q = r.ptr;
        while (q < c.end && IsBlank(*q)) ++q;
        if (r.ec == std::errc() && std::isfinite(v) && (q == c.end || *q == ',' || *q == '\n')) {
          cell[f] = v;
          if (q < c.end && *q == ',') {
            p = q + 1;
            continue;
          }
          c.p = q < c.end ? q + 1 : c.end;
          p = nullptr;
          if (f == last) break;
          continue;
        }
      }
      const Field fld = SplitField(p, c.end);
      // An unclosed quote swallows the rest of the row, and an asked-for
      // field is at or after this one.
      if (fld.openQuote) return gtl::status::error(result_msg::kOpenQuote, fileName, c.line, f + 1);
      if (needed[f] && !ParseNumber(fld.text, cell[f]))
        return gtl::status::error(result_msg::kNotANumber, fileName, c.line, f + 1, h.names[f],
                                  Excerpt(fld.text));
      if (!fld.next) {
        c.SkipRow(fld.rowEnd);
        p = nullptr;
        if (f == last) break;
        continue;
      }
      p = fld.next;
    }
    if (p) c.SkipRow(p);
    for (std::size_t j = 0; j < n; ++j) values[j * capacity + rows] = cell[source[j]];
    ++rows;
  }
  if (rows < capacity) {
    for (std::size_t j = 1; j < n; ++j)
      std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(j * capacity), rows,
                  values.begin() + static_cast<std::ptrdiff_t>(j * rows));
    values.resize(n * rows);
  }

  ResultTable out;
  out.params_ = columns;
  out.rows_ = rows;
  out.values_ = std::move(values);
  table = std::move(out);
  return {};
}

gtl::status ReadResultTableFile(const std::wstring& path, const std::vector<DataParamType>& columns,
                                ResultTable& table) {
  std::error_code ec;
  const std::filesystem::path fsPath(path);
  const auto size = std::filesystem::file_size(fsPath, ec);
  if (ec) return gtl::status::error(result_msg::kCannotRead, path);
  if (size > kMaxFileBytes)
    return gtl::status::error(result_msg::kFileTooLarge, path,
                              static_cast<unsigned long long>(kMaxFileBytes));
  std::ifstream in(fsPath, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(size)))
    return gtl::status::error(result_msg::kCannotRead, path);
  return ReadResultTable(bytes, path, columns, table);
}

gtl::status ReadResultTableHeader(std::string_view text, std::wstring_view file,
                                  std::vector<DataParamType>& columns,
                                  std::vector<std::wstring>* unknown) {
  Cursor c{text.data(), text.data() + text.size()};
  Header h;
  if (auto s = ParseHeader(c, file, h); !s.succeeded()) return s;
  columns.clear();
  if (unknown) unknown->clear();
  std::wstring names;
  for (std::size_t f = 0; f < h.params.size(); ++f) {
    if (h.params[f] != static_cast<DataParamType>(qvi::kNone)) {
      columns.push_back(h.params[f]);
      continue;
    }
    if (unknown) unknown->push_back(h.names[f]);
    if (f < 8) names += (f ? L", \"" : L"\"") + h.names[f].substr(0, kMaxQuotedText) + L"\"";
    else if (f == 8) names += L", ...";
  }
  // A table none of whose columns is a quantity has nothing to read: most
  // likely not a result table at all, or one with a broken header.
  if (columns.empty())
    return gtl::status::error(result_msg::kNoKnownColumn, std::wstring(file), h.line, names);
  return {};
}

}  // namespace v7::result
