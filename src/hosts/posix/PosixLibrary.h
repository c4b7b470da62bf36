// Libraries of the system's dynamic loader.
#pragma once

#include "platform/WindowServerLibrary.h"

#include <functional>

namespace haloric {

class PosixLibrary final : public WindowServerLibrary {
public:
    using ReleaseTransaction = std::function<void(void*)>;

    // The loader does not know what a function returns, so the host says how a transaction is released.
    explicit PosixLibrary(ReleaseTransaction releaseTransaction);

    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override;
    void release(void* transaction) override { m_releaseTransaction(transaction); }

private:
    ReleaseTransaction m_releaseTransaction;
};

} // namespace haloric
