// The library names of the store in its order, as the dialogs that list libraries show them.
#pragma once

#include <QStringList>

namespace VorDPMLibraryNames {

QStringList All();

}  // namespace VorDPMLibraryNames
