#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>

#include "CDPMSheet.h"
#include "CVorDPMDialogBase.h"
#include "support/TempRoot.h"

namespace {

class CountingDialog : public CVorDPMDialogBase {
public:
    CountingDialog() : CVorDPMDialogBase(100) {
        resize(200, 100);
        button = new QPushButton(this);
        button->setGeometry(10, 10, 50, 20);
        stretched = new QLabel(this);
        stretched->setGeometry(10, 40, 100, 50);
        SetResize(button, CVorDPMAnchorResizer::TopRight, CVorDPMAnchorResizer::TopRight);
        SetResize(stretched, CVorDPMAnchorResizer::TopLeft, QPointF(0.5, 1.0));
        AutoLoadPlacement(QStringLiteral("CountingDialog"));
    }
    int initialisations = 0;
    QPushButton* button;
    QLabel* stretched;

protected:
    bool OnInitDialog() override {
        ++initialisations;
        return CVorDPMDialogBase::OnInitDialog();
    }
};

class CountingPage : public CVorDPMPropertPageBase {
public:
    explicit CountingPage(const QString& caption) : CVorDPMPropertPageBase(1, caption) {}
    int initialisations = 0;

protected:
    bool OnInitDialog() override {
        ++initialisations;
        return true;
    }
};

}  // namespace

// Initialised once however often it is shown; anchored controls follow their fraction of the
// growth, both ways.
TEST(DialogBase, InitialisesOnceAndAnchoredControlsFollowTheGrowth) {
    TempRoot root;
    CountingDialog dialog;
    dialog.show();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    dialog.hide();
    dialog.show();
    EXPECT_EQ(dialog.initialisations, 1);
    dialog.resize(300, 160);
    EXPECT_EQ(dialog.button->geometry(), QRect(110, 10, 50, 20));
    EXPECT_EQ(dialog.stretched->geometry(), QRect(10, 40, 150, 110));
    dialog.resize(200, 100);
    EXPECT_EQ(dialog.stretched->geometry(), QRect(10, 40, 100, 50));
}

TEST(DialogBase, PlacementIsKeptUnderTheDialogsKey) {
    TempRoot root;
    {
        CountingDialog dialog;
        dialog.show();
        dialog.resize(321, 222);
        dialog.accept();
    }
    CountingDialog again;
    EXPECT_EQ(again.size(), QSize(321, 222));
}

TEST(Sheet, InitialisesEveryPageOnceAndShowsTheFirst) {
    QWidget owner;
    CDPMSheet sheet;
    CountingPage first(QStringLiteral("产品库"));
    CountingPage second(QStringLiteral("产品目录"));
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    EXPECT_EQ(sheet.Create(&owner, QRect(5, 6, 300, 200)), 1);
    EXPECT_EQ(first.initialisations, 1);
    EXPECT_EQ(second.initialisations, 1);
    EXPECT_EQ(sheet.GetActivePage(), &first);
    EXPECT_EQ(sheet.geometry(), QRect(5, 6, 300, 200));
    EXPECT_EQ(sheet.GetPage(2), nullptr);
}
