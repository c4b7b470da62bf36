// The installed program: a folder Haloric.app with the program and its Info.plist, among the session's files.
#pragma once

#include "testing/x11/X11Session.h"

#include <filesystem>
#include <map>
#include <string>

namespace haloric {

class ProgramBundle {
public:
    using Information = std::map<std::string, std::string>;

    // Copies the program and writes its Info.plist: version 0.7, build 7, and `information`, whose texts need no XML
    // escapes.
    explicit ProgramBundle(X11Session& session, const Information& information = {});

    std::filesystem::path program() const { return m_folder / "haloric"; }

private:
    std::filesystem::path m_folder;
};

} // namespace haloric
