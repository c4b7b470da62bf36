#include "hosts/linux/update/ReleaseNotes.h"

namespace haloric {
namespace {

using ReleaseNotes::plainText;

TEST(ReleaseNotes, plain_text_stays)
{
    EXPECT_EQ(plainText("Faster.\nSmaller."), "Faster.\nSmaller.");
    EXPECT_EQ(plainText("1 < 2 and 3 > 2"), "1 < 2 and 3 > 2");
    EXPECT_EQ(plainText("Größer — 日本 😀"), "Größer — 日本 😀");
}

TEST(ReleaseNotes, lists_and_paragraphs_become_lines)
{
    EXPECT_EQ(plainText("<h2>New</h2><ul>\n <li>One</li>\n <li class='x'>Two &amp; three</li></ul><p>Bye</p>"),
              "New\n\n• One\n\n• Two & three\n\nBye");
}

TEST(ReleaseNotes, nothing_hidden_or_remote_remains)
{
    EXPECT_EQ(plainText("a<script>alert('x')</script>b<style>p{}</style>c<!-- d --><img src='https://example.org/x'>e"),
              "abce");
    EXPECT_EQ(plainText("<a href=\"https://example.org\">here</a>"), "here");
}

TEST(ReleaseNotes, characters_are_resolved_once)
{
    EXPECT_EQ(plainText("&amp;lt;b&amp;gt; &lt;b&gt; &quot;&#39;"), "&lt;b&gt; <b> \"'");
}

TEST(ReleaseNotes, control_characters_are_removed)
{
    EXPECT_EQ(plainText(std::string("a\x1b[31mb\0c\x7f", 9)), "a[31mbc");
    EXPECT_EQ(plainText("a\u202Eb"), "ab"); // changes the text direction
    EXPECT_EQ(plainText("\n\n  \n a \n\n\n\n b"), "a\n\nb");
}

TEST(ReleaseNotes, a_long_text_is_truncated_between_characters)
{
    std::string faces;
    for (int index = 0; index < 2000; ++index)
        faces += "😀";
    const std::string cut = plainText("x" + faces);
    EXPECT_LT(cut.size(), 6000U);
    EXPECT_TRUE(cut.ends_with("😀 …"));
}

TEST(ReleaseNotes, the_text_before_unclosed_markup_stays)
{
    for (const std::string opening : {"<!--", "<a ", "<li ", "</p ", "<script>", "<!-- --", "<style></script>"}) {
        std::string hostile = "Faster.";
        while (hostile.size() < 1024 * 1024)
            hostile += opening;
        EXPECT_EQ(plainText(hostile), "Faster.") << opening;
    }
}

TEST(ReleaseNotes, text_beyond_the_limit_is_not_read)
{
    const auto after = [](std::size_t bytes) { return plainText("near" + std::string(bytes - 4, ' ') + "äfar"); };
    EXPECT_EQ(after(16 * 1024 - 5), "near äfar");
    EXPECT_EQ(after(16 * 1024 - 2), "near ä");
    EXPECT_EQ(after(16 * 1024 - 1), "near") << "no half of a character";
    EXPECT_EQ(after(16 * 1024), "near");
}

} // namespace
} // namespace haloric
