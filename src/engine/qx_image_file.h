#pragma once

#include "engine/qx_api.h"
#include "engine/qx_colour.h"

#include <cstddef>
#include <span>
#include <vector>

enum qxImageFileFormat { qxImageFileFormatColourAlpha = 2 };

/// An image in memory, four channels a pixel, rows from the top. Copies are deep.
class QX_API qxCImageFile {
public:
    /// Largest width and height that load and setSize accept, in pixels.
    static constexpr int MAX_EDGE = 4096;

    /// Size in pixels, both 0 for an image that was never loaded or sized.
    int width = 0;
    int height = 0;

    qxCImageFile();
    virtual ~qxCImageFile();

    /// Load the TGA or PNG file of this bare engine name. False and an empty image when the name does not
    /// resolve or the file is not an image this loader takes. `flag` has no meaning here.
    bool load(const char* fileName, bool flag);

    /// Make a transparent black image of this size; a size outside 1 to MAX_EDGE makes it empty.
    void setSize(int newWidth, int newHeight, qxImageFileFormat format);

    /// Pixel colour; x from the left, y from the top. Outside the image: transparent black.
    qxCColour getPixel(int x, int y) const;
    /// Outside the image: ignored.
    void setPixel(int x, int y, const qxCColour& colour);

    /// All pixels to read or write, element y * width + x; valid until the image is loaded, sized or
    /// destroyed.
    std::span<const qxCColour> getPixels() const { return m_pixels; }
    std::span<qxCColour> getPixels() { return m_pixels; }

private:
    std::size_t indexOf(int x, int y) const;

    std::vector<qxCColour> m_pixels; // row-major, width * height
};
