#include "terrain/tools/detail_tools.h"

#include "engine/qx_map.h"
#include "engine/qx_matrix4d.h"
#include "terrain/map_editor_model.h"
#include "terrain/stroke_engine.h"

#include <algorithm>

namespace {

/// A detail as it was on the stroke's first update: an update replaces the effect of the one before.
struct DetailSnapshot {
    qxCMapDetailRecord* record = nullptr; // none: there is nothing to edit
    qxCVector3d point0;
    qxCVector3d point1;
    qxCVector3d point2;
    int x = 0; // picked point of that update
    int z = 0;
};

DetailSnapshot g_snapshot;

qxCVector3d groundPoint(double x, double z) {
    return {static_cast<float>(x), 0.0F, static_cast<float>(z)};
}

void clearHighlight(qxCMapDetailRecord* detail) {
    if (detail != nullptr) {
        detail->highlighted = 0;
    }
}

/// `created` (null when the map refused it) becomes the current detail and is dragged from here on.
void startDragOf(CMapEditorModel& model, qxCMapDetailRecord* created) {
    clearHighlight(model.m_pCurrentDetail);
    clearHighlight(created);
    model.m_pCurrentDetail = created;
    strokeUpdate(model, model.m_stroke.x, model.m_stroke.z, 0);
}

void startAddQuad(CMapEditorModel& model) {
    if (model.m_pDetailTexture == nullptr) {
        return;
    }
    const double x = model.m_stroke.x;
    const double z = model.m_stroke.z;
    startDragOf(model, model.m_pMap->addDetail(qxDetailTypeQuad, model.m_pDetailTexture, groundPoint(x, z),
                                               groundPoint(x + 1, z), groundPoint(x, z + 1), 1.0F));
}

void startAddPoint(CMapEditorModel& model) {
    if (model.m_pDetailTexture == nullptr) {
        return;
    }
    const qxCVector3d middle = groundPoint(model.m_stroke.x + 0.5, model.m_stroke.z + 0.5);
    startDragOf(model,
                model.m_pMap->addDetail(qxDetailTypePoint, model.m_pDetailTexture, middle, 0.5F, 0.0F, 1.0F));
}

void startDuplicate(CMapEditorModel& model) {
    const qxCMapDetailRecord* const original = model.m_pCurrentDetail;
    if (original == nullptr) {
        return;
    }
    startDragOf(model, model.m_pMap->addDetail(original->type, original->texture, original->point0,
                                               original->point1, original->point2, original->scalar));
}

/// Drag, rotate and scale begin alike: follow the pointer and, on the first update, take the snapshot.
void followPointer(CMapEditorModel& model, int x, int z) {
    StrokeState& stroke = model.m_stroke;
    stroke.x = x;
    stroke.z = z;
    if (!stroke.firstUpdate) {
        return;
    }
    g_snapshot.record = model.m_pCurrentDetail;
    if (const qxCMapDetailRecord* const detail = model.m_pCurrentDetail) {
        g_snapshot = {model.m_pCurrentDetail, detail->point0, detail->point1, detail->point2, x, z};
    }
}

/// Put each point of the detail where `transform` takes it from its snapshot.
template <typename Transform> void placeDetail(const Transform& transform) {
    if (g_snapshot.record == nullptr) {
        return;
    }
    g_snapshot.record->point0 = transform(g_snapshot.point0);
    g_snapshot.record->point1 = transform(g_snapshot.point1);
    g_snapshot.record->point2 = transform(g_snapshot.point2);
}

/// The transform about the detail's middle, which stays where it is.
qxCMatrix4d aboutMiddle(const qxCMatrix4d& transform) {
    const qxCVector3d middle = (g_snapshot.point1 + g_snapshot.point2) * 0.5F;
    qxCMatrix4d toOrigin;
    toOrigin.translation(-middle);
    qxCMatrix4d back;
    back.translation(middle);
    return back * (transform * toOrigin);
}

void placeAboutMiddle(const qxCMatrix4d& transform) {
    placeDetail([matrix = aboutMiddle(transform)](const qxCVector3d& point) { return matrix * point; });
}

void dragDetail(const StrokeState& stroke) {
    const qxCVector3d offset = groundPoint(static_cast<double>(stroke.x) - g_snapshot.x,
                                           static_cast<double>(stroke.z) - g_snapshot.z);
    placeDetail([&offset](const qxCVector3d& point) { return point + offset; });
}

void rotateDetail(int amount) {
    qxCMatrix4d rotation;
    rotation.rotationY(static_cast<float>(amount));
    placeAboutMiddle(rotation);
}

void scaleDetail(int amount) {
    const float s = std::max(1.0F - static_cast<float>(amount) * 0.04F, 0.1F);
    qxCMatrix4d scaling;
    scaling.scaling({s, s, s});
    placeAboutMiddle(scaling);
}

void deleteDetail(CMapEditorModel& model) {
    qxCMapDetailRecord* const detail = model.m_pCurrentDetail;
    if (!model.m_stroke.firstUpdate || detail == nullptr) {
        return;
    }
    clearHighlight(detail);
    model.m_pCurrentDetail = nullptr;
    model.m_pMap->removeDetail(detail);
    forgetDetailSnapshot();
}

/// Mirror the detail along its x edge: its place stays, its texture runs the other way.
void flipDetail(CMapEditorModel& model) {
    qxCMapDetailRecord* const detail = model.m_pCurrentDetail;
    if (!model.m_stroke.firstUpdate || detail == nullptr) {
        return;
    }
    const qxCVector3d p = detail->point0;
    const qxCVector3d q = detail->point1;
    const qxCVector3d r = detail->point2;
    detail->point0 = q;
    detail->point1 = p;
    detail->point2 = q + (r - p);
}

} // namespace

void startDetailTool(CMapEditorModel& model) {
    switch (model.m_nTool) {
    case DETAIL_ADD_QUAD:
        return startAddQuad(model);
    case DETAIL_ADD_POINT:
        return startAddPoint(model);
    case DETAIL_DUPLICATE:
        return startDuplicate(model);
    case DETAIL_MOVE:
    case DETAIL_ROTATE:
    case DETAIL_SCALE:
        return clearHighlight(model.m_pCurrentDetail);
    case DETAIL_DELETE:
    case DETAIL_FLIP:
        return strokeUpdate(model, model.m_stroke.x, model.m_stroke.z, 0);
    default:
        return;
    }
}

void updateDetailTool(CMapEditorModel& model, int x, int z, int amount) {
    switch (model.m_nTool) {
    case DETAIL_ADD_QUAD:
    case DETAIL_ADD_POINT:
    case DETAIL_DUPLICATE:
    case DETAIL_MOVE:
        followPointer(model, x, z);
        return dragDetail(model.m_stroke);
    case DETAIL_ROTATE:
        followPointer(model, x, z);
        return rotateDetail(amount);
    case DETAIL_SCALE:
        followPointer(model, x, z);
        return scaleDetail(amount);
    case DETAIL_DELETE:
        return deleteDetail(model);
    case DETAIL_FLIP:
        return flipDetail(model);
    default:
        return;
    }
}

void forgetDetailSnapshot() {
    g_snapshot = {};
}
