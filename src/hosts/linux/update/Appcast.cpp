#include "hosts/linux/update/Appcast.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

namespace haloric {
namespace {

// The publicly documented namespace of appcasts; it is never fetched.
constexpr QStringView kNamespace = u"http://www.andymatuschak.org/xml-namespaces/sparkle";
constexpr std::size_t kMaximumItems = 1000;
constexpr std::size_t kMaximumAttributes = 64; // of an element; a usual one has less than ten
constexpr qsizetype kMaximumDepth = 32;        // nested elements; a usual feed has four or five

constexpr std::string_view kEntities = "The update feed defines entities, which are not read.";
constexpr std::string_view kAttributes = "The update feed is damaged: an element has too many attributes.";
constexpr std::string_view kEncoding = "The update feed is not written in UTF-8.";

// Reads markup before the parser does, in linear time, to refuse what costs the parser more: it compares each attribute
// of an element with each other, and it reads a whole document type before it reports it.
class MarkupScan {
public:
    explicit MarkupScan(std::string_view bytes) : m_rest(bytes) {}

    // Why the feed is not parsed; empty if it may be.
    std::string_view refusal()
    {
        if (m_rest.find('\0') != std::string_view::npos)
            return kEncoding;
        while (skipPast("<")) {
            if (m_rest.starts_with("!--"))
                skipPast("-->");
            else if (m_rest.starts_with("![CDATA["))
                skipPast("]]>");
            else if (m_rest.starts_with('?'))
                skipPast("?>");
            else if (m_rest.starts_with('!'))
                return kEntities;
            else if (attributesOfTag() > kMaximumAttributes)
                return kAttributes;
        }
        return {};
    }

private:
    // False, and nothing is left, if the mark is missing.
    bool skipPast(std::string_view mark)
    {
        const auto found = m_rest.find(mark);
        m_rest.remove_prefix(found == std::string_view::npos ? m_rest.size() : found + mark.size());
        return found != std::string_view::npos;
    }

    // Reads to the end of the tag. Counts the signs of equality outside of quotes.
    std::size_t attributesOfTag()
    {
        std::size_t count = 0;
        while (!m_rest.empty()) {
            const char character = m_rest.front();
            m_rest.remove_prefix(1);
            if (character == '>')
                break;
            if (character == '=')
                ++count;
            else if (character == '"' || character == '\'')
                skipPast(std::string_view(&character, 1));
        }
        return count;
    }

    std::string_view m_rest;
};

class Reader {
public:
    Reader(const QByteArray& bytes, std::chrono::milliseconds limit) : m_xml(bytes), m_deadline(limit) {}

    Appcast read()
    {
        while (!m_xml.atEnd() && m_appcast.error.empty()) {
            take(m_xml.readNext());
            if (m_deadline.hasExpired())
                m_appcast.error = "The update feed takes too long to read.";
        }
        if (m_appcast.error.empty() && m_xml.hasError())
            m_appcast.error = "The update feed is damaged: " + m_xml.errorString().toStdString();
        if (!m_appcast.error.empty())
            return {.items = {}, .page = {}, .error = m_appcast.error};
        return std::move(m_appcast);
    }

private:
    void take(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            m_appcast.error = kEntities;
            break;
        case QXmlStreamReader::StartElement:
            start();
            break;
        case QXmlStreamReader::Characters:
            m_text += m_xml.text();
            break;
        case QXmlStreamReader::EndElement:
            end();
            break;
        default:
            break;
        }
    }

    void start()
    {
        m_path.append(name(m_xml.namespaceUri(), m_xml.name()));
        m_text.clear();
        if (m_path.size() > kMaximumDepth)
            m_appcast.error = "The update feed is damaged: its elements are nested too deeply.";
        else if (m_path.size() == 1 && m_path.front() != QLatin1String("rss"))
            m_appcast.error = "What the server sent is no update feed.";
        else if (isItem() && m_appcast.items.size() >= kMaximumItems)
            m_appcast.error = "The update feed is too long.";
        else if (isItem())
            m_appcast.items.emplace_back();
        else if (isInItem() && m_path.back() == QLatin1String("enclosure"))
            takeEnclosure(m_appcast.items.back());
    }

    void end()
    {
        const std::string text = m_text.trimmed().toStdString();
        if (isInItem())
            takeElement(m_appcast.items.back(), text);
        else if (isAt(3, QLatin1String("rss/channel/link")))
            m_appcast.page = text;
        m_path.removeLast();
        m_text.clear();
    }

    void takeElement(AppcastItem& item, const std::string& text) const
    {
        const QString& element = m_path.back();
        if (element == QLatin1String("link"))
            item.page = text;
        else if (element == QLatin1String("description"))
            item.description = text;
        else if (element == QLatin1String("appcast:channel"))
            item.channel = text;
        else if (element == QLatin1String("appcast:version"))
            item.version = text;
        else if (element == QLatin1String("appcast:shortVersionString"))
            item.displayVersion = text;
    }

    void takeEnclosure(AppcastItem& item) const
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const auto own = [&](QLatin1String attribute) {
            return attributes.value(kNamespace.toString(), attribute).toString().toStdString();
        };
        item.download = attributes.value(QLatin1String("url")).toString().toStdString();
        item.system = own(QLatin1String("os"));
        if (item.version.empty())
            item.version = own(QLatin1String("version"));
        if (item.displayVersion.empty())
            item.displayVersion = own(QLatin1String("shortVersionString"));
    }

    static QString name(QStringView nameSpace, QStringView local)
    {
        if (nameSpace == kNamespace)
            return QLatin1String("appcast:") + local.toString();
        return nameSpace.isEmpty() ? local.toString() : QLatin1String("other:") + local.toString();
    }

    // Compares the depth first, because joining the path allocates.
    bool isAt(qsizetype depth, QLatin1String path) const { return m_path.size() == depth && m_path.join(u'/') == path; }
    bool isItem() const { return isAt(3, QLatin1String("rss/channel/item")); }
    bool isInItem() const
    {
        return m_path.size() == 4 && m_path.join(u'/').startsWith(QLatin1String("rss/channel/item/"));
    }

    QXmlStreamReader m_xml;
    QDeadlineTimer m_deadline;
    QStringList m_path;
    QString m_text;
    Appcast m_appcast;
};

} // namespace

Appcast Appcast::parse(std::string_view bytes, std::chrono::milliseconds limit)
{
    if (const std::string_view refusal = MarkupScan(bytes).refusal(); !refusal.empty())
        return {.items = {}, .page = {}, .error = std::string(refusal)};
    return Reader(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), limit).read();
}

} // namespace haloric
