#include "tools/qvdoc/Commands.h"

#include <algorithm>
#include <iostream>
#include <vector>

namespace qvdoc {
namespace {

std::vector<CommandFactory>& Factories() {
  static std::vector<CommandFactory> factories;
  return factories;
}

struct Step {
  int order;
  const char* title;
  DemoStep run;
};
std::vector<Step>& Steps() {
  static std::vector<Step> steps;
  return steps;
}

}  // namespace

CommandRegistrar::CommandRegistrar(CommandFactory factory) { Factories().push_back(factory); }

void AddRegisteredCommands(CLI::App& app) {
  for (auto f : Factories()) f(app);
}

DemoStepRegistrar::DemoStepRegistrar(int order, const char* title, DemoStep step) {
  Steps().push_back({order, title, step});
}

bool RunDemoSteps(DemoContext& context) {
  auto steps = Steps();
  std::stable_sort(steps.begin(), steps.end(),
                   [](const Step& a, const Step& b) { return a.order < b.order; });
  for (const auto& s : steps) {
    context.out << "\n== " << s.title << " ==\n";
    if (!s.run(context)) {
      std::cerr << "qvdoc demo: step \"" << s.title << "\" failed\n";
      return false;
    }
  }
  return true;
}

}  // namespace qvdoc
