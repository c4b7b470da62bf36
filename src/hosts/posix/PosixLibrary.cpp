#include "hosts/posix/PosixLibrary.h"

#include <utility>

#include <dlfcn.h>

namespace haloric {
namespace {

class PosixOpenedLibrary final : public OpenedLibrary {
public:
    explicit PosixOpenedLibrary(void* handle) : m_handle(handle) {}
    ~PosixOpenedLibrary() override { dlclose(m_handle); }
    PosixOpenedLibrary(const PosixOpenedLibrary&) = delete;
    PosixOpenedLibrary& operator=(const PosixOpenedLibrary&) = delete;

    void* find(const char* symbol) const override { return dlsym(m_handle, symbol); }

private:
    void* m_handle;
};

// The bits of macOS mean other things to other loaders.
int loaderMode(int mode)
{
    return ((mode & WindowServerLibrary::kLazy) ? RTLD_LAZY : RTLD_NOW) |
           ((mode & WindowServerLibrary::kLocal) ? RTLD_LOCAL : RTLD_GLOBAL);
}

} // namespace

PosixLibrary::PosixLibrary(ReleaseTransaction releaseTransaction) : m_releaseTransaction(std::move(releaseTransaction))
{
}

std::unique_ptr<OpenedLibrary> PosixLibrary::open(const char* path, int mode)
{
    void* const handle = dlopen(path, loaderMode(mode));
    return handle ? std::make_unique<PosixOpenedLibrary>(handle) : nullptr;
}

} // namespace haloric
