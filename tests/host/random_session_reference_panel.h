#pragma once

#include "engine/qx_colour.h"

#include <map>
#include <set>
#include <string>

class qxCMapDetailRecord;
class qxCTexture;

/// The open panel as the reference has it: settings, stroke and selection, and what its controls stand at.
struct ReferencePanel {
    bool isDetailsTab = false;
    int tool = -1;
    int otherTool = 0;
    int brush = -1;
    int strength = 0;
    int height = 0;
    float gradient = 0.0F;
    bool hideCursor = false;
    qxCTexture* detailTexture = nullptr;
    qxCMapDetailRecord* detail = nullptr;

    int x = 0;
    int z = 0;
    int edge = 0;
    int corner = 0;
    int lastX = -1;
    int lastZ = -1;
    bool first = true;

    bool selected = false;
    int x0 = 0;
    int z0 = 0;
    int x1 = 0;
    int z1 = 0;

    bool full = true;
    bool expanded = false;
    int number = 0; // of the texture definition shown
    float blend = 0.0F;
    float variation = 0.0F;
    int tiling = 0;
    bool mapFlag = false;
    bool fog = false;
    std::string strengthText; // text and bar: as of their last refresh
    int fill = 0;
    std::set<int> disabled;             // controls
    std::map<int, qxCColour> swatches;  // by control
    std::map<int, qxCTexture*> pickers; // by control
};
