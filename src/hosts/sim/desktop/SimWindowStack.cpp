#include "hosts/sim/desktop/SimWindowStack.h"

#include <algorithm>
#include <utility>

namespace haloric {

SimWindow& SimWindowStack::add(SimWindow window)
{
    window.number = static_cast<WindowNumber>(++m_lastNumber);
    auto owned = std::make_unique<SimWindow>(std::move(window));
    SimWindow& added = *owned;
    insert(std::move(owned));
    return added;
}

void SimWindowStack::insert(std::unique_ptr<SimWindow> window)
{
    const auto place =
        std::ranges::find_if(m_windows, [&](const auto& other) { return other->layer <= window->layer; });
    m_windows.insert(place, std::move(window));
}

void SimWindowStack::remove(WindowNumber number)
{
    if (const auto found = position(number); found != m_windows.end())
        m_windows.erase(found);
}

SimWindowStack::Windows::iterator SimWindowStack::position(WindowNumber number)
{
    return std::ranges::find_if(m_windows, [&](const auto& window) { return window->number == number; });
}

SimWindow* SimWindowStack::find(WindowNumber number)
{
    const auto found = position(number);
    return found == m_windows.end() ? nullptr : found->get();
}

const SimWindow* SimWindowStack::find(WindowNumber number) const
{
    return const_cast<SimWindowStack*>(this)->find(number);
}

SimWindow* SimWindowStack::named(std::string_view name)
{
    const auto found =
        std::ranges::find_if(m_windows, [&](const auto& window) { return !window->overlay && window->name == name; });
    return found == m_windows.end() ? nullptr : found->get();
}

void SimWindowStack::raise(WindowNumber number)
{
    const auto found = position(number);
    if (found == m_windows.end())
        return;
    auto window = std::move(*found);
    m_windows.erase(found);
    insert(std::move(window));
}

void SimWindowStack::setLayer(WindowNumber number, int layer)
{
    SimWindow* window = find(number);
    if (!window || window->layer == layer)
        return;
    window->layer = layer;
    raise(number);
}

} // namespace haloric
