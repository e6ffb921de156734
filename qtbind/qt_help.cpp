#include "qtbind/qt_help.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>
#include <algorithm>

namespace qtbind {

namespace {

QString MissingGuidePage(const QString& path) {
    return QStringLiteral(
               "<h2>The user's guide is missing</h2>"
               "<p>Lathmark Calculator looked for its user's guide here:</p>"
               "<p><code>%1</code></p>"
               "<p>There is no such file. The guide comes with the program: it is the file "
               "<code>lathmark.html</code> in the folder <code>guide</code> beside the "
               "program, or in <code>share/lathmark/guide</code> where the program is "
               "installed. Installing the program again puts it back.</p>")
        .arg(path.toHtmlEscaped());
}

// Room left for the window manager's frame around the help window, which
// is not known before the window is first shown.
constexpr int kFrameRoom = 40;

// Wholly on the screen that holds the calculator (the window the user asked
// for help from), in the middle of it, as large as the guide wants or as the
// screen allows.
void PlaceOnScreen(QWidget& window) {
    const QWidget* from = QApplication::activeWindow();
    const QScreen* screen = from ? from->screen() : QGuiApplication::primaryScreen();
    if (!screen) {
        window.resize(760, 640);
        return;
    }
    const QRect area = screen->availableGeometry();
    const QSize size(std::max(200, std::min(760, area.width() - kFrameRoom)),
                     std::max(150, std::min(640, area.height() - 2 * kFrameRoom)));
    window.resize(size);
    const int left = area.left() + std::max(0, (area.width() - size.width()) / 2);
    const int top = area.top() + std::max(0, (area.height() - size.height() - kFrameRoom) / 2);
    window.move(left, top);
}

}  // namespace

QtHelpSystem::~QtHelpSystem() {
    delete window_.data();
}

std::string QtHelpSystem::ExecutableFolder() const {
    return QCoreApplication::applicationDirPath().toStdString();
}

void QtHelpSystem::ShowContents(const std::string& helpFile) {
    const QString path = QString::fromStdString(forms::UpToNul(helpFile));
    if (!window_) {
        window_ = new QTextBrowser();
        // A window of its own that stays in front with the calculator, or it
        // would open behind the windows that float.
        window_->setWindowFlags(Qt::Window | Qt::WindowStaysOnTopHint);
        window_->setAttribute(Qt::WA_DeleteOnClose);
        window_->setWindowTitle(QString::fromLatin1(kWindowTitle));
        window_->setOpenExternalLinks(true);
        PlaceOnScreen(*window_);
    }
    if (QFileInfo(path).isFile()) {
        window_->setSource(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()));
        window_->scrollToAnchor(QStringLiteral("contents"));
    } else {
        window_->setSource(QUrl());
        window_->setHtml(MissingGuidePage(path));
    }
    window_->show();
    window_->raise();
    window_->activateWindow();
}

}  // namespace qtbind
