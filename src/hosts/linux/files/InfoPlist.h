// The keys and text values of an information dictionary (a property list written as XML). Only the entries of the
// outermost dictionary count; of values of other kinds the key alone is kept, and what cannot be read ends the reading.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace haloric {

class InfoPlist {
public:
    InfoPlist() = default;
    static InfoPlist parse(std::string_view xml);

    std::optional<std::string> string(std::string_view key) const;
    bool contains(std::string_view key) const { return m_keys.contains(key); }
    bool isEmpty() const { return m_strings.empty(); }

private:
    std::map<std::string, std::string, std::less<>> m_strings;
    std::set<std::string, std::less<>> m_keys;
};

} // namespace haloric
