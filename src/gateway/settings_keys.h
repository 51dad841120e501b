#pragma once

#include <string_view>

namespace vorlane::gateway {

/// The settings, by their keys in the section `Config`.
inline constexpr std::string_view kConfigSection = "Config";
inline constexpr std::string_view kServerAddress = "ServerAddress";
inline constexpr std::string_view kPortNo = "PortNo";
inline constexpr std::string_view kDateFormat = "DateFormat";
inline constexpr std::string_view kDecimalPlaces = "DecimalPlaces";
inline constexpr std::string_view kUseOldTally = "UseOldTally";

}  // namespace vorlane::gateway
