// The parameters of one run of a preview script: each becomes a global of its name, an integer
// or real value a Lua number, a text a Lua string. Sets of parameters compare and order as
// maps do, so that runs with the same values can be told apart and done once.
#pragma once

#include <QString>
#include <QtGlobal>
#include <map>
#include <variant>

using PreviewValue = std::variant<qint64, double, QString>;
using PreviewParameters = std::map<QString, PreviewValue>;
