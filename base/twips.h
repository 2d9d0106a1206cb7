// Lengths on screen and paper.
#pragma once

namespace quillet {

/// A length of `value` twips, 1/1440 inch each: 15 twips are one pixel at 96 dots per inch.
struct Twips {
    double value = 0;

    friend constexpr Twips operator-(Twips a, Twips b) { return {a.value - b.value}; }
    friend constexpr Twips operator/(Twips a, double divisor) { return {a.value / divisor}; }
};

inline constexpr double twipsPerInch = 1440;

/// `length` in device pixels, unrounded.
constexpr double toPixels(Twips length, double dotsPerInch) {
    return length.value * dotsPerInch / twipsPerInch;
}

/// `pixels` device pixels as a length.
constexpr Twips fromPixels(double pixels, double dotsPerInch) {
    return {pixels * twipsPerInch / dotsPerInch};
}

} // namespace quillet
