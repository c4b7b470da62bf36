// The program as it is installed: a folder Haloric.app that holds it and its information dictionary.
#pragma once

#include "testing/x11/X11Session.h"

#include <filesystem>
#include <map>
#include <string>

namespace haloric {

class ProgramBundle {
public:
    using Information = std::map<std::string, std::string>;

    // Copies the program to among the session's files. `information` is added to the dictionary, which tells of version
    // 0.7, build 7; its texts hold nothing that XML would escape.
    explicit ProgramBundle(X11Session& session, const Information& information = {});

    std::filesystem::path program() const { return m_folder / "haloric"; }

private:
    std::filesystem::path m_folder;
};

} // namespace haloric
