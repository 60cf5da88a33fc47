// Script texts between the editor's wide text and the bytes the store keeps and the host runs.
#pragma once

#include <QString>
#include <memory>

#include "CBinaryData.h"

namespace VorDPMScriptText {

// Zero-terminated bytes of a script as the host receives them; `length` excludes the zero.
struct Bytes {
    std::unique_ptr<char[]> data;
    int length = 0;
};

Bytes ToBytes(const QString& text);
// The content a script row stores for `text`.
CBinaryData ToContent(const QString& text);
// The text of a stored content; bytes that are not valid UTF-8 show as replacement characters.
QString FromContent(const CBinaryData& content);

}  // namespace VorDPMScriptText
