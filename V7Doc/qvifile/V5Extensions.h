#pragma once
// From an analysis kind and a content to the extension of the
// earlier-generation file that holds it. An empty string means the kind has
// no such file. An extension ending in "*" names a numbered series; the "*"
// stands for the step or file number.
#include <string>

#include "V7Doc/analysis/ANALYSIS.h"
#include "V7Doc/analysis/AnalysisEnums.h"

namespace v7::qvifile::ext::v5 {

std::wstring Archive(AnalysisKind kind);         // the project package
std::wstring Data(AnalysisKind kind);            // the definition file
std::wstring Secondary(AnalysisKind kind);
std::wstring ContourOptions(AnalysisKind kind);
std::wstring Convergence(AnalysisKind kind);     // none for stability
// The primary results of an analysis of `kind` solved by `method`: the
// kind's own cell, or empty when the method is one the kind does not admit
// (a stability method on a seepage analysis names no file). An undefined
// method stands for the kind's default.
std::wstring PriResults(AnalysisKind kind, AnlsMethod method);
std::wstring Concentration(AnalysisKind kind);
std::wstring Mass(AnalysisKind kind);
std::wstring Dispersion(AnalysisKind kind);
std::wstring Particle(AnalysisKind kind);
std::wstring ParticleVelocity(AnalysisKind kind);
std::wstring Displacement(AnalysisKind kind);
std::wstring Stress(AnalysisKind kind);
std::wstring Strain(AnalysisKind kind);
std::wstring PWP(AnalysisKind kind);
std::wstring PWPOrHead(AnalysisKind kind);
std::wstring Head(AnalysisKind kind);            // temperature for heat transfer
std::wstring Flux(AnalysisKind kind);
std::wstring Velocity(AnalysisKind kind);
std::wstring MatlProp(AnalysisKind kind);        // material properties

}  // namespace v7::qvifile::ext::v5
