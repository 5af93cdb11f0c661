#pragma once

#include "engine/qx_map.h"

#include <optional>

/// Walks and changes the texture definitions of a map, of which one is shown; knows no window. A map may have
/// none, and a host's may count some that it does not hand out: then nothing is stored.
class CDefinitionEditor {
public:
    using Share = float qxCMapMultiTexture::*;
    using Tint = qxCColour qxCMapMultiTexture::*;

    /// Begin with the definition that the map has as its current one. The map stays the host's; null lets go
    /// of it.
    void bind(qxCMap* map);

    /// The definition shown, or null.
    qxCMapMultiTexture* current() const;
    /// Bring the number back into the list, from which the host may have removed some, and make the
    /// definition shown the one that the map paints with. The definition, or null.
    const qxCMapMultiTexture* settle();

    // Each of these tells whether there is something new to show.
    bool previous();
    bool next();
    bool insert();
    bool remove();
    bool duplicate();

    /// Store a share of the definition shown, brought to 0..1, which is what the engine's records hold: what
    /// it is now.
    std::optional<float> storeShare(Share share, float value);
    /// Store the share one step of a spin away from `value`.
    std::optional<float> stepShare(Share share, float value, int delta);
    bool storeTint(Tint tint, qxCColour colour);

    int m_nTextureNumber = 0; ///< index of the definition shown

private:
    void showLast();

    qxCMap* m_pMap = nullptr;
};
