#pragma once
// qvdoc's subcommands and demo sections register themselves, each from its own
// file, so that adding one touches no other file.
#include <CLI/CLI.hpp>

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "V7Doc/document/QVDocument.h"

namespace qvdoc {

// Adds one subcommand to the application.
using CommandFactory = void (*)(CLI::App& app);
struct CommandRegistrar {
  explicit CommandRegistrar(CommandFactory factory);
};
void AddRegisteredCommands(CLI::App& app);

// What the demo sections share: the project being built and where to report.
struct DemoContext {
  v7::QVDocumentHandle document;
  std::ostream& out;
  std::filesystem::path outDir;
  // Files that steps add to the saved package beside the document, as
  // (entry name, bytes): result tables under their analysis's result folder.
  std::vector<std::pair<std::wstring, std::string>> packageEntries;
};

// Demo step orders, so that steps added from separate files run in a sensible
// sequence: core 100, analyses 200, materials 250, functions 300, soil-water
// functions 350, geometry 400, results 500, package save and reload 900,
// summary 1000.

// One step of `qvdoc demo`; steps run in ascending `order`. A step returns
// false (after printing why to stderr) to fail the demo.
using DemoStep = bool (*)(DemoContext& context);
struct DemoStepRegistrar {
  DemoStepRegistrar(int order, const char* title, DemoStep step);
};
bool RunDemoSteps(DemoContext& context);

// Exit codes.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

}  // namespace qvdoc
