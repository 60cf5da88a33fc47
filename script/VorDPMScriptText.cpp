#include "VorDPMScriptText.h"

#include "VorDPMFunctions.h"

VorDPMScriptText::Bytes VorDPMScriptText::ToBytes(const QString& text) {
    char* data = nullptr;
    Bytes bytes;
    VOR::WCharToMByte(text, data, bytes.length);
    bytes.data.reset(data);
    return bytes;
}

CBinaryData VorDPMScriptText::ToContent(const QString& text) {
    const Bytes bytes = ToBytes(text);
    CBinaryData content;
    content.Append(bytes.data.get(), bytes.length);
    return content;
}

QString VorDPMScriptText::FromContent(const CBinaryData& content) {
    QString text;
    VOR::MByteToWChar(content.GetPtr(), content.GetSize(), text);
    return text;
}
