// Saves the README's picture of the library search: the main dialog on the sample library with
// the products named "法兰…" of every library listed in the tree's place, and the first of them
// opened on the product data page. Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/SearchScreenshot docs/images/library-search.png
// (one command line).
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>

#include "BenchScreenshot.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMLibrarySearch.h"

namespace {

const QSize kMainSize(1180, 720);
const char* const kTyped = "法兰";

}  // namespace

int main(int argc, char** argv) {
    BenchScreenshot screenshot(argc, argv, "SearchScreenshot");
    if (screenshot.Status()) return screenshot.Status();
    CVorDPMEditorDlg dialog(nullptr, nullptr, nullptr);
    dialog.show();
    dialog.resize(kMainSize);
    CVorDPMLibrarySearch* search = dialog.GetSearch();
    search->GetMode()->setCurrentIndex(CVorDPMLibrarySearch::AllProductMode);
    search->GetField()->setText(QString::fromUtf8(kTyped));
    return screenshot.Grab(dialog, [search] {
        search->GoToNext();
        search->GetResults()->header()->resizeSections(QHeaderView::ResizeToContents);
    });
}
