#pragma once
// Message numbers of the analysis subsystem (texts in
// QVI/str/messages/analysis.def).
namespace v7::analysis_msg {

// Time steps.
inline constexpr unsigned kIncCount = 32000;        // count, limit
inline constexpr unsigned kDuration = 32001;        // duration
inline constexpr unsigned kInitIncSize = 32002;     // size
inline constexpr unsigned kStartTime = 32003;       // start
inline constexpr unsigned kInitIncTooLarge = 32004;  // size, duration
inline constexpr unsigned kMode = 32005;            // mode
inline constexpr unsigned kIncType = 32006;         // type
inline constexpr unsigned kTooManySteps = 32007;    // count, limit
inline constexpr unsigned kUnrepresentable = 32008;  // step
inline constexpr unsigned kRecordTimes = 32009;     // sample
inline constexpr unsigned kNoResultSteps = 32016;

// Analyses.
inline constexpr unsigned kNoAnalysis = 32017;   // id
inline constexpr unsigned kParentCycle = 32018;  // parent, child

// Result paths.
inline constexpr unsigned kHeadingDetail = 32010;  // "%s:\n\n%s"
inline constexpr unsigned kPathHeading = 32011;    // text
inline constexpr unsigned kPathBadStep = 32012;    // step text
inline constexpr unsigned kPathOpenQuote = 32013;
inline constexpr unsigned kPathTooManyFields = 32014;  // count
inline constexpr unsigned kStepAndTime = 32015;        // step text, time text

// Step descriptions (the suite's own numbers).
inline constexpr unsigned kStepNone = 21632;
inline constexpr unsigned kStepAll = 20039;
inline constexpr unsigned kStepLast = 20854;
inline constexpr unsigned kStepStart = 21207;
inline constexpr unsigned kStepNumber = 20856;  // step
inline constexpr unsigned kStepTime = 20855;    // time

}  // namespace v7::analysis_msg
