// The dynamic loader's library, which opens the module in place of macOS's framework.
#pragma once

#include "hosts/posix/PosixLibrary.h"
#include "unit/hosts/posix/WindowServerModule.h"
#include "windowserver/LoadedWindowServerCalls.h"
#include "windowserver/WindowServer.h"

#include <filesystem>
#include <memory>
#include <string>

namespace haloric {

class WindowServerModuleLibrary final : public WindowServerLibrary {
public:
    WindowServerModuleLibrary() { control<ModuleReset>("moduleReset")(); }

    static std::string path() { return std::filesystem::path(HALORIC_MODULE_FOLDER) / "window_server_module.so"; }

    template <class Function>
    Function control(const char* name) const
    {
        return reinterpret_cast<Function>(m_control->find(name));
    }

    WindowServerModuleState state() const { return control<ModuleState>("moduleState")(); }
    void fail(const char* entry, std::int32_t result = 1) { control<ModuleFail>("moduleFail")(entry, result); }
    int releases() const { return m_releases; }

    // WindowServerLibrary
    std::unique_ptr<OpenedLibrary> open(const char* framework, int mode) override
    {
        EXPECT_STREQ(framework, LoadedWindowServerCalls::kFrameworkPath);
        return m_loader.open(path().c_str(), mode);
    }
    void release(void* transaction) override { m_loader.release(transaction); }

private:
    PosixLibrary m_loader{[this](void* transaction) {
        ++m_releases;
        control<void (*)(void*)>("moduleReleaseTransaction")(transaction);
    }};
    // Keeps the module's state from one opening to the next.
    std::unique_ptr<OpenedLibrary> m_control = m_loader.open(path().c_str(), kLazy | kLocal);
    int m_releases = 0;
};

} // namespace haloric
