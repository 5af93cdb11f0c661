#include "movie/panel/camera_list.h"

#include "engine/qx_movie.h"
#include "platform/framework.h"

namespace {

constexpr int MOST_CAMERAS = 1000; // an engine may answer every index with a camera

const char* nameOf(const qxCCamera& camera) {
    const char* const name = camera.name.getString();
    return name != nullptr ? name : "";
}

} // namespace

void CCameraList::show(CComboBox& box, qxCMovie& movie, int selected) {
    std::size_t count = 0;
    for (const qxCCamera* camera = nullptr;
         count < MOST_CAMERAS && (camera = movie.getChildCamera(static_cast<int>(count))) != nullptr;
         ++count) {
        if (count == m_names.size()) {
            m_names.emplace_back();
        }
        m_names[count] = nameOf(*camera);
    }
    m_names.resize(count);
    if (m_names != m_shown) {
        box.ResetContent();
        for (const std::string& name : m_names) {
            const int item = box.AddString(name.c_str());
            box.SetItemData(item, static_cast<DWORD_PTR>(item));
        }
        m_shown = m_names;
    }
    box.SetCurSel(selected);
}
