#include "hosts/linux/files/LinuxBundle.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>

namespace haloric {

namespace {

struct Tag {
    enum class Kind { opening, closing, empty } kind = Kind::opening;
    std::string_view name;
    std::string_view textBefore; // since the previous tag
};

// Returns the tags of a document one by one, without declarations and comments.
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

// Appends the character for the name between "&" and ";". Returns false if the name is unknown.
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

// The number or boolean that ends with the tag; absent for other values and for text that is no finite number.
std::optional<double> numberIn(const Tag& tag)
{
    if (tag.name == "true" || tag.name == "false")
        return tag.name == "true" ? 1 : 0;
    if ((tag.name != "integer" && tag.name != "real") || tag.kind != Tag::Kind::closing)
        return {};
    double number = 0;
    const auto [end, error] =
        std::from_chars(tag.textBefore.data(), tag.textBefore.data() + tag.textBefore.size(), number);
    const bool isWhole = error == std::errc() && end == tag.textBefore.data() + tag.textBefore.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::filesystem::path runningExecutable()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

// The nearest bundle folder above the program; outside a bundle, the program's folder.
std::filesystem::path bundleFolder(const std::filesystem::path& executable)
{
    for (auto folder = executable.parent_path(); folder.has_relative_path(); folder = folder.parent_path()) {
        if (folder.extension() == ".app")
            return folder;
    }
    return executable.parent_path();
}

InfoPlist readDictionary(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string xml{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    return InfoPlist::parse(xml);
}

std::string shellQuoted(std::string_view text)
{
    std::string quoted = "'";
    for (const char character : text)
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
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
        const int at = tag->kind == Tag::Kind::closing ? --depth : depth; // depth of the element that ends here
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
        if (const auto number = key ? numberIn(*tag) : std::nullopt)
            result.m_numbers.emplace(*key, *number);
        key.reset();
    }
    return result;
}

std::optional<double> InfoPlist::number(std::string_view key) const
{
    const auto found = m_numbers.find(key);
    return found == m_numbers.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> InfoPlist::string(std::string_view key) const
{
    const auto found = m_strings.find(key);
    return found == m_strings.end() ? std::nullopt : std::optional(found->second);
}

std::string LinuxBundle::relaunchCommand() const { return shellQuoted(m_executable.string()); }

LinuxBundle::LinuxBundle() : LinuxBundle(runningExecutable()) {}

LinuxBundle::LinuxBundle(const std::filesystem::path& executable) : m_executable(executable)
{
    const auto folder = bundleFolder(executable);
    m_path = folder.string();
    if (folder.extension() == ".app")
        m_info = readDictionary(folder / "Info.plist");
}

} // namespace haloric
