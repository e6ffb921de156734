// The help window, the About box and the readout's sunken frame on the real
// widgets: the guide opens in a window of the program, a missing guide gets
// a page that says so, the About box is modal and in front with its texts,
// its picture and its rules, System Info without a tool shows its message,
// and the frame around the readout is drawn two pixels outside it, again
// where the readout has moved.
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <memory>

#include "qtbind/qt_help.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

namespace {

// The window of the About box, once it is up.
QWidget* AboutWindow() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->findChild<QWidget*>(QStringLiteral("lblVersion"))) return w;
    }
    return nullptr;
}

QString LabelText(QWidget* window, const char* name) {
    auto* label = window->findChild<QLabel*>(QString::fromLatin1(name));
    return label ? label->text() : QString();
}

}  // namespace

class HelpAboutTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    void TheGuideOpensInAHelpWindow() {
        qtbind::QtHelpSystem help;
        help.ShowContents(std::string(LATHMARK_GUIDE) + '\0');
        guitest::Settle();
        QTextBrowser* window = help.Window();
        QVERIFY(window);
        QVERIFY(window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Lathmark Calculator Help"));
        QVERIFY(window->toPlainText().contains(QStringLiteral("Typing a measurement")));
        QCOMPARE(window->source(), QUrl::fromLocalFile(QStringLiteral(LATHMARK_GUIDE)));
    }

    void AMissingGuideIsSaidSoWithItsPath() {
        qtbind::QtHelpSystem help;
        help.ShowContents(std::string("/nowhere/guide/lathmark.html") + '\0' + "junk");
        guitest::Settle();
        QTextBrowser* window = help.Window();
        QVERIFY(window);
        QVERIFY(window->isVisible());
        const QString text = window->toPlainText();
        QVERIFY(text.contains(QStringLiteral("The user's guide is missing")));
        QVERIFY(text.contains(QStringLiteral("/nowhere/guide/lathmark.html")));
        QVERIFY(!text.contains(QStringLiteral("junk")));
    }

    void TheAboutBoxIsModalInFrontAndFilled() {
        calc = std::make_unique<RunningCalculator>();
        const auto bandBefore = calc->P().runtime.TopMostBand();
        bool seen = false;
        WithAboutBox([&](QWidget* about) {
            seen = true;
            QCOMPARE(about->windowModality(), Qt::ApplicationModal);
            QVERIFY(about->windowFlags() & Qt::WindowStaysOnTopHint);
            QCOMPARE(QApplication::activeModalWidget(), about);
            QCOMPARE(about->windowTitle(), QStringLiteral("About Lathmark Calculator"));
            QCOMPARE(LabelText(about, "lblVersion"), QStringLiteral("Version 3.0.4"));
            QCOMPARE(LabelText(about, "lblTitle"), QStringLiteral("Lathmark Calculator"));
            QVERIFY(LabelText(about, "lblDescription").contains(QStringLiteral("project")));
            QVERIFY(LabelText(about, "lblDisclaimer").contains(QStringLiteral("Lathmark")));
            auto* picture = about->findChild<QLabel*>(QStringLiteral("picIcon"));
            QVERIFY(picture && !picture->pixmap().isNull());
            QVERIFY(about->findChild<QWidget*>(QStringLiteral("Line1(0)")));
            QVERIFY(about->findChild<QWidget*>(QStringLiteral("Line1(1)")));
            // The tape left the band, the calculator stayed.
            const auto& band = calc->P().runtime.TopMostBand();
            QCOMPARE(band.front(), calc->P().Calculator);
            auto* ok = about->findChild<QPushButton*>(QStringLiteral("cmdOK"));
            QVERIFY(ok);
            QTest::mouseClick(ok, Qt::LeftButton);
        });
        QVERIFY(seen);
        QVERIFY(!AboutWindow());
        // Back on top, the calculator in front of the tape.
        const auto& band = calc->P().runtime.TopMostBand();
        QCOMPARE(band.size(), bandBefore.size());
        QVERIFY(!calc->P().runtime.FindOpenForm("frmAbout"));
    }

