#pragma once
// Names of the result files of an analysis.
//
// Current generation: inside the project package every analysis has a result
// folder, FName(GID); results of one time step sit in a step folder below it,
// and files about the whole run (time steps, histories) sit in the result
// folder itself:
//
//   001/time_step.csv          NameTimeStep
//   001/history_4.csv          NameHistoryPoint(name, 4)
//   001/003/node.csv           NameNode(name, 3)
//   001/000/slice_2.csv        NameSlice(name, 2, 0)
//
// The builders take the result folder as a ::doc::file::Name (a path ending in
// a separator, e.g. ::doc::file::Name(L"001/")).
//
// Earlier generation (stability outputs beside the project file): the
// builders take the project's name and keep its folder and stem
// ("C:/p/slope.stz" gives "C:/p/slope.fac").
#include <string>

#include "QVI/doc/FileName.h"
#include "V7Doc/analysis/AnalysisEnums.h"
#include "V7Doc/core/GID.h"

namespace v7::qvifile::result {

// File names of the result tables; their stems ("node", "slice", ...) are also
// the names under which a result table is asked for.
std::wstring FNameExtBar();           // "bar.csv"
std::wstring FNameExtFlux();          // "flux.csv"
std::wstring FNameExtGauss1D();       // "gauss_1d.csv"
std::wstring FNameExtGauss();         // "gauss.csv"
std::wstring FNameExtNode();          // "node.csv"
std::wstring FNameExtSlipSurface();   // "slip_surface.csv"
std::wstring FNameExtSurfaceLayer();  // "surface_layer.csv"
std::wstring FNameExtTime();          // "time.csv"
std::wstring FNameExtTimeStep();      // "time_step.csv"
std::wstring FNameExtHistoryParticle(GID particle);  // "particle_%d.csv"
std::wstring FNameExtHistoryPoint(GID point);        // "history_%d.csv"
std::wstring FNameExtInterSlice(int surface);        // "interslice_%d.csv"
std::wstring FNameExtLambdaFOS(int surface);         // "lambdafos_%d.csv"
std::wstring FNameExtSlice(int surface);             // "slice_%d.csv"

// The result folder of an analysis: its GID in three digits or more ("001"),
// so that folders list in analysis order.
std::wstring FName(GID analysis);
// The folder of one time step inside a result folder, likewise "%03d".
std::wstring StepFolder(int step);

// Per-step tables.
std::wstring NameBar(const ::doc::file::Name& name, int step);
std::wstring NameFlux(const ::doc::file::Name& name, int step);
std::wstring NameGauss(const ::doc::file::Name& name, int step);
std::wstring NameGauss1D(const ::doc::file::Name& name, int step);
std::wstring NameNode(const ::doc::file::Name& name, int step);
std::wstring NameSlipSurface(const ::doc::file::Name& name, int step);
std::wstring NameSurfaceLayer(const ::doc::file::Name& name, int step);
std::wstring NameInterSlice(const ::doc::file::Name& name, int surface, int step);
std::wstring NameLambdaFOS(const ::doc::file::Name& name, int surface, int step);
std::wstring NameSlice(const ::doc::file::Name& name, int surface, int step);

// Whole-run tables.
std::wstring NameTime(const ::doc::file::Name& name);
std::wstring NameTimeStep(const ::doc::file::Name& name);
std::wstring NameHistoryParticle(const ::doc::file::Name& name, GID particle);
std::wstring NameHistoryPoint(const ::doc::file::Name& name, GID point);

// A named data table: "<text>.csv" alone, or inside the result folder for one
// time, "<text>_<time>.csv" with the time written in its shortest exact form.
std::wstring NameData(const std::wstring& text);
std::wstring NameData(const ::doc::file::Name& name, const std::wstring& text, double time);

// Earlier-generation stability outputs. `step` > 0 marks the outputs computed
// from the pore pressures of that step of a transient parent: "_<step>" joins
// the stem. The forces and probability files of slip surface `surface` > 0
// carry its number as "%02d" before the extension, and from surface 100 on
// as "-<surface>" (so that step 2 surface 101 and step 21 surface 1 differ);
// surface 0 names the optimised surface (".optfrc", ".optpro").
std::wstring NameFofS(const ::doc::file::Name& name, int step);
std::wstring NameForces(const ::doc::file::Name& name, int surface, int step);
std::wstring NameProbability(const ::doc::file::Name& name, int surface, int step);
// The primary results of one step of an earlier-generation analysis: the
// stem and the kind's primary extension with the step as "%02d" in place of
// its "*" (".h03"); the stability ".fac" takes no step. Empty when the kind
// and method name no primary file.
std::wstring NamePrimary(const ::doc::file::Name& name, AnalysisKind kind, AnlsMethod method,
                         int step);
std::wstring NameMark(const ::doc::file::Name& name);     // ".mrk"
std::wstring NameNewmark(const ::doc::file::Name& name);  // ".new"

}  // namespace v7::qvifile::result
