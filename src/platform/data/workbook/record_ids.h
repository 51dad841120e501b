#pragma once

#include <cstdint>

namespace vorlane::platform::record_id {

inline constexpr std::uint16_t kFormula = 0x0006;
inline constexpr std::uint16_t kEof = 0x000A;
inline constexpr std::uint16_t kDateMode = 0x0022;
inline constexpr std::uint16_t kFilePass = 0x002F;
inline constexpr std::uint16_t kContinue = 0x003C;
inline constexpr std::uint16_t kCodePage = 0x0042;
inline constexpr std::uint16_t kRkOld = 0x007E;
inline constexpr std::uint16_t kBoundSheet = 0x0085;
inline constexpr std::uint16_t kMulRk = 0x00BD;
inline constexpr std::uint16_t kRString = 0x00D6;
inline constexpr std::uint16_t kXf = 0x00E0;
inline constexpr std::uint16_t kSst = 0x00FC;
inline constexpr std::uint16_t kLabelSst = 0x00FD;
inline constexpr std::uint16_t kNumber = 0x0203;
inline constexpr std::uint16_t kLabel = 0x0204;
inline constexpr std::uint16_t kBoolErr = 0x0205;
inline constexpr std::uint16_t kString = 0x0207;
inline constexpr std::uint16_t kRk = 0x027E;
inline constexpr std::uint16_t kFormat = 0x041E;
inline constexpr std::uint16_t kBof = 0x0809;

/// The first records of the three formats before Excel 5.0.
inline constexpr std::uint16_t kBof2 = 0x0009;
inline constexpr std::uint16_t kBof3 = 0x0209;
inline constexpr std::uint16_t kBof4 = 0x0409;

}  // namespace vorlane::platform::record_id
