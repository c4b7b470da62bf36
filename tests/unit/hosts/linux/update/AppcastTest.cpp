#include "hosts/linux/update/Appcast.h"

namespace haloric {
namespace {

constexpr const char* kHead =
    R"(<?xml version="1.0" encoding="utf-8"?><rss version="2.0" )"
    R"(xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><title>t</title>)";
constexpr const char* kTail = "</channel></rss>";

Appcast parse(const std::string& inside) { return Appcast::parse(kHead + inside + kTail); }

TEST(Appcast, versions_may_be_in_elements)
{
    const auto appcast = parse("<link> https://example.org/ </link><item><title>x</title>"
                               "<s:version> 12 </s:version><s:shortVersionString>1.2</s:shortVersionString>"
                               "<link>https://example.org/1.2</link><s:channel>beta</s:channel>"
                               "<s:minimumSystemVersion>13.0</s:minimumSystemVersion>"
                               "<description><![CDATA[<p>New &amp; good</p>]]></description>"
                               R"(<enclosure url="https://example.org/12.zip" length="1" s:os="linux"/></item>)");
    EXPECT_EQ(appcast.error, "");
    EXPECT_EQ(appcast.page, "https://example.org/");
    ASSERT_EQ(appcast.items.size(), 1U);
    const AppcastItem& item = appcast.items[0];
    EXPECT_EQ(item.version, "12");
    EXPECT_EQ(item.displayVersion, "1.2");
    EXPECT_EQ(item.page, "https://example.org/1.2");
    EXPECT_EQ(item.description, "<p>New &amp; good</p>");
    EXPECT_EQ(item.download, "https://example.org/12.zip");
    EXPECT_EQ(item.system, "linux");
    EXPECT_EQ(item.channel, "beta");
}

TEST(Appcast, versions_may_be_attributes_of_the_enclosure)
{
    const auto appcast = parse(R"(<item><enclosure url="u" s:version="3" s:shortVersionString="0.3"/></item>)"
                               R"(<item><enclosure url="u" s:version="3"/><s:version>4</s:version></item>)"
                               R"(<item><s:version>5</s:version><enclosure url="u" s:version="3"/></item>)");
    ASSERT_EQ(appcast.items.size(), 3U);
    EXPECT_EQ(appcast.items[0].version, "3");
    EXPECT_EQ(appcast.items[0].displayVersion, "0.3");
    EXPECT_EQ(appcast.items[1].version, "4");
    EXPECT_EQ(appcast.items[2].version, "5");
}

TEST(Appcast, elements_of_other_namespaces_and_in_other_places_are_ignored)
{
    const auto appcast = parse(R"(<item xmlns:o="urn:other"><version>1</version><o:link>no</o:link>)"
                               R"(<title><link>no</link></title><enclosure o:version="2"/></item>)");
    ASSERT_EQ(appcast.items.size(), 1U);
    EXPECT_EQ(appcast.items[0].version, "");
    EXPECT_EQ(appcast.items[0].page, "");
    EXPECT_EQ(appcast.page, "");
}

TEST(Appcast, a_feed_without_items_is_valid)
{
    EXPECT_EQ(parse("").error, "");
    EXPECT_TRUE(parse("").items.empty());
}

TEST(Appcast, a_text_that_is_not_a_feed_is_an_error)
{
    EXPECT_EQ(Appcast::parse("<html><body>Sign in</body></html>").error, "What the server sent is no update feed.");
    EXPECT_EQ(Appcast::parse(R"(<rss xmlns="urn:other"/>)").error, "What the server sent is no update feed.");
}

TEST(Appcast, a_damaged_feed_has_no_items)
{
    const std::string whole = kHead + std::string("<item><s:version>9</s:version></item>") + kTail;
    for (const std::string& bytes :
         {std::string(), std::string("{}"), whole.substr(0, whole.size() - 3), whole + "<more/>",
          whole.substr(0, 120) + "\xff\xfe" + whole.substr(120), std::string(300, '\0')}) {
        const auto appcast = Appcast::parse(bytes);
        EXPECT_NE(appcast.error, "") << bytes;
        EXPECT_TRUE(appcast.items.empty()) << bytes;
    }
}

TEST(Appcast, a_feed_that_defines_entities_is_rejected)
{
    const std::string bomb = R"(<!DOCTYPE rss [<!ENTITY a "xxxxxxxxxx"><!ENTITY b "&a;&a;&a;&a;">]>)"
                             "<rss><channel><item><title>&b;</title></item></channel></rss>";
    EXPECT_EQ(Appcast::parse(bomb).error, "The update feed defines entities, which are not read.");
    const std::string external = R"(<!DOCTYPE rss SYSTEM "file:///etc/passwd"><rss/>)";
    EXPECT_EQ(Appcast::parse(external).error, "The update feed defines entities, which are not read.");
}

TEST(Appcast, the_number_of_items_is_limited)
{
    std::string items;
    for (int index = 0; index <= 1000; ++index)
        items += "<item/>";
    EXPECT_EQ(parse(items).error, "The update feed is too long.");
}

std::string withAttributes(int count)
{
    std::string element = "<item";
    for (int number = 0; number < count; ++number)
        element += " a" + std::to_string(number) + "=\"=\"";
    return element + "/>";
}

TEST(Appcast, the_number_of_attributes_is_limited)
{
    const std::string tooMany = "The update feed is damaged: an element has too many attributes.";
    EXPECT_EQ(parse(withAttributes(64)).error, "");
    EXPECT_EQ(parse(withAttributes(65)).error, tooMany);
    EXPECT_EQ(parse("<!-- ' --><?p ' ?><title><![CDATA['<]]></title>" + withAttributes(65)).error, tooMany);
    EXPECT_EQ(parse("<title><![CDATA[<a b=c " + std::string(100, '=') + "]]></title>").error, "");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(parse(withAttributes(80'000)).error, tooMany); // about 1 MiB
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST(Appcast, reading_gives_up_after_its_time)
{
    EXPECT_EQ(Appcast::parse(kHead + std::string(kTail), std::chrono::milliseconds(0)).error,
              "The update feed takes too long to read.");
}

std::string nested(int levels)
{
    std::string opened;
    std::string closed;
    for (int level = 0; level < levels; ++level) {
        opened += "<a>";
        closed += "</a>";
    }
    return opened + closed;
}

TEST(Appcast, the_depth_of_elements_is_limited)
{
    const std::string tooDeep = "The update feed is damaged: its elements are nested too deeply.";
    EXPECT_EQ(parse("<item>" + nested(32 - 3) + "</item>").error, "");
    EXPECT_EQ(parse("<item>" + nested(33 - 3) + "</item>").error, tooDeep);
    EXPECT_EQ(parse(nested(150'000)).error, tooDeep);
}

} // namespace
} // namespace haloric