    // OK is the box's default and cancel button: Enter and Escape press it
    // wherever the focus stands, and Enter on System Info presses that one.
    void EscapeAndEnterPressOk_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("focusOnSysInfo");
        QTest::newRow("Escape") << int(Qt::Key_Escape) << false;
        QTest::newRow("Escape on System Info") << int(Qt::Key_Escape) << true;
        QTest::newRow("Enter") << int(Qt::Key_Return) << false;
    }
    void EscapeAndEnterPressOk() {
        QFETCH(int, key);
        QFETCH(bool, focusOnSysInfo);
        StartWithoutSystemInfoTool();
        bool seen = false, closedByKey = false;
        WithAboutBox([&](QWidget* about) {
            seen = true;
            if (focusOnSysInfo) {
                about->findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->setFocus();
            }
            // A key goes to the focused widget, wherever that is.
            QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : about;
            QTest::keyClick(target, static_cast<Qt::Key>(key));
            closedByKey = !calc->P().runtime.FindOpenForm("frmAbout");
            // A key that failed must not leave the modal box up.
            if (!closedByKey) {
                QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("cmdOK")),
                                  Qt::LeftButton);
            }
        });
        QVERIFY(seen);
        QVERIFY(closedByKey);
        QVERIFY(!AboutWindow());
        QVERIFY(calc->messages.shown.empty());
    }

    void EnterOnSystemInfoPressesIt() {
        StartWithoutSystemInfoTool();
        WithAboutBox([&](QWidget* about) {
            auto* sysInfo = about->findChild<QPushButton*>(QStringLiteral("cmdSysInfo"));
            sysInfo->setFocus();
            QTest::keyClick(sysInfo, Qt::Key_Return);
            const bool stillUp = calc->P().runtime.FindOpenForm("frmAbout") != nullptr;
            QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("cmdOK")),
                              Qt::LeftButton);
            QVERIFY(stillUp);
        });
        QVERIFY(!AboutWindow());
        QCOMPARE(calc->messages.shown.size(), std::size_t{1});
        QCOMPARE(calc->messages.shown[0].text,
                 std::string("System Information Is Unavailable At This Time"));
    }

    void SystemInfoWithoutAToolSaysSo() {
        StartWithoutSystemInfoTool();
        WithAboutBox([&](QWidget* about) {
            QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("cmdSysInfo")),
                              Qt::LeftButton);
            QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("cmdOK")),
                              Qt::LeftButton);
        });
        QCOMPARE(calc->messages.shown.size(), std::size_t{1});
        QCOMPARE(calc->messages.shown[0].text,
                 std::string("System Information Is Unavailable At This Time"));
        QCOMPARE(calc->messages.shown[0].buttons, forms::MessageButtons::OkOnly);
    }

    void TheReadoutsFrameIsDrawnTwoPixelsOutsideItAndFollowsIt() {
        calc = std::make_unique<RunningCalculator>();
        CheckFrame();
        // The readout where the 75% zoom puts it.
        calc->P().calc->Readout.Move(139, 191.25, 2385, 258.75);
        guitest::Settle();
        CheckFrame();
    }

  private:
    // A calculator on a machine where no system information tool is found.
    void StartWithoutSystemInfoTool() {
        calc = std::make_unique<RunningCalculator>();
        calc->P().runtime.GetServices().systemInfo = &noSystemInfoTool;
    }

    // Opens the About box from the menu and runs `inBox` on its window while
    // the modal box is up; `inBox` has to close it.
    template <typename InBox>
    void WithAboutBox(InBox inBox) {
        QTimer::singleShot(0, [&] {
            guitest::Settle();
            QWidget* about = AboutWindow();
            QVERIFY(about);
            inBox(about);
        });
        calc->P().Calculator->GetMenu("mnuAbout").Click();
        guitest::Settle();
    }

    void CheckFrame() {
        QWidget* readout = calc->Widget("Readout");
        QVERIFY(readout);
        QWidget* surface = readout->parentWidget();
        const QImage image = surface->grab().toImage();
        const qreal ratio = image.devicePixelRatio();
        const QRect r = readout->geometry();
        auto at = [&](int x, int y) { return image.pixelColor(QPoint(x, y) * ratio); };
        // Grey then black at the top left, white then light grey at the
        // bottom right: a sunken well, drawn again on every paint.
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(at(r.left() - 2, r.top() + r.height() / 2), QColor(128, 128, 128));
            QCOMPARE(at(r.left() - 1, r.top() + r.height() / 2), QColor(0, 0, 0));
            QCOMPARE(at(r.left() + r.width() / 2, r.top() - 2), QColor(128, 128, 128));
            QCOMPARE(at(r.right() + 2, r.top() + r.height() / 2), QColor(255, 255, 255));
            QCOMPARE(at(r.right() + 1, r.top() + r.height() / 2), QColor(192, 192, 192));
            QCOMPARE(at(r.left() + r.width() / 2, r.bottom() + 2), QColor(255, 255, 255));
            surface->repaint();
        }
    }

    forms::ScriptedSystemInfoTool noSystemInfoTool;
    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(HelpAboutTest)
#include "help_about_test.moc"
