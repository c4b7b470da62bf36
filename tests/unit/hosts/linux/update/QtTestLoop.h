// Qt's event loop, turned by a test.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

class QCoreApplication;

namespace haloric {

class QtTestLoop {
public:
    QtTestLoop();
    ~QtTestLoop();

    // Turns the loop until `predicate` holds. Returns false on timeout.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& predicate,
                                 std::chrono::milliseconds patience = std::chrono::milliseconds(20'000));

private:
    std::unique_ptr<QCoreApplication> m_application;
};

} // namespace haloric
