#include "terrain/tools/detail_tools.h"

#include "engine/qx_map.h"
#include "engine/qx_matrix4d.h"
#include "terrain/model/map_editor_model.h"

#include <algorithm>

namespace {

qxCVector3d groundPoint(double x, double z) {
    return {static_cast<float>(x), 0.0F, static_cast<float>(z)};
}

void clearHighlight(qxCMapDetailRecord* detail) {
    if (detail != nullptr) {
        detail->highlighted = 0;
    }
}

/// `created` (null when the map refused it) becomes the current detail and is dragged from here on.
FirstUpdate startDragOf(CMapEditorModel& model, qxCMapDetailRecord* created) {
    clearHighlight(model.m_pCurrentDetail);
    clearHighlight(created);
    model.m_pCurrentDetail = created;
    model.m_stroke.addedDetail = created;
    return FirstUpdate::AT_ONCE;
}

FirstUpdate startAddQuad(CMapEditorModel& model) {
    if (model.m_pDetailTexture == nullptr) {
        return FirstUpdate::BY_HOST;
    }
    const double x = model.m_stroke.x;
    const double z = model.m_stroke.z;
    return startDragOf(model,
                       model.m_pMap->addDetail(qxDetailTypeQuad, model.m_pDetailTexture, groundPoint(x, z),
                                               groundPoint(x + 1, z), groundPoint(x, z + 1), 1.0F));
}

FirstUpdate startAddPoint(CMapEditorModel& model) {
    if (model.m_pDetailTexture == nullptr) {
        return FirstUpdate::BY_HOST;
    }
    const qxCVector3d middle = groundPoint(model.m_stroke.x + 0.5, model.m_stroke.z + 0.5);
    return startDragOf(
        model, model.m_pMap->addDetail(qxDetailTypePoint, model.m_pDetailTexture, middle, 0.5F, 0.0F, 1.0F));
}

FirstUpdate startDuplicate(CMapEditorModel& model) {
    const qxCMapDetailRecord* const original = model.m_pCurrentDetail;
    if (original == nullptr) {
        return FirstUpdate::BY_HOST;
    }
    return startDragOf(model, model.m_pMap->addDetail(original->type, original->texture, original->point0,
                                                      original->point1, original->point2, original->scalar));
}

/// Follow the pointer and, on the first update, take the snapshot of what the stroke works on.
void followPointer(CMapEditorModel& model, int x, int z, qxCMapDetailRecord* detail) {
    StrokeState& stroke = model.m_stroke;
    stroke.x = x;
    stroke.z = z;
    if (!stroke.firstUpdate) {
        return;
    }
    DetailSnapshot& snapshot = model.m_snapshot.detail;
    snapshot.record = detail;
    if (detail != nullptr) {
        snapshot = {detail, detail->point0, detail->point1, detail->point2, x, z};
    }
}

/// Put each point of the detail where `transform` takes it from its snapshot.
template <typename Transform> void placeDetail(const DetailSnapshot& snapshot, const Transform& transform) {
    if (snapshot.record == nullptr) {
        return;
    }
    snapshot.record->point0 = transform(snapshot.point0);
    snapshot.record->point1 = transform(snapshot.point1);
    snapshot.record->point2 = transform(snapshot.point2);
}

/// Transform the detail about its middle, which stays where it is.
void placeAboutMiddle(const DetailSnapshot& snapshot, const qxCMatrix4d& transform) {
    const qxCVector3d middle = (snapshot.point1 + snapshot.point2) * 0.5F;
    qxCMatrix4d toOrigin;
    toOrigin.translation(-middle);
    qxCMatrix4d back;
    back.translation(middle);
    const qxCMatrix4d whole = back * (transform * toOrigin);
    placeDetail(snapshot, [&whole](const qxCVector3d& point) { return whole * point; });
}

void dragDetail(const CMapEditorModel& model) {
    const DetailSnapshot& snapshot = model.m_snapshot.detail;
    const qxCVector3d offset = groundPoint(static_cast<double>(model.m_stroke.x) - snapshot.x,
                                           static_cast<double>(model.m_stroke.z) - snapshot.z);
    placeDetail(snapshot, [&offset](const qxCVector3d& point) { return point + offset; });
}

void rotateDetail(const CMapEditorModel& model, int amount) {
    qxCMatrix4d rotation;
    rotation.rotationY(static_cast<float>(amount));
    placeAboutMiddle(model.m_snapshot.detail, rotation);
}

void scaleDetail(const CMapEditorModel& model, int amount) {
    const float s = std::max(1.0F - static_cast<float>(amount) * 0.04F, 0.1F);
    qxCMatrix4d scaling;
    scaling.scaling({s, s, s});
    placeAboutMiddle(model.m_snapshot.detail, scaling);
}

void deleteDetail(CMapEditorModel& model) {
    qxCMapDetailRecord* const detail = model.m_pCurrentDetail;
    if (!model.m_stroke.firstUpdate || detail == nullptr) {
        return;
    }
    clearHighlight(detail);
    model.m_pCurrentDetail = nullptr;
    model.m_pMap->removeDetail(detail);
    model.m_snapshot.detail = {};
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

FirstUpdate startDetailTool(CMapEditorModel& model) {
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
        clearHighlight(model.m_pCurrentDetail);
        return FirstUpdate::BY_HOST;
    case DETAIL_DELETE:
    case DETAIL_FLIP:
        return FirstUpdate::AT_ONCE;
    default:
        return FirstUpdate::BY_HOST;
    }
}

void updateDetailTool(CMapEditorModel& model, int x, int z, int amount) {
    switch (model.m_nTool) {
    case DETAIL_ADD_QUAD:
    case DETAIL_ADD_POINT:
    case DETAIL_DUPLICATE:
        // These never take hold of a detail that was there before: without one of their own they do nothing.
        followPointer(model, x, z, model.m_stroke.addedDetail);
        return dragDetail(model);
    case DETAIL_MOVE:
        followPointer(model, x, z, model.m_pCurrentDetail);
        return dragDetail(model);
    case DETAIL_ROTATE:
        followPointer(model, x, z, model.m_pCurrentDetail);
        return rotateDetail(model, amount);
    case DETAIL_SCALE:
        followPointer(model, x, z, model.m_pCurrentDetail);
        return scaleDetail(model, amount);
    case DETAIL_DELETE:
        return deleteDetail(model);
    case DETAIL_FLIP:
        return flipDetail(model);
    default:
        return;
    }
}
