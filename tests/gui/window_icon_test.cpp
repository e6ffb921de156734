// The program's icon on the frames of the windows drawn with one: the
// calculator and the memory window. The tape and the converter have none
// of their own.
#include <QIcon>
#include <QTest>
#include <memory>

#include "qtbind/form_window.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

class WindowIconTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        calc = std::make_unique<RunningCalculator>();
        // The memory window and the converter come on screen with their use.
        calc->P().Calculator->GetMenu("NewMemory").Click();
        calc->P().Calculator->GetMenu("mnuConverter").Click();
        calc->Binding().AfterEvent();
        guitest::Settle();
    }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    void TheCalculatorAndTheMemoryWindowShowTheIcon() {
        for (forms::Form* form : {calc->P().Calculator, calc->P().MDIForm1}) {
            qtbind::FormWindow* window = calc->Binding().WindowFor(*form);
            QVERIFY(window);
            const QIcon icon = window->windowIcon();
            QVERIFY(!icon.isNull());
            // Every size the desktop asks for is drawn, not scaled.
            const QList<QSize> sizes = icon.availableSizes();
            for (int size : {16, 24, 32, 48, 64, 128, 256}) {
                QVERIFY2(sizes.contains(QSize(size, size)), qPrintable(QString::number(size)));
                QCOMPARE(icon.pixmap(QSize(size, size)).size(), QSize(size, size));
            }
            // The picture is there: the middle of the 16-pixel one is not blank.
            const QImage small = icon.pixmap(QSize(16, 16)).toImage();
            QVERIFY(qAlpha(small.pixel(8, 8)) == 255);
        }
    }

    void TheTapeAndTheConverterHaveNoneOfTheirOwn() {
        for (forms::Form* form : {calc->P().frmTape, calc->P().Converter}) {
            qtbind::FormWindow* window = calc->Binding().WindowFor(*form);
            QVERIFY(window);
            QVERIFY(window->windowIcon().isNull());
        }
    }

  private:
    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(WindowIconTest)
#include "window_icon_test.moc"
