// Writes pictures of the simulated desktop: its screens, its windows and the overlays above them, one pixel a
// point.
#pragma once

#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterResources.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"

#include <string>

namespace haloric {

class SimPictures {
public:
    // The folder is made when the first picture is written.
    explicit SimPictures(std::string folder) : m_folder(std::move(folder)) {}

    // Writes one PNG file, named after the step and the time. Throws SimScenarioError when it cannot be written.
    void take(SimPlayer& player, std::size_t step);

    Picture compose(SimPlayer& player);

private:
    void paintWindow(Picture& picture, const Rect& desktop, const SimModel& model, const SimWindow& window);
    void paintOverlay(Picture& picture, const Rect& desktop, const SimOverlay& window);

    std::string m_folder;
    RasterResources m_resources;
};

} // namespace haloric
