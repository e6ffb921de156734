// The smallest Qt 6 Widgets program the start-up benchmark measures Lathmark against:
// a main window with a menu bar (one File menu, one action) and a label. Nothing else.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    QMenu* file = window.menuBar()->addMenu(QStringLiteral("&File"));
    QObject::connect(file->addAction(QStringLiteral("E&xit")), &QAction::triggered, &app,
                     &QApplication::quit);
    window.setCentralWidget(new QLabel(QStringLiteral("0.")));
    window.show();
    return app.exec();
}
