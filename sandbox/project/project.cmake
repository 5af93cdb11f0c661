# The project folder: its file, its layers, its automatic copies, and the way from and to a map.
target_sources(vesksandbox_app PRIVATE project/automatic_copy.cpp project/colour_layer.cpp project/detail_layer.cpp
    project/film_json.cpp project/json_reader.cpp project/json_values.cpp project/layer_files.cpp project/project_file.cpp
    project/project_folder.cpp project/project_json.cpp project/project_map.cpp project/project_saver.cpp)
