#include "hosts/x11/update/ReleaseNotes.h"

#include <QRegularExpression>
#include <QString>

namespace haloric {
namespace {

constexpr qsizetype kMaximumLength = 1500; // characters; more than an alert shows well

struct NamedCharacter {
    QLatin1String name;
    char16_t character;
};

QString withoutMarkup(QString text)
{
    static const QRegularExpression unshown(QStringLiteral("<!--.*?-->|<(script|style|head)\\b.*?</\\1\\s*>"),
                                            QRegularExpression::CaseInsensitiveOption |
                                                QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression listItem(QStringLiteral("<li\\b[^>]*>"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lineStart(QStringLiteral("</?(p|br|div|ul|ol|h[1-6]|tr)\\b[^>]*>"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression anyTag(QStringLiteral("</?[A-Za-z!][^>]*>"));
    return text.remove(unshown)
        .replace(listItem, QStringLiteral("\n• "))
        .replace(lineStart, QStringLiteral("\n"))
        .remove(anyTag);
}

QString withCharacters(QString text)
{
    const NamedCharacter named[] = {
        {QLatin1String("&lt;"), u'<'},   {QLatin1String("&gt;"), u'>'},
        {QLatin1String("&quot;"), u'"'}, {QLatin1String("&#39;"), u'\''},
        {QLatin1String("&nbsp;"), u' '}, {QLatin1String("&amp;"), u'&'}}; // the last, as it may make another
    for (const NamedCharacter& each : named)
        text.replace(each.name, QString(QChar(each.character)));
    return text;
}

// Lines without blanks around them and without control characters; of empty lines in a row one remains.
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
    const auto size = static_cast<qsizetype>(description.size());
    QString text = tidied(withCharacters(withoutMarkup(QString::fromUtf8(description.data(), size))));
    if (text.size() > kMaximumLength) {
        text.truncate(kMaximumLength - (text.at(kMaximumLength - 1).isHighSurrogate() ? 1 : 0));
        text = text.trimmed() + QStringLiteral(" …");
    }
    return text.toStdString();
}

} // namespace haloric
