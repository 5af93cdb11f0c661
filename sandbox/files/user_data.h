#pragma once

#include <QString>

/// A folder of this name in the data folder of the user, made when it is not there.
QString userDataFolder(const QString& name);
