#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "host/veskutil.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window; // where your engine draws
    window.show();
    CMemoryScene scene;
    CMemoryMap map(256, &scene); // or your engine's own qxCMap
    const HWND host = reinterpret_cast<HWND>(window.winId());
    vuCreateEditor(host, &map, "textures", nullptr, true, nullptr);
    vuStartEditing(10, 20, 0, 0);          // mouse pressed over cell (10, 20)
    vuUpdateEditing(10, 20, 0, 0, 0, -40); // dragged up by 40 pixels
    vuStopEditing();                       // released
    const int result = application.arguments().contains("--once") ? 0 : QApplication::exec();
    vuDestroyEditor();
    vuDestroySettings(); // before the map is freed
    return result;
}
