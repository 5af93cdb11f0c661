#pragma once

#include "sandbox/project/project_folder.h"

/// A small project that differs in everything from those of other seeds.
Project makeProject(unsigned seed);

/// Whether both hold the same, the names of the layer files aside.
bool isSameProject(const Project& a, const Project& b);
