// Text between the program, which has UTF-8, and Qt.
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

// As a label of a control that would take "&" for the mark of its access key.
inline QString qtLabel(std::string_view text) { return qtText(text).replace('&', "&&"); }

} // namespace haloric
