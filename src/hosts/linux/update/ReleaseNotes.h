// What a feed says of a version, as plain text that is safe to show: no markup, no pictures, nothing that is fetched.
// Pure.
#pragma once

#include <string>
#include <string_view>

namespace haloric::ReleaseNotes {

// `description` is text or HTML in UTF-8. Tags are dropped, list items and paragraphs begin lines; control characters
// are left out; a long text is cut, and what stands beyond the first 16 KiB is not looked at.
std::string plainText(std::string_view description);

} // namespace haloric::ReleaseNotes
