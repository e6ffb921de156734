// The desktop's file dialog for the memory file, on Qt's own widgets: it
// comes up with exactly the title, filters, default extension and folder
// that the program asks for, in front of the program's floating windows and
// modal to all of them; a name typed without an extension gets the default
// one, saving over a file asks nothing, opening takes a name that names no
// file, and Cancel gives nothing.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "qtbind/qt_file_dialogs.h"

namespace {

constexpr const char* kMemoryFilter = "Memory (*.mem)|*.mem|all files (*.*)|*.*";

// What the dialog showed, looked at from inside its modal loop.
struct Seen {
    bool found = false;
    QString title;
    QStringList nameFilters;
    QString selectedNameFilter;
    QString defaultSuffix;
    QString directory;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode fileMode = QFileDialog::ExistingFile;
    bool ownWidgets = false;
    bool confirmsOverwrite = true;
    bool onTop = false;
    Qt::WindowModality modality = Qt::NonModal;
    QString proposedName;
};

// Runs `act` on the file dialog as soon as it is up, from inside its modal
// loop, as long as the timer returned lives. Whatever `act` leaves open is
// shut a while later, so that a dialog that will not go fails the test
// instead of hanging it.
[[nodiscard]] std::unique_ptr<QTimer> WhenDialogUp(Seen& seen,
                                                   std::function<void(QFileDialog&)> act) {
    auto watch = std::make_unique<QTimer>();
    QTimer* poll = watch.get();
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, &seen, act] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) return;
        poll->stop();
        seen.found = true;
        seen.title = dialog->windowTitle();
        seen.nameFilters = dialog->nameFilters();
        seen.selectedNameFilter = dialog->selectedNameFilter();
        seen.defaultSuffix = dialog->defaultSuffix();
        seen.directory = dialog->directory().canonicalPath();
        seen.acceptMode = dialog->acceptMode();
        seen.fileMode = dialog->fileMode();
        seen.ownWidgets = dialog->testOption(QFileDialog::DontUseNativeDialog);
        seen.confirmsOverwrite = !dialog->testOption(QFileDialog::DontConfirmOverwrite);
        seen.onTop = dialog->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        seen.modality = dialog->windowModality();
        if (auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            seen.proposedName = edit->text();
        }
        // Armed first: an answer that brings up a box of its own waits in
        // that box's loop.
        QTimer::singleShot(3000, dialog, [] {
            // A box asking something over the dialog goes first.
            for (int left = 4; left > 0; --left) {
                auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                if (!open) break;
                open->reject();
                QCoreApplication::processEvents();
            }
        });
        act(*dialog);
    });
    poll->start();
    return watch;
}

// The user types `name` over the proposed one and presses Enter.
void TypeAndEnter(QFileDialog& dialog, const QString& name) {
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!edit) {
        dialog.reject();
        return;
    }
    edit->selectAll();
    QTest::keyClicks(edit, name);
    QTest::keyClick(edit, Qt::Key_Return);
}

QString Shown(const std::optional<std::string>& chosen) {
    return chosen ? QFile::decodeName(chosen->c_str()) : QStringLiteral("<cancelled>");
}

}  // namespace

class FileDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { QVERIFY(folder.isValid()); }

    // Save As: the program's title, its two filters with the first chosen,
    // "mem" as the default extension, its folder; "cells" typed comes back
    // as cells.mem in that folder.
    void SaveAsShowsTheProgramsSettingsAndAddsTheExtension() {
        Seen seen;
        const auto up =
            WhenDialogUp(seen, [](QFileDialog& dialog) { TypeAndEnter(dialog, "cells"); });
        const auto chosen = dialogs.Show(Request(true));
        QVERIFY(seen.found);
        QCOMPARE(seen.title, QStringLiteral("Save As"));
        QCOMPARE(seen.nameFilters, QStringList({QStringLiteral("Memory (*.mem)"),
                                                QStringLiteral("all files (*.*)")}));
        QCOMPARE(seen.selectedNameFilter, QStringLiteral("Memory (*.mem)"));
        QCOMPARE(seen.defaultSuffix, QStringLiteral("mem"));
        QCOMPARE(seen.directory, Folder());
        QCOMPARE(seen.acceptMode, QFileDialog::AcceptSave);
        QVERIFY(seen.ownWidgets);
        QVERIFY(!seen.confirmsOverwrite);
        QVERIFY(seen.onTop);
        QCOMPARE(seen.modality, Qt::ApplicationModal);
        QCOMPARE(Shown(chosen), InFolder("cells.mem"));
    }

    // A name with an extension of its own keeps it.
    void ANameWithAnExtensionKeepsIt() {
        Seen seen;
        const auto up =
            WhenDialogUp(seen, [](QFileDialog& dialog) { TypeAndEnter(dialog, "notes.txt"); });
        const auto chosen = dialogs.Show(Request(true));
        QVERIFY(seen.found);
        QCOMPARE(Shown(chosen), InFolder("notes.txt"));
    }

    // Saving over a file that is there asks nothing: the dialog gives the
    // name at once.
    void SavingOverAFileAsksNothing() {
        QFile old(InFolder("old.mem"));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.close();
        Seen seen;
        const auto up =
            WhenDialogUp(seen, [](QFileDialog& dialog) { TypeAndEnter(dialog, "old.mem"); });
        const auto chosen = dialogs.Show(Request(true));
        QVERIFY(seen.found);
        QCOMPARE(Shown(chosen), InFolder("old.mem"));
    }

    // Open takes any name, one that names no file too: the program tells
    // the user about that itself.
    void OpenTakesANameThatNamesNoFile() {
        Seen seen;
        const auto up =
            WhenDialogUp(seen, [](QFileDialog& dialog) { TypeAndEnter(dialog, "missing"); });
        const auto chosen = dialogs.Show(Request(false));
        QVERIFY(seen.found);
        QCOMPARE(seen.title, QStringLiteral("Save As"));
        QCOMPARE(seen.acceptMode, QFileDialog::AcceptOpen);
        QCOMPARE(seen.fileMode, QFileDialog::AnyFile);
        QCOMPARE(seen.nameFilters.size(), 2);
        QCOMPARE(seen.defaultSuffix, QStringLiteral("mem"));
        QCOMPARE(seen.directory, Folder());
        QVERIFY(seen.ownWidgets);
        QVERIFY(seen.onTop);
        QCOMPARE(seen.modality, Qt::ApplicationModal);
        QCOMPARE(Shown(chosen), InFolder("missing.mem"));
    }

    // The filter chosen at first and the name proposed are the program's.
    void TheSecondFilterAndTheProposedNameAreShown() {
        forms::FileDialogRequest request = Request(false);
        request.filterIndex = 2;
        request.fileName = InFolder("given.mem").toStdString();
        Seen seen;
        const auto up = WhenDialogUp(seen, [](QFileDialog& dialog) {
            QTest::keyClick(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")),
                            Qt::Key_Return);
        });
        const auto chosen = dialogs.Show(request);
        QVERIFY(seen.found);
        QCOMPARE(seen.selectedNameFilter, QStringLiteral("all files (*.*)"));
        QCOMPARE(seen.proposedName, QStringLiteral("given.mem"));
        QCOMPARE(Shown(chosen), InFolder("given.mem"));
    }

    // Cancel, and Escape, give nothing.
    void CancelGivesNothing() {
        Seen seen;
        const auto up = WhenDialogUp(seen, [](QFileDialog& dialog) { dialog.reject(); });
        QCOMPARE(Shown(dialogs.Show(Request(true))), QStringLiteral("<cancelled>"));
        QVERIFY(seen.found);

        Seen again;
        const auto upAgain = WhenDialogUp(
            again, [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QCOMPARE(Shown(dialogs.Show(Request(false))), QStringLiteral("<cancelled>"));
        QVERIFY(again.found);
    }

    // The program's filter as Qt's name filters: a description that holds
    // its patterns stays as it is, one that does not gets them added, and
    // the patterns of one pair, parted by ";", are parted by blanks.
    void FiltersBecomeQtNameFilters() {
        QCOMPARE(
            qtbind::NameFiltersOf(kMemoryFilter),
            QStringList({QStringLiteral("Memory (*.mem)"), QStringLiteral("all files (*.*)")}));
        QCOMPARE(qtbind::NameFiltersOf("Memory|*.mem"),
                 QStringList({QStringLiteral("Memory (*.mem)")}));
        QCOMPARE(qtbind::NameFiltersOf("Text|*.txt;*.text|"),
                 QStringList({QStringLiteral("Text (*.txt *.text)")}));
        QCOMPARE(qtbind::NameFiltersOf("Text (*.txt)|*.txt;*.text"),
                 QStringList({QStringLiteral("Text (*.txt) (*.txt *.text)")}));
        QCOMPARE(qtbind::NameFiltersOf("Nothing||Memory (*.mem)|*.mem"),
                 QStringList({QStringLiteral("Memory (*.mem)")}));
        QCOMPARE(qtbind::NameFiltersOf(""), QStringList());
    }

  private:
    forms::FileDialogRequest Request(bool save) {
        forms::FileDialogRequest request;
        request.save = save;
        // The title stays from the last Save As when the program opens.
        request.title = "Save As";
        request.filter = kMemoryFilter;
        request.filterIndex = 1;
        request.defaultExt = "mem";
        request.initDir = QFile::encodeName(folder.path()).toStdString();
        return request;
    }
    QString Folder() { return QDir(folder.path()).canonicalPath(); }
    QString InFolder(const char* name) {
        return QDir(Folder()).filePath(QString::fromLatin1(name));
    }

    QTemporaryDir folder;
    qtbind::QtFileDialogs dialogs;
};

QTEST_MAIN(FileDialogTest)
#include "file_dialog_test.moc"
