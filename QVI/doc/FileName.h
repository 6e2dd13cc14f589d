#pragma once
// A file name taken apart: folder, stem and extension. Used to derive the
// names of the files that belong to one project or one analysis.
#include <string>
#include <string_view>

namespace doc::file {

class Name {
 public:
  Name() = default;
  // Splits a path ("C:/p/slope.hyz", "results/001/"); both slash kinds
  // separate folders. A path ending in a separator is a folder only.
  explicit Name(std::wstring_view path);

  // The folder with its trailing separator, or empty.
  const std::wstring& Folder() const { return folder_; }
  // The name without folder and extension ("slope").
  const std::wstring& Stem() const { return stem_; }
  // The extension with its dot (".hyz"), or empty.
  const std::wstring& Ext() const { return ext_; }

  // Folder and stem, without extension.
  std::wstring FolderStem() const { return folder_ + stem_; }
  // The whole path again.
  std::wstring Path() const { return folder_ + stem_ + ext_; }

  // The same folder and stem with another extension (with its dot).
  Name WithExt(std::wstring_view ext) const;
  // A file `leaf` inside this name's folder (the stem and extension are
  // dropped when the name is a file).
  std::wstring InFolder(std::wstring_view leaf) const { return folder_ + std::wstring(leaf); }
  // This whole name taken as a folder, with `leaf` inside it.
  std::wstring Below(std::wstring_view leaf) const;

  friend bool operator==(const Name&, const Name&) = default;

 private:
  std::wstring folder_;
  std::wstring stem_;
  std::wstring ext_;
};

}  // namespace doc::file
