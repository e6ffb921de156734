// The whole program behind its real windows, on services that answer at
// once (no beep, no message box, settings in memory), with the desktop's
// modal loop for the name prompt, its text measure, its file and colour
// dialogs, and the user's files on disk in a folder of the test's own, for
// tests that drive the widgets as the user would.
#pragma once

#include <QApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <string>
#include <vector>

#include "forms/disk_files.h"
#include "forms/headless_services.h"
#include "memory/cells.h"
#include "qtbind/form_surface.h"
#include "qtbind/form_window.h"
#include "qtbind/qt_binding.h"
#include "qtbind/qt_color_dialogs.h"
#include "qtbind/qt_file_dialogs.h"
#include "qtbind/qt_modal_host.h"
#include "qtbind/qt_text_measure.h"
#include "qtbind/screen_info.h"
#include "shell/lathmark_app.h"

namespace guitest {

// Runs the event queue dry: windows that the program showed come on screen,
// the window system reports their places, windows on their way out go.
inline void Settle() {
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

class RunningCalculator {
  public:
    RunningCalculator()
        : textMeasure(qtbind::ScaleOf(QGuiApplication::primaryScreen())),
          app_(forms::Services{&beeper, &messages, &settings, &modal, &textMeasure, &fileDialogs,
                               &files, &colorDialogs},
               qtbind::ScreenInfoOf(QGuiApplication::primaryScreen())),
          binding_(app_) {
        app_.Start();
        // The main loop's first pass, as at the program's start.
        binding_.AfterEvent();
        Settle();
    }

    core::Program& P() { return app_.Program(); }
    qtbind::QtBinding& Binding() { return binding_; }
    const qtbind::PixelScale& Scale() { return binding_.Scale(); }

    qtbind::FormWindow* CalculatorWindow() { return binding_.WindowFor(*P().Calculator); }
    qtbind::FormWindow* TapeWindow() { return binding_.WindowFor(*P().frmTape); }
    // A control's widget on the calculator, found by the control's name.
    QWidget* Widget(const char* fullName) {
        qtbind::FormWindow* window = CalculatorWindow();
        return window ? window->findChild<QWidget*>(QString::fromLatin1(fullName)) : nullptr;
    }
    QString ReadoutText() {
        auto* label = qobject_cast<QLabel*>(Widget("Readout"));
        return label ? label->text() : QString();
    }
    // The name of the control that has the model's focus.
    std::string ModelFocus() {
        forms::Control* focus = app_.Runtime().Focus();
        return focus ? focus->FullName() : std::string("none");
    }
    int TapeLines() { return P().tape->TapeRowCount()[0]; }

    // Memory, New Memory, and the windows caught up.
    void NewMemory() {
        P().Calculator->GetMenu("NewMemory").Click();
        binding_.AfterEvent();
        Settle();
    }
    // The open memory cells, in the order of the list of open forms.
    std::vector<forms::Form*> Cells() {
        std::vector<forms::Form*> cells;
        for (forms::Form* form : app_.Runtime().OpenForms()) {
            if (memory::IsCell(*form)) cells.push_back(form);
        }
        return cells;
    }
    QString TapeLine(int row) { return QString::fromStdString(P().tape->Grid1().Cell(row, 0)); }

    // Keys through the window system to the calculator's focused widget.
    QWindow* KeyTarget() {
        qtbind::FormWindow* window = CalculatorWindow();
        return window ? window->windowHandle() : nullptr;
    }
    void Type(const char* text) {
        for (const char* c = text; *c; ++c) QTest::keyClick(KeyTarget(), *c);
        Settle();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(KeyTarget(), key, modifiers);
        Settle();
    }

    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    qtbind::QtModalHost modal;
    qtbind::QtTextMeasure textMeasure;
    qtbind::QtFileDialogs fileDialogs;
    qtbind::QtColorDialogs colorDialogs;
    // The program's own folder, gone with the test.
    QTemporaryDir programFolder;
    forms::DiskFiles files{QFile::encodeName(programFolder.path()).toStdString()};

  private:
    shell::LathmarkApp app_;
    qtbind::QtBinding binding_;
};

}  // namespace guitest
