// What outlives one drawing of a view: glow patches and memory that would otherwise be allocated each time. A host
// keeps one and gives it to each RasterCanvas it makes, one canvas at a time. Main thread.
#pragma once

#include "drawing/DeviceShape.h"
#include "drawing/Path.h"
#include "drawing/PixelRegion.h"
#include "drawing/raster/CoveragePainter.h"
#include "drawing/raster/GeneralPainter.h"
#include "drawing/raster/GlowTiles.h"
#include "drawing/raster/RasterState.h"

#include <vector>

namespace haloric {

struct RasterResources {
    GlowTiles glows;
    CoveragePainter coverage;
    GeneralPainter general;

    // Scratch of the canvas in use.
    PixelRegion area;                    // where it may draw
    std::vector<DeviceShape> clipShapes; // of all clips in force, one after the other
    std::vector<RasterClip> clips;       // outermost first
    std::vector<RasterState> states;     // the last save last
    std::vector<DeviceShape> shapes;     // of the path being drawn
    std::vector<DevicePoint> linePoints; // of the lines being drawn
    std::vector<MaskPath> maskClips;     // the clips, for a drawing that takes the general way
};

} // namespace haloric
