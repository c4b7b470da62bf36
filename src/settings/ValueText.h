// Numbers in the labels of the settings window: the same in every locale, and defined for every double. A finite one
// is always written out in full, never with an exponent.
#pragma once

#include <string>

namespace haloric {

enum class ValueText {
    wholePoints,  // "11 pt", truncated toward zero
    pointsTenths, // "3.0 pt", rounded
    percent,      // "80%" for 0.8; a hundred times the value, truncated toward zero; "inf%" beyond every double
};

std::string text(ValueText form, double value);

} // namespace haloric
