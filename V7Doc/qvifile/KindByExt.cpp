#include "V7Doc/qvifile/KindByExt.h"

#include <string>
#include <unordered_map>

#include "QVI/str/Convert.h"

namespace v7::qvifile::ext {
namespace {

using K = AnalysisKind;

// The map's entries, per kind, in kind order. ".su4", ".o*" and ".base" are
// recognised although no extension function returns them: the map and the
// functions are two separate lists.
constexpr KindEntry kEntries[] = {
    {L".suz", K::Solute},     {L".sur", K::Solute},      {L".su2", K::Solute},
    {L".su3", K::Solute},     {L".su4", K::Solute},      {L".c*", K::Solute},
    {L".b*", K::Solute},      {L".q*", K::Solute},       {L".n*", K::Solute},
    {L".k*", K::Solute},      {L".cnc", K::Solute},      {L".p*", K::Solute},
    {L".a*", K::Solute},      {L".SOLUTEXml", K::Solute}, {L".SOLUTEMrk", K::Solute},

    {L".shz", K::Shake},      {L".she", K::Shake},       {L".sh2", K::Shake},
    {L".sh3", K::Shake},      {L".w*", K::Shake},        {L".x*", K::Shake},
    {L".y*", K::Shake},       {L".z*", K::Shake},        {L".i*", K::Shake},
    {L".o*", K::Shake},       {L".base", K::Shake},      {L".cnq", K::Shake},
    {L".SHAKEXml", K::Shake}, {L".SHAKEMrk", K::Shake},

    {L".hyz", K::Hydro},      {L".hyp", K::Hydro},       {L".hy2", K::Hydro},
    {L".hy3", K::Hydro},      {L".h*", K::Hydro},        {L".v*", K::Hydro},
    {L".m*", K::Hydro},       {L".f*", K::Hydro},        {L".cnv", K::Hydro},
    {L".HYDROXml", K::Hydro}, {L".HYDROMrk", K::Hydro},

    {L".dfz", K::Deform},     {L".dfg", K::Deform},      {L".df2", K::Deform},
    {L".df3", K::Deform},     {L".d*", K::Deform},       {L".s*", K::Deform},
    {L".e*", K::Deform},      {L".l*", K::Deform},       {L".u*", K::Deform},
    {L".cns", K::Deform},     {L".DEFORMXml", K::Deform}, {L".DEFORMMrk", K::Deform},

    {L".stz", K::Stab},       {L".stp", K::Stab},        {L".st2", K::Stab},
    {L".st3", K::Stab},       {L".fac", K::Stab},        {L".frc", K::Stab},
    {L".pro", K::Stab},       {L".new", K::Stab},        {L".optfrc", K::Stab},
    {L".optpro", K::Stab},    {L".STABXml", K::Stab},    {L".STABMrk", K::Stab},

    {L".thz", K::Thermo},     {L".thm", K::Thermo},      {L".th2", K::Thermo},
    {L".th3", K::Thermo},     {L".t*", K::Thermo},       {L".g*", K::Thermo},
    {L".r*", K::Thermo},      {L".j*", K::Thermo},       {L".cnp", K::Thermo},
    {L".en*", K::Thermo},     {L".THERMOXml", K::Thermo}, {L".THERMOMrk", K::Thermo},

    {L".evz", K::Evapo},      {L".evd", K::Evapo},       {L".ev2", K::Evapo},
    {L".ev3", K::Evapo},      {L".evcnv", K::Evapo},     {L".vh*", K::Evapo},
    {L".vv*", K::Evapo},      {L".vm*", K::Evapo},       {L".vf*", K::Evapo},
    {L".vef*", K::Evapo},     {L".vcf*", K::Evapo},      {L".EVAPOXml", K::Evapo},
    {L".EVAPOMrk", K::Evapo},
};
static_assert(std::size(kEntries) == 89);

// Keys are lower-cased so that look-ups ignore case. The first entry of a
// key wins, as entries are made in kind order.
const std::unordered_map<std::wstring, AnalysisKind>& Map() {
  static const auto map = [] {
    std::unordered_map<std::wstring, AnalysisKind> m;
    for (const auto& e : kEntries) m.emplace(str::to_lower(e.ext), e.kind);
    return m;
  }();
  return map;
}

const AnalysisKind* Lookup(std::wstring_view ext) {
  const auto& m = Map();
  auto it = m.find(str::to_lower(ext));
  return it == m.end() ? nullptr : &it->second;
}

// The part before the first character of `stops`, with "*" appended.
std::wstring HeadPattern(std::wstring_view ext, std::wstring_view stops) {
  const auto cut = ext.find_first_of(stops);
  return std::wstring(ext.substr(0, cut)) + L"*";
}

}  // namespace

AnalysisKind KindByExt(std::wstring_view ext) {
  if (const auto* k = Lookup(ext)) return *k;
  if (ext.size() < 3) return AnalysisKind::None;
  // A numbered file: its head before the first digit names the series. Names
  // ending in "in" skip this step and go on to the next.
  if (!str::iequals(ext.substr(ext.size() - 2), L"in"))
    if (const auto* k = Lookup(HeadPattern(ext, L"0123456789"))) return *k;
  if (const auto* k = Lookup(HeadPattern(ext, L"0123456789*"))) return *k;
  return AnalysisKind::None;
}

std::span<const KindEntry> KindByExtEntries() {
  return kEntries;
}

}  // namespace v7::qvifile::ext
