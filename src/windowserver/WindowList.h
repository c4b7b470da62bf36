// Snapshots of the ordinary application windows on screen. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/Screens.h"
#include "platform/WindowInfoSource.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>
#include <vector>

namespace haloric {

class WindowList {
public:
    struct Entry {
        Rect rect; // screen space
        WindowNumber id = WindowNumber::none;
        ProcessID pid = ProcessID::none;
        std::optional<std::string> bundleID;
        friend bool operator==(const Entry&, const Entry&) = default;
    };

    // The adapters outlive the list. Windows of `ownProcess` are never listed.
    WindowList(WindowInfoSource& source, const Screens& screens, const Workspace& workspace, ProcessID ownProcess);

    // Back to front: the frontmost window is the last, so that painting in list order paints it last. Every problem
    // gives fewer entries or none.
    std::vector<Entry> onScreen() const;

private:
    WindowInfoSource& m_source;
    const Screens& m_screens;
    const Workspace& m_workspace;
    ProcessID m_ownProcess;
};

} // namespace haloric
