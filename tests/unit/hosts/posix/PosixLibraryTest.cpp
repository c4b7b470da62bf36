#include "hosts/posix/PosixLibrary.h"

#include <filesystem>
#include <vector>

namespace haloric {
namespace {

constexpr int kMode = WindowServerLibrary::kLazy | WindowServerLibrary::kLocal;
const std::filesystem::path kFolder = HALORIC_MODULE_FOLDER;
const std::filesystem::path kModule = kFolder / "window_server_module.so";

TEST(PosixLibrary, a_library_that_is_not_there_cannot_be_opened)
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
    // The platform's bit for "local" means "only if it is loaded already" to another loader.
    PosixLibrary library([](void*) {});
    const auto module = kFolder / "window_server_module_without_SLSMainConnectionID.so";
    EXPECT_NE(library.open(module.c_str(), kMode), nullptr);
}

TEST(PosixLibrary, transactions_are_given_back_by_the_host)
{
    std::vector<void*> released;
    PosixLibrary library([&](void* transaction) { released.push_back(transaction); });
    int transaction = 0;
    library.release(&transaction);
    EXPECT_EQ(released, std::vector<void*>{&transaction});
}

} // namespace
} // namespace haloric
