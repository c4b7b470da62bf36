// From a scenario's values, which have been checked, to the model's.
#pragma once

#include "hosts/sim/desktop/SimScreen.h"
#include "hosts/sim/desktop/SimWindow.h"
#include "hosts/sim/scenario/session/SimJson.h"

namespace haloric {

inline Rect simRectFrom(const SimJson& json)
{
    return {json[0].get<double>(), json[1].get<double>(), json[2].get<double>(), json[3].get<double>()};
}

inline Point simPointFrom(const SimJson& json) { return {json[0].get<double>(), json[1].get<double>()}; }

inline Size simSizeFrom(const SimJson& json) { return {json[0].get<double>(), json[1].get<double>()}; }

inline SimDecoration simDecorationFrom(const std::string& name)
{
    if (name == "none")
        return SimDecoration::none;
    return name == "client" ? SimDecoration::client : SimDecoration::titled;
}

inline SimJson simJsonFrom(const Rect& rect) { return SimJson::array({rect.x, rect.y, rect.width, rect.height}); }

inline SimScreen simScreenFrom(const SimJson& json)
{
    SimScreen screen;
    screen.id = static_cast<DisplayID>(json["screen"].get<std::uint32_t>());
    screen.frame = simRectFrom(json["frame"]);
    screen.framesPerSecond = json.value("rate", screen.framesPerSecond);
    screen.scale = json.value("scale", 2.0);
    return screen;
}

} // namespace haloric
