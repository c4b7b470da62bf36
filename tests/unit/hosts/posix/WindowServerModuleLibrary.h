// The dynamic loader's library with the module in place of the platform's framework.
#pragma once

#include "hosts/posix/PosixLibrary.h"
#include "unit/hosts/posix/WindowServerModule.h"
#include "windowserver/WindowServer.h"

#include <filesystem>
#include <memory>
#include <string>

namespace haloric {

class WindowServerModuleLibrary final : public WindowServerLibrary {
public:
    explicit WindowServerModuleLibrary(const std::string& module = "window_server_module")
        : m_path(pathOf(module)),
          m_control(m_loader.open(m_path.c_str(), kLazy | kLocal))
    {
        control<ModuleReset>("moduleReset")();
    }

    static std::string pathOf(const std::string& module)
    {
        return std::filesystem::path(HALORIC_MODULE_FOLDER) / (module + ".so");
    }

    template <class Function>
    Function control(const char* name) const
    {
        return reinterpret_cast<Function>(m_control->find(name));
    }

    WindowServerModuleState state() const { return control<ModuleState>("moduleState")(); }
    void fail(const char* entry, std::int32_t result = 1) { control<ModuleFail>("moduleFail")(entry, result); }
    int releases() const { return m_releases; }

    // WindowServerLibrary
    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override
    {
        EXPECT_STREQ(path, WindowServer::kFrameworkPath);
        return m_loader.open(m_path.c_str(), mode);
    }
    void release(void* transaction) override { m_loader.release(transaction); }

private:
    PosixLibrary m_loader{[this](void* transaction) {
        ++m_releases;
        control<void (*)(void*)>("moduleReleaseTransaction")(transaction);
    }};
    std::string m_path;
    std::unique_ptr<OpenedLibrary> m_control; // keeps the module's state from one opening to the next
    int m_releases = 0;
};

} // namespace haloric
