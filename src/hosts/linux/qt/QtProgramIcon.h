// The program's own icon: the installed one, else one that is drawn. Main thread.
#pragma once

#include <QIcon>

namespace haloric {

class QtProgramIcon {
public:
    static QIcon make();
};

} // namespace haloric
