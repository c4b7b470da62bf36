// Windows with any properties, of any type, format and length, in any geometry: what is read of them is plausible, and
// the table of clients accepts it.
#include "fuzz/FuzzedXServer.h"
#include "hosts/x11/server/X11Property.h"
#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11ClientReader.h"
#include "hosts/x11/windows/X11ClientTable.h"

namespace {

using namespace haloric;

void checkExtents(const std::optional<X11Extents>& extents, int screenWidth, int screenHeight)
{
    if (!extents)
        return;
    for (const int side : {extents->left, extents->right, extents->top, extents->bottom})
        fuzzRequire(side >= 0, "the sides of a frame are not negative");
    fuzzRequire(extents->left + extents->right < screenWidth && extents->top + extents->bottom < screenHeight,
                "the sides of a frame leave something of the screen");
}

void checkRecord(const X11ClientRecord& record, const X11Space& space)
{
    const X11Client& client = record.client;
    fuzzRequire(static_cast<std::int32_t>(client.pid) > 0, "a window belongs to a process");
    fuzzRequire(client.opacity >= 0 && client.opacity <= 1, "the opacity is from 0 to 1");
    constexpr int kLargestScreen = 65536; // the protocol's sizes have 16 bits
    checkExtents(client.geometry.shadow, kLargestScreen, kLargestScreen);
    for (const PixelRect& seen : {client.visibleFrame(), client.geometry.rolledUpFrame()}) {
        fuzzRequire(seen.width >= 0 && seen.height >= 0, "a frame has a size");
        fuzzRequire(space.fromGlobal(space.toGlobal(seen)) == seen, "pixels survive the way to points and back");
    }
}

void checkProperty(FuzzInput& input)
{
    const xcb_atom_t type = input.flag() ? xcb_atom_t{XCB_ATOM_CARDINAL} : input.number<std::uint32_t>();
    const std::uint8_t format = input.flag() ? std::uint8_t{32} : input.byte();
    const X11Property property(type, format, std::string(input.text()));
    const auto values = property.values(XCB_ATOM_CARDINAL);
    fuzzRequire(values.size() == property.count(XCB_ATOM_CARDINAL), "every value is counted");
    fuzzRequire(values.empty() || property.contains(XCB_ATOM_CARDINAL, values.back()), "every value is found");
    fuzzRequire(values.empty() || format == 32, "values have 32 bits");
    for (std::size_t part = 0; part < 4; ++part)
        fuzzRequire(property.text(part).find('\0') == std::string_view::npos, "a part of a text ends at a zero byte");
    checkExtents(X11Extents::from(property, 1920, 1080), 1920, 1080);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    FuzzedXServer::answerFrom(input);
    checkProperty(input);
    const X11Atoms atoms(FuzzedXServer::connection(), 0);
    X11ClientReader reader(FuzzedXServer::connection(), FuzzedXServer::kRoot, atoms);
    reader.measureDecoration(input.flag());
    const X11Space space{.pixelsPerPoint = 1 + static_cast<double>(input.below(13)) / 4,
                         .primary = {10, -20, 800, 600}};
    X11ClientTable table;
    while (!input.isEmpty()) {
        std::vector<xcb_window_t> windows;
        for (std::size_t count = 1 + input.below(4); count > 0; --count)
            windows.push_back(0x200000U + input.byte());
        for (auto& record : reader.read(windows)) {
            if (!record)
                continue;
            checkRecord(*record, space);
            table.store(std::move(*record));
        }
        table.setStacking(windows);
        table.setState(
            {.activeWindow = windows.front(), .currentDesktop = input.byte(), .showingDesktop = input.flag()});
        table.configureFrame(windows.back(), {input.number<std::int16_t>(), 0, input.byte(), input.byte()}, 1);
        for (const xcb_window_t window : table.windows()) {
            if (X11Client* client = table.edit(window))
                reader.measure(std::span(&client, 1));
        }
        if (input.flag())
            table.remove(windows.front());
        for (const X11ClientNotice& notice : table.takeNotices())
            table.isHidden(notice.pid);
    }
    return 0;
}
