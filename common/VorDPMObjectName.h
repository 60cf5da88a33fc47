// Controls that tests and hosts find by a name rather than a numeric id: the name is given where
// the control is made, so that a dialog's member initialisers can name what they create.
#pragma once

#include <QLatin1String>

namespace VorDPMObjectName {

template <class T>
T* Named(T* object, const char* name) {
    object->setObjectName(QLatin1String(name));
    return object;
}

}  // namespace VorDPMObjectName
