# The project folder: its file, its layers, and the way from and to a map.
target_sources(vesksandbox_app PRIVATE project/colour_layer.cpp project/json_reader.cpp project/project_folder.cpp
    project/project_json.cpp project/project_map.cpp)
