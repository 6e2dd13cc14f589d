// `qvdoc addins scan FILE`: what an add-in library offers (its types, their
// methods and fields), with the text that uses each type: an External
// function for types offering "Calculate", a material's External member for
// material models.
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "QVI/qvi/addins/AddInsManager.h"
#include "QVI/str/Convert.h"
#include "V7Doc/external/AddInInstance.h"
#include "V7Doc/functions/FnExternal.h"
#include "V7Doc/materials/ExternalMatlModel.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

[[noreturn]] void Fail(const std::string& message) {
  std::cerr << "qvdoc addins scan: " << message << "\n";
  throw CLI::RuntimeError(kExitFailure);
}

std::string U8(const std::wstring& w) { return str::to_utf8(w); }

void Scan(const std::string& file) {
  namespace fs = std::filesystem;
  const fs::path path(std::u8string(file.begin(), file.end()));
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) Fail("\"" + file + "\" is not a file");
  // The add-in is looked up as a project stored beside it would look it up.
  const std::u8string folder = fs::absolute(path, ec).parent_path().u8string();
  const std::u8string name = path.filename().u8string();
  qvi::addins::AddInsManager::Instance().SetDocumentFolder(str::to_wstring(std::string(folder.begin(), folder.end())));
  const std::wstring assembly = str::to_wstring(std::string(name.begin(), name.end()));

  std::vector<v7::external::AddInType> types;
  if (const gtl::status s = v7::external::ScanAssembly(assembly, types); !s.succeeded()) Fail(s.message_utf8());
  std::cout << U8(assembly) << ": " << types.size() << (types.size() == 1 ? " type\n" : " types\n");
  for (const auto& t : types) {
    std::cout << "\n" << U8(t.name);
    if (!t.description.empty()) std::cout << ": " << U8(t.description);
    std::cout << "\n  methods:";
    for (const auto& m : t.methods) std::cout << " " << U8(m);
    std::cout << "\n";
    v7::ExternalMatlModel::FieldList pairs;
    for (const auto& f : t.fields) {
      std::cout << "  field " << U8(f.name) << " = " << (f.defaultValue.empty() ? "(none)" : U8(f.defaultValue));
      if (!f.description.empty()) std::cout << "  " << U8(f.description);
      std::cout << "\n";
      if (!f.defaultValue.empty()) pairs.emplace_back(f.name, f.defaultValue);
    }
    if (t.Offers(L"Calculate")) {
      v7::FnExternal fn;
      std::vector<v7::FnAttr> attrs{v7::FnAttrAssembly(assembly), v7::FnAttrFunction(t.name)};
      for (const auto& [n, v] : pairs) attrs.push_back(v7::FnExternal::FnAttrField(n, v));
      fn.SetAttributes(attrs);
      std::cout << "  function: " << U8(fn.as_wstring()) << "\n";
    }
    if (t.Offers(L"CalculateMatrix") || t.Offers(L"UpdateStresses")) {
      std::wstring fields;
      v7::ExternalMatlModel::MakeFields(pairs, fields);
      std::cout << "  material model: Name=" << U8(t.name) << " Assembly=" << U8(assembly) << " Fields=" << U8(fields)
                << "\n";
    }
  }
}

void AddAddInsCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("addins", "Inspect add-in libraries");
  cmd->require_subcommand(1);
  auto file = std::make_shared<std::string>();
  auto* scan = cmd->add_subcommand("scan", "List the types, methods and fields an add-in library offers");
  cmd->footer("Example:\n  qvdoc addins scan build/release/examples/addins/gardner_conductivity.so");
  scan->footer("Example:\n  qvdoc addins scan build/release/examples/addins/gardner_conductivity.so");
  scan->add_option("FILE", *file, "The add-in library (a shared library built against addins/QviAddIn.h)")
      ->required();
  scan->callback([file] { Scan(*file); });
}

const CommandRegistrar registrar(&AddAddInsCommand);

}  // namespace
}  // namespace qvdoc
