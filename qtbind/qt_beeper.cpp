#include "qtbind/qt_beeper.h"

#include <QApplication>

namespace qtbind {

void QtBeeper::Beep() {
    QApplication::beep();
}

}  // namespace qtbind
