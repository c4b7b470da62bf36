#include "settings/ValueText.h"

#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>

namespace haloric {
namespace {

std::string decimal(double value, int digits)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << std::fixed << std::setprecision(digits) << value;
    return out.str();
}

std::string whole(double value)
{
    return decimal(std::trunc(value) + 0.0, 0); // the sum makes a negative zero positive
}

} // namespace

std::string text(ValueText form, double value)
{
    switch (form) {
    case ValueText::wholePoints:
        return whole(value) + " pt";
    case ValueText::pointsTenths:
        return decimal(value, 1) + " pt";
    case ValueText::percent:
        return whole(value * 100) + "%";
    }
    return {};
}

} // namespace haloric
