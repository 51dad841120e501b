#pragma once

#include <string>
#include <string_view>

namespace vorlane::gateway {

/// The body of the GET that looks whether Tally is there.
extern const std::string_view kProbeRequest;
/// The company list of old releases.
extern const std::string_view kCompanyListRequest;
/// The company list of newer releases.
extern const std::string_view kCompanyListRequestV1;
/// The session values, as a report defined in Tally's own language: one line.
const std::string& DynamicReportRequest();

/// The names under which the dynamic report gives its values.
inline constexpr std::string_view kCurrentCompanyName = "Current Company";
inline constexpr std::string_view kFromDateName = "From Date";
inline constexpr std::string_view kToDateName = "To Date";
inline constexpr std::string_view kCurrentDateName = "Current Date";

}  // namespace vorlane::gateway
