#pragma once

/// What a person chose to see in the 3D view besides what the map itself says.
struct ViewOptions {
    bool wireframe = false;
    bool grid = true; ///< faint lines between cells that are near enough
};
