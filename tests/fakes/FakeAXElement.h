// An element of a fake application: attributes that a test sets.
#pragma once

#include "platform/Accessibility.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace haloric {

struct FakeAXElement final : AXElementObject {
    ProcessID pid = ProcessID::none; // application elements only
    std::map<std::string, AXAttribute, std::less<>> attributes;
    AXWindowNumber number{AXError::failure, WindowNumber::none};
    std::uint64_t hash = 0;

    void set(std::string name, AXValue value)
    {
        attributes.insert_or_assign(std::move(name), AXAttribute{AXError::success, std::move(value)});
    }
    void fail(std::string name, AXError error) { attributes.insert_or_assign(std::move(name), AXAttribute{error, {}}); }
    void set(WindowNumber windowNumber) { number = {AXError::success, windowNumber}; }
};

using FakeAXElementRef = std::shared_ptr<FakeAXElement>;

} // namespace haloric
