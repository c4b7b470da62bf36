// What identifies Haloric to the system that it runs on.
#pragma once

namespace haloric::ProductIdentity {

// The bundle identifier. Also the name of files, folders and window classes on systems without bundles.
inline constexpr const char* kIdentifier = "com.kestrow.haloric";

} // namespace haloric::ProductIdentity
