#include "testing/x11/ProgramBundle.h"

#include "testing/x11/HaloricProcess.h"

#include <fstream>

namespace haloric {

ProgramBundle::ProgramBundle(X11Session& session, const Information& information)
    : m_folder(session.server().folder() / "a folder" / "Haloric.app") // a path with a space, as users have them
{
    Information all{
        {"CFBundleIdentifier", "com.kestrow.haloric"}, {"CFBundleShortVersionString", "0.7"}, {"CFBundleVersion", "7"}};
    all.insert(information.begin(), information.end());
    std::filesystem::create_directories(m_folder);
    std::filesystem::copy_file(HaloricProcess::program(), program());
    std::ofstream dictionary(m_folder / "Info.plist");
    dictionary << "<plist version=\"1.0\"><dict>\n";
    for (const auto& [key, value] : all)
        dictionary << "<key>" << key << "</key><string>" << value << "</string>\n";
    dictionary << "</dict></plist>\n";
}

} // namespace haloric
