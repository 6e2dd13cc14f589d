#pragma once
// qvdoc's subcommands and demo sections register themselves, each from its own
// file, so that adding one touches no other file.
#include <CLI/CLI.hpp>

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>

#include "V7Doc/core/QVDocument.h"

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
};

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
