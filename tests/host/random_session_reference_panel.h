#pragma once

#include "engine/qx_colour.h"

class qxCMapDetailRecord;
class qxCTexture;

/// The open panel as the reference has it: settings, stroke and selection.
struct ReferencePanel {
    bool isDetailsTab = false;
    int tool = -1;
    int otherTool = 0;
    int brush = -1;
    int strength = 0;
    int height = 0;
    float gradient = 0.0F;
    bool hideCursor = false;
    qxCColour toolTint{255, 255, 255, 255};
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
};
