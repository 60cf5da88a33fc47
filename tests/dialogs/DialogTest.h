// Fixture of the dialog tests: a fresh library root on disk, the scripted UI driver answering
// every message box, and helpers that drive a dialog's real controls by their ids.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <ostream>

#include "CVorDPMManager.h"
#include "common/VorDPMControlId.h"
#include "support/CVorDPMScriptedUi.h"
#include "support/TempRoot.h"

// Readable failure output for texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

class DialogTest : public ::testing::Test {
protected:
    static CVorDPMManager* Store() { return CVorDPMManager::GetVorDPMManager(); }

    // Creates the libraries and saves them, then drops what was loaded so that the dialogs
    // read the store from disk.
    void CreateLibraries(const QStringList& names) {
        for (const QString& name : names) {
            CVorDPMLibraryManager* library = nullptr;
            ASSERT_EQ(Store()->CreateLibrary(name, library), VOR::eOk) << name.toStdString();
        }
        ASSERT_EQ(Store()->SaveWork(), 1);
        Store()->DiscardChanges();
    }

    static void CreateCatalog(const QString& library, const QString& name) {
        CVorDPMLibraryManager* manager = nullptr;
        CVorDPMDPC* catalog = nullptr;
        ASSERT_EQ(Store()->GetLibrary(library, manager), VOR::eOk);
        ASSERT_EQ(manager->CreateDPC(name, catalog), VOR::eOk);
    }

    static QStringList LibraryNames() {
        QStringList names;
        Store()->GetAllLibraryName(names);
        return names;
    }

    template <class T>
    static T* Control(const QWidget* dialog, int id) {
        T* control = VorDPMControlId::Find<T>(dialog, id);
        EXPECT_NE(control, nullptr) << "no control " << id;
        return control;
    }

    static void Click(const QWidget* dialog, int id) {
        QTest::mouseClick(Control<QPushButton>(dialog, id), Qt::LeftButton);
    }

    static void Type(const QWidget* dialog, int id, const QString& text) {
        QLineEdit* edit = Control<QLineEdit>(dialog, id);
        edit->clear();
        // keyClicks knows ASCII keys only; other characters arrive as text of an unnamed key.
        for (const QChar c : text) {
            if (c.unicode() < 0x80)
                QTest::keyClick(edit, c.toLatin1());
            else
                QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(c),
                                    Qt::NoModifier);
        }
    }

    static bool Accepted(const QDialog& dialog) {
        return !dialog.isVisible() && dialog.result() == QDialog::Accepted;
    }

    TempRoot root;
    CVorDPMScriptedUi ui;
};
