// The release notes of a feed as plain text that is safe to show: no markup, no images, no fetched content. Pure.
#pragma once

#include <string>
#include <string_view>

namespace haloric::ReleaseNotes {

// `description` is text or HTML in UTF-8; only its first 16 KiB are read. Tags and control characters are removed, list
// items and paragraphs begin lines, and a long text is truncated.
std::string plainText(std::string_view description);

} // namespace haloric::ReleaseNotes
