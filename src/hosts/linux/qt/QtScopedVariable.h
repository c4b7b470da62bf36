// A variable of the process's environment that is different for a while. Before the first thread starts.
#pragma once

#include <optional>

#include <QByteArray>
#include <QtGlobal>

namespace haloric {

class QtScopedVariable {
public:
    QtScopedVariable(const char* name, const QByteArray& value) : m_name(name)
    {
        if (qEnvironmentVariableIsSet(name))
            m_before = qgetenv(name);
        qputenv(name, value);
    }

    ~QtScopedVariable()
    {
        if (m_before)
            qputenv(m_name, *m_before);
        else
            qunsetenv(m_name);
    }

    QtScopedVariable(const QtScopedVariable&) = delete;
    QtScopedVariable& operator=(const QtScopedVariable&) = delete;

private:
    const char* m_name;
    std::optional<QByteArray> m_before;
};

} // namespace haloric
