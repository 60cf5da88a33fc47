// The smallest host of the VorDPM editor: it opens the editor on the library root the store
// remembers (or the one given as the first argument) and draws a cross where the editor asks
// for a shape preview. A real host draws the shape script instead.
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

#include "CVorDPMManager.h"
#include "ExportVorDPMEditor.h"

namespace {

// Owned by the editor's window it sits in; QPointer notices when that window deletes it.
QPointer<QLabel> preview;

void DrawPreview(QRect rect, QWidget* parent, const QString&, const char*,
                 const std::map<QString, _struParam>&, const std::map<int, tagVorDPM_Value>&) {
    if (!preview) preview = new QLabel(parent);
    QPixmap picture(rect.size());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.drawLine(picture.rect().topLeft(), picture.rect().bottomRight());
    painter.drawLine(picture.rect().topRight(), picture.rect().bottomLeft());
    preview->setPixmap(picture);
    preview->setGeometry(rect);
    preview->show();
}

void MovePreview(QRect rect) {
    if (preview) preview->setGeometry(rect);
}

void ClosePreview() {
    delete preview;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    if (argc > 1 && !store->SetDPMLibraryRootPath(QString::fromLocal8Bit(argv[1]))) return 1;
    ExportVorDPMEditor(&DrawPreview, &ClosePreview, &MovePreview);
    // Changes the user did not save in the editor are kept, as a host would after asking.
    return store->HasUnsavedChanges() && store->SaveWork() != 1 ? 1 : 0;
}
