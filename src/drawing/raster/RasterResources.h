// Glow patches, and memory that would otherwise be allocated for each drawing. A host keeps one and passes it to each
// RasterCanvas that it makes, one canvas at a time. Main thread.
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

    // Working memory of the current canvas.
    PixelRegion area;                    // where it may draw
    std::vector<DeviceShape> clipShapes; // of all current clips, in order
    std::vector<RasterClip> clips;       // outermost first
    std::vector<RasterState> states;     // one per save, the innermost last
    std::vector<DeviceShape> shapes;     // of the path being drawn
    std::vector<DevicePoint> linePoints; // of the lines being drawn
    std::vector<MaskPath> maskClips;     // the clips, for GeneralPainter
};

} // namespace haloric
