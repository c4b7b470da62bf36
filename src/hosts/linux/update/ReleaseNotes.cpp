#include "hosts/linux/update/ReleaseNotes.h"

#include <QRegularExpression>
#include <QString>

namespace haloric {
namespace {

constexpr qsizetype kMaximumLength = 1500;        // characters
constexpr std::size_t kMaximumMarkup = 16 * 1024; // bytes that are read

struct NamedCharacter {
    QLatin1String name;
    char16_t character;
};

// The first `size` bytes of a text, or fewer so that it ends with a whole character.
std::string_view beginning(std::string_view text, std::size_t size)
{
    const auto isWithin = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; };
    if (text.size() <= size)
        return text;
    while (size > 0 && isWithin(text[size]))
        --size;
    return text.substr(0, size);
}

// An unclosed tag extends to the end, as in HTML. Removing it first keeps the regular expressions below from scanning
// to the end for every opening bracket, which takes quadratic time.
QString withoutUnclosedTag(QString text)
{
    static const QRegularExpression tag(QStringLiteral("</?[A-Za-z!]"));
    const qsizetype begin = text.indexOf(tag, text.lastIndexOf(u'>') + 1);
    if (begin >= 0)
        text.truncate(begin);
    return text;
}

QString withoutMarkup(QString text)
{
    static const QRegularExpression unshown(
        QStringLiteral("<!--.*?(?:-->|\\z)|<(script|style|head)\\b.*?(?:</\\1\\s*>|\\z)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression listItem(QStringLiteral("<li\\b[^>]*>"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lineStart(QStringLiteral("</?(p|br|div|ul|ol|h[1-6]|tr)\\b[^>]*>"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression anyTag(QStringLiteral("</?[A-Za-z!][^>]*>"));
    return withoutUnclosedTag(text.remove(unshown))
        .replace(listItem, QStringLiteral("\n• "))
        .replace(lineStart, QStringLiteral("\n"))
        .remove(anyTag);
}

QString withCharacters(QString text)
{
    const NamedCharacter named[] = {{QLatin1String("&lt;"), u'<'},
                                    {QLatin1String("&gt;"), u'>'},
                                    {QLatin1String("&quot;"), u'"'},
                                    {QLatin1String("&#39;"), u'\''},
                                    {QLatin1String("&nbsp;"), u' '},
                                    {QLatin1String("&amp;"), u'&'}}; // last, because its result may form another entity
    for (const NamedCharacter& each : named)
        text.replace(each.name, QString(QChar(each.character)));
    return text;
}

// Trims lines, removes control characters, and reduces consecutive empty lines to one.
QString tidied(const QString& text)
{
    QString result;
    for (const QString& raw : text.split(u'\n')) {
        QString line = raw.simplified();
        line.removeIf([](QChar each) { return !each.isPrint() && !each.isSurrogate(); });
        if (line.isEmpty() && (result.isEmpty() || result.endsWith(QLatin1String("\n\n"))))
            continue;
        result += line + u'\n';
    }
    return result.trimmed();
}

} // namespace

std::string ReleaseNotes::plainText(std::string_view description)
{
    description = beginning(description, kMaximumMarkup);
    const auto size = static_cast<qsizetype>(description.size());
    QString text = tidied(withCharacters(withoutMarkup(QString::fromUtf8(description.data(), size))));
    if (text.size() > kMaximumLength) {
        text.truncate(kMaximumLength - (text.at(kMaximumLength - 1).isHighSurrogate() ? 1 : 0));
        text = text.trimmed() + QStringLiteral(" …");
    }
    return text.toStdString();
}

} // namespace haloric
