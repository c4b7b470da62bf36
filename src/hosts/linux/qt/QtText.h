// Conversions between the program's text (UTF-8) and Qt's.
#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace haloric {

inline QString qtText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string plainText(const QString& text) { return text.toStdString(); }

// For the label of a control: "&" is shown and marks no access key.
inline QString qtLabel(std::string_view text) { return qtText(text).replace('&', "&&"); }

} // namespace haloric
