// Key symbols, with the values of keysymdef.h.
#pragma once

#include <cstdint>

namespace haloric::Key {

inline constexpr std::uint32_t kTab = 0xFF09;
inline constexpr std::uint32_t kReturn = 0xFF0D;
inline constexpr std::uint32_t kEscape = 0xFF1B;
inline constexpr std::uint32_t kSpace = 0x20;
inline constexpr std::uint32_t kHome = 0xFF50;
inline constexpr std::uint32_t kLeft = 0xFF51;
inline constexpr std::uint32_t kUp = 0xFF52;
inline constexpr std::uint32_t kRight = 0xFF53;
inline constexpr std::uint32_t kDown = 0xFF54;
inline constexpr std::uint32_t kEnd = 0xFF57;
inline constexpr std::uint32_t kPrint = 0xFF61;
inline constexpr std::uint32_t kNumLock = 0xFF7F;
inline constexpr std::uint32_t kF5 = 0xFFC2;
inline constexpr std::uint32_t kF6 = 0xFFC3;
inline constexpr std::uint32_t kShift = 0xFFE1;
inline constexpr std::uint32_t kControl = 0xFFE3;
inline constexpr std::uint32_t kCapsLock = 0xFFE5;
inline constexpr std::uint32_t kAlt = 0xFFE9;
inline constexpr std::uint32_t kSuper = 0xFFEB;

} // namespace haloric::Key
