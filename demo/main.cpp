// haloric-demo [FOLDER]: demonstrates the program and writes pictures to FOLDER (default: pictures).
// haloric-demo --documentation FOLDER PROGRAM: writes the pictures of the documents, and the frames of the animated
// one, from PROGRAM.
#include "demo/Demonstration.h"
#include "demo/DocumentationPictures.h"

#include <cstdio>
#include <exception>
#include <span>
#include <string_view>

int main(int argumentCount, char** arguments)
{
    std::span<char*> words(arguments + 1, static_cast<std::size_t>(argumentCount - 1));
    const bool isForDocumentation = !words.empty() && std::string_view(words.front()) == "--documentation";
    const bool isUnknown = !isForDocumentation && !words.empty() && words.front()[0] == '-';
    if (isUnknown || (isForDocumentation ? words.size() != 3 : words.size() > 1)) {
        std::fprintf(stderr, "usage: haloric-demo [FOLDER]\n       haloric-demo --documentation FOLDER PROGRAM\n");
        return 2;
    }
    if (isForDocumentation)
        words = words.subspan(1);
    const std::filesystem::path folder = std::filesystem::absolute(words.empty() ? "pictures" : words.front());
    try {
        if (isForDocumentation)
            haloric::DocumentationPictures(folder, words.back()).run();
        else
            haloric::Demonstration(folder).run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "haloric-demo: %s\n", error.what());
        return 1;
    }
    std::printf("The pictures are in %s\n", folder.c_str());
    return 0;
}
