// Qt's event loop, as far as a test turns it.
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

    // Turns the loop until `predicate` holds; false when the patience ends.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& predicate,
                                 std::chrono::milliseconds patience = std::chrono::milliseconds(20'000));

private:
    std::unique_ptr<QCoreApplication> m_application;
};

} // namespace haloric
