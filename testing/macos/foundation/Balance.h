// What exists in the substitute, by kind, so that a test can compare what there
// was before it with what is left after it.
#pragma once

#include <map>
#include <string>

namespace substitute {

// As a constant of a source: the kind is counted by the function. Main thread.
class Counted {
public:
    Counted(const char* kind, long (*count)());
};

// The counted kinds, and the live objects of each class. Main thread.
std::map<std::string, long> balance();

// Objects that are made on this thread while one exists are not counted: they
// exist once, to the end of the process.
class PermanentObjects {
public:
    PermanentObjects();
    ~PermanentObjects();
    PermanentObjects(const PermanentObjects&) = delete;
    PermanentObjects& operator=(const PermanentObjects&) = delete;
};

template <class Make>
auto permanent(Make make)
{
    const PermanentObjects scope;
    return make();
}

} // namespace substitute
