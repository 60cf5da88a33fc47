#include "SampleCommand.h"

#include "CVorDPMManager.h"
#include "sample/SampleLibrary.h"

namespace {

const QString kScale = QStringLiteral("scale");

}  // namespace

QString SampleCommand::Summary() const {
    return QStringLiteral(
        "Creates the sample libraries QXMaterial and QXMEP under DIR (made when missing) and\n"
        "makes DIR the remembered library root. --scale multiplies products and series rows.");
}

QList<QCommandLineOption> SampleCommand::Options() const {
    return {{kScale, QStringLiteral("products and series rows times N (default 1)"),
             QStringLiteral("N")}};
}

int SampleCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QString root = RootArgument(parser);
    if (root.isEmpty())
        return console.Fail(ToolConsole::BadUsage, QStringLiteral("sample needs --root DIR"));
    bool isNumber = true;
    const int scale = parser.isSet(kScale) ? parser.value(kScale).toInt(&isNumber) : 1;
    if (!isNumber || scale < 1)
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("--scale needs a whole number of at least 1"));
    QString error;
    if (!SampleLibrary::Create(root, scale, error))
        return console.Fail(ToolConsole::NotFound,
                            QStringLiteral("cannot create the sample: %1").arg(error));
    console.WriteRecord({CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath()});
    return ToolConsole::Success;
}
