// A variable of the process's environment that is different for a while. Before the first thread starts.
#pragma once

#include <optional>

#include <QByteArray>
#include <QtGlobal>

namespace haloric {

class X11ScopedVariable {
public:
    X11ScopedVariable(const char* name, const QByteArray& value) : m_name(name)
    {
        if (qEnvironmentVariableIsSet(name))
            m_before = qgetenv(name);
        qputenv(name, value);
    }

    ~X11ScopedVariable()
    {
        if (m_before)
            qputenv(m_name, *m_before);
        else
            qunsetenv(m_name);
    }

    X11ScopedVariable(const X11ScopedVariable&) = delete;
    X11ScopedVariable& operator=(const X11ScopedVariable&) = delete;

private:
    const char* m_name;
    std::optional<QByteArray> m_before;
};

} // namespace haloric
