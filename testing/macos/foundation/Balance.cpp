#include "foundation/Balance.h"

#include "runtime/ObjectiveCAbi.h"

#include <utility>
#include <vector>

namespace substitute {
namespace {

using Kinds = std::vector<std::pair<const char*, long (*)()>>;

Kinds& kinds()
{
    static auto* const all = new Kinds;
    return *all;
}

} // namespace

Counted::Counted(const char* kind, long (*count)()) { kinds().emplace_back(kind, count); }

std::map<std::string, long> balance()
{
    std::map<std::string, long> all;
    for (const auto& [kind, count] : kinds())
        all[kind] = count();
    rt_each_live_class(
        [](const char* name, long live, void* to) {
            if (live != 0)
                (*static_cast<std::map<std::string, long>*>(to))[std::string("objects of ") + name] = live;
        },
        &all);
    return all;
}

PermanentObjects::PermanentObjects() { rt_count_objects(false); }
PermanentObjects::~PermanentObjects() { rt_count_objects(true); }

} // namespace substitute
