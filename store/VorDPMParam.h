// Records shared with the host: a script parameter descriptor and a tree classification element.
#pragma once

#include <QString>

// Descriptor of one script parameter. The layout is part of the host interface: kind, then index.
struct _struParam {
    int kind;   // 0 "Design Parameters", 1 "Component parameters", -1 any other group
    int index;  // position of the parameter; keys its value
};

// One classification element as the product tree collects it.
struct struTypeData {
    QString text;
    int level = -1;
};
