// Libraries of the system's dynamic loader.
#pragma once

#include "platform/WindowServerLibrary.h"

#include <functional>

namespace haloric {

class PosixLibrary final : public WindowServerLibrary {
public:
    using ReleaseTransaction = std::function<void(void*)>;

    // How a transaction is given back is a matter of the host: the loader does not know what an entry returns.
    explicit PosixLibrary(ReleaseTransaction releaseTransaction);

    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override;
    void release(void* transaction) override { m_releaseTransaction(transaction); }

private:
    ReleaseTransaction m_releaseTransaction;
};

} // namespace haloric
