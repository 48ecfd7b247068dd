#pragma once

// The rows of the text catalogue that are fetched in more than one place, by what they say.
namespace session::rows {

inline constexpr int kPhoneLabel = 6;
inline constexpr int kOperators = 46;
inline constexpr int kId = 101;
inline constexpr int kName = 102;
inline constexpr int kDescription = 103;
inline constexpr int kAddress = 105;
inline constexpr int kPhone = 106;
inline constexpr int kValue = 107;
inline constexpr int kAtMost = 203;
inline constexpr int kCharacters = 204;
inline constexpr int kEventViewer = 227;
inline constexpr int kDate = 241;
inline constexpr int kEquipment = 243;
inline constexpr int kInstrument = 244;
inline constexpr int kSaveAs = 248;
inline constexpr int kTextFilters = 249;
inline constexpr int kPage = 283;
inline constexpr int kDataTraceFilter = 286;
inline constexpr int kBadFileName = 501;
inline constexpr int kCancelled = 502;
inline constexpr int kNoCompanyOpen = 504;
inline constexpr int kDone = 509;
inline constexpr int kSelectRecords = 532;
inline constexpr int kDisconnected = 542;
inline constexpr int kParameterValue = 543;
inline constexpr int kAlarmsComing = 555;
inline constexpr int kStars = 558; // around a line of the log
inline constexpr int kTruncated = 575;
inline constexpr int kAlarmsReceived = 582;

} // namespace session::rows
