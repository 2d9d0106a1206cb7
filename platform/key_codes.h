// The keys and modifiers of key events.
#pragma once

#include <cstdint>

/// Virtual-key codes that the program tells apart. Letters and digits are their own characters.
namespace quillet::key {

inline constexpr std::int16_t backspace = 8;
inline constexpr std::int16_t tab = 9;
inline constexpr std::int16_t clear = 12;
inline constexpr std::int16_t enter = 13;
inline constexpr std::int16_t shift = 16;
inline constexpr std::int16_t ctrl = 17;
inline constexpr std::int16_t alt = 18;
inline constexpr std::int16_t capsLock = 20;
inline constexpr std::int16_t escape = 27;
inline constexpr std::int16_t pageUp = 33;
inline constexpr std::int16_t pageDown = 34;
inline constexpr std::int16_t end = 35;
inline constexpr std::int16_t home = 36;
inline constexpr std::int16_t left = 37;
inline constexpr std::int16_t up = 38;
inline constexpr std::int16_t right = 39;
inline constexpr std::int16_t down = 40;
inline constexpr std::int16_t insert = 45;
inline constexpr std::int16_t del = 46;
inline constexpr std::int16_t leftSuper = 91;
inline constexpr std::int16_t rightSuper = 92;
inline constexpr std::int16_t f1 = 112;
inline constexpr std::int16_t f12 = 123;

} // namespace quillet::key

/// Bits of the mask of modifiers that are held.
namespace quillet::modifier {

inline constexpr std::int16_t shift = 1;
inline constexpr std::int16_t ctrl = 2;
inline constexpr std::int16_t alt = 4;

} // namespace quillet::modifier
