#include "hosts/posix/PosixLibrary.h"

#include <filesystem>
#include <vector>

#include <dlfcn.h>

namespace haloric {
namespace {

constexpr int kMode = WindowServerLibrary::kLazy | WindowServerLibrary::kLocal;
const std::filesystem::path kModule = std::filesystem::path(HALORIC_MODULE_FOLDER) / "window_server_module.so";

TEST(PosixLibrary, a_missing_file_and_a_file_of_another_kind_cannot_be_opened)
{
    PosixLibrary library([](void*) {});
    EXPECT_EQ(library.open("/nowhere/at/all.so", kMode), nullptr);
    EXPECT_EQ(library.open("/dev/null", kMode), nullptr);
}

TEST(PosixLibrary, functions_are_found_by_name)
{
    PosixLibrary library([](void*) {});
    const auto opened = library.open(kModule.c_str(), kMode);
    ASSERT_NE(opened, nullptr);
    const auto mainConnection = reinterpret_cast<std::int32_t (*)()>(opened->find("SLSMainConnectionID"));
    ASSERT_NE(mainConnection, nullptr);
    EXPECT_EQ(mainConnection(), 7);
    EXPECT_EQ(opened->find("SLSNoSuchFunction"), nullptr);
}

TEST(PosixLibrary, a_local_library_opens_though_it_is_not_loaded_yet)
{
    // The bit of macOS for "local" means "only if it is loaded already" to another loader.
    PosixLibrary library([](void*) {});
    EXPECT_EQ(dlopen(kModule.c_str(), RTLD_LAZY | RTLD_NOLOAD), nullptr);
    EXPECT_NE(library.open(kModule.c_str(), kMode), nullptr);
}

TEST(PosixLibrary, transactions_are_released_by_the_host)
{
    std::vector<void*> released;
    PosixLibrary library([&](void* transaction) { released.push_back(transaction); });
    int transaction = 0;
    library.release(&transaction);
    EXPECT_EQ(released, std::vector<void*>{&transaction});
}

} // namespace
} // namespace haloric
