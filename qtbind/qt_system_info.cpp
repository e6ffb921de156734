#include "qtbind/qt_system_info.h"

#include <QProcess>
#include <QStandardPaths>

namespace qtbind {

namespace {

// The tools that show the machine and its system, the more thorough first;
// a task manager that also shows the system comes last.
constexpr const char* kTools[] = {
    "hardinfo2",           "hardinfo",          "kinfocenter", "gnome-system-monitor",
    "mate-system-monitor", "xfce4-taskmanager", "lxtask",
};

}  // namespace

std::optional<std::string> QtSystemInfoTool::Find() const {
    for (const char* tool : kTools) {
        const QString path = QStandardPaths::findExecutable(QString::fromLatin1(tool));
        if (!path.isEmpty()) return path.toStdString();
    }
    return std::nullopt;
}

bool QtSystemInfoTool::Start(const std::string& path) {
    // Its own process, which outlives the calculator; it opens its window
    // in the normal state as any program started from the desktop does.
    return QProcess::startDetached(QString::fromStdString(path), {});
}

}  // namespace qtbind
