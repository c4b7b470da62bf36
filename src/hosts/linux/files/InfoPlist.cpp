#include "hosts/linux/files/InfoPlist.h"

#include <charconv>
#include <cstdint>

namespace haloric {

namespace {

struct Tag {
    enum class Kind { opening, closing, empty } kind = Kind::opening;
    std::string_view name;
    std::string_view textBefore; // since the tag before
};

// Gives the tags of a document one after the other; declarations and comments are passed over.
class TagReader {
public:
    explicit TagReader(std::string_view xml) : m_rest(xml) {}

    std::optional<Tag> next()
    {
        while (true) {
            const auto open = m_rest.find('<');
            if (open == std::string_view::npos)
                return {};
            const std::string_view text = m_rest.substr(0, open);
            m_rest.remove_prefix(open);
            if (m_rest.starts_with("<!--")) {
                if (!skipPast("-->"))
                    return {};
                continue;
            }
            const auto close = m_rest.find('>');
            if (close == std::string_view::npos)
                return {};
            std::string_view inside = m_rest.substr(1, close - 1);
            m_rest.remove_prefix(close + 1);
            if (inside.starts_with('?') || inside.starts_with('!'))
                continue;
            return tag(inside, text);
        }
    }

private:
    static Tag tag(std::string_view inside, std::string_view text)
    {
        Tag tag;
        tag.textBefore = text;
        if (inside.starts_with('/')) {
            tag.kind = Tag::Kind::closing;
            inside.remove_prefix(1);
        } else if (inside.ends_with('/')) {
            tag.kind = Tag::Kind::empty;
            inside.remove_suffix(1);
        }
        tag.name = inside.substr(0, inside.find_first_of(" \t\r\n"));
        return tag;
    }

    bool skipPast(std::string_view mark)
    {
        const auto found = m_rest.find(mark);
        if (found == std::string_view::npos)
            return false;
        m_rest.remove_prefix(found + mark.size());
        return true;
    }

    std::string_view m_rest;
};

void appendUtf8(std::string& out, std::uint32_t code)
{
    const auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

// False when the name, as it stands between "&" and ";", is none that is known.
bool appendEntity(std::string& out, std::string_view name)
{
    static constexpr std::pair<std::string_view, char> kNamed[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, character] : kNamed) {
        if (name == known) {
            out.push_back(character);
            return true;
        }
    }
    if (!name.starts_with('#'))
        return false;
    const bool hexadecimal = name.starts_with("#x");
    name.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != name.data() + name.size() || code == 0 || code > 0x10FFFF)
        return false;
    appendUtf8(out, code);
    return true;
}

std::optional<std::string> decoded(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const auto ampersand = text.find('&');
        out += text.substr(0, ampersand);
        if (ampersand == std::string_view::npos)
            return out;
        const auto end = text.find(';', ampersand);
        if (end == std::string_view::npos || !appendEntity(out, text.substr(ampersand + 1, end - ampersand - 1)))
            return {};
        text.remove_prefix(end + 1);
    }
    return out;
}

} // namespace

InfoPlist InfoPlist::parse(std::string_view xml)
{
    constexpr int kOutermostDictionary = 2; // plist, then dict
    InfoPlist result;
    TagReader tags(xml);
    int depth = 0;
    std::optional<std::string> key;
    while (const auto tag = tags.next()) {
        if (tag->kind == Tag::Kind::opening) {
            ++depth;
            continue;
        }
        const int at = tag->kind == Tag::Kind::closing ? --depth : depth; // of the element that ends here
        if (at != kOutermostDictionary)
            continue;
        if (tag->name == "key" && tag->kind == Tag::Kind::closing) {
            key = decoded(tag->textBefore);
            continue;
        }
        if (key)
            result.m_keys.insert(*key);
        if (tag->name == "string" && key) {
            const bool hasText = tag->kind == Tag::Kind::closing;
            if (auto value = hasText ? decoded(tag->textBefore) : std::string())
                result.m_strings.emplace(*key, std::move(*value));
        }
        key.reset();
    }
    return result;
}

std::optional<std::string> InfoPlist::string(std::string_view key) const
{
    const auto found = m_strings.find(key);
    return found == m_strings.end() ? std::nullopt : std::optional(found->second);
}

} // namespace haloric
