#include "qtbind/qt_file_dialogs.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QRegularExpression>

namespace qtbind {

namespace {

// The patterns of a pair, each on its own: the program parts them with ";"
// (and a blank may stand between), Qt with blanks.
QStringList PatternsOf(const QString& pattern) {
    static const QRegularExpression separators(QStringLiteral("[;\\s]+"));
    return pattern.split(separators, Qt::SkipEmptyParts);
}

// The patterns that Qt would read from a name filter: those inside the
// parentheses that end it.
QStringList PatternsShownIn(const QString& description) {
    static const QRegularExpression trailing(QStringLiteral("\\(([^()]*)\\)\\s*$"));
    const QRegularExpressionMatch match = trailing.match(description);
    return match.hasMatch() ? PatternsOf(match.captured(1)) : QStringList();
}

}  // namespace

QStringList NameFiltersOf(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString description = parts[i].trimmed();
        const QStringList patterns = PatternsOf(parts[i + 1]);
        if (patterns.isEmpty()) continue;
        if (PatternsShownIn(description) == patterns) {
            filters.append(description);
            continue;
        }
        const QString shown = patterns.join(QLatin1Char(' '));
        filters.append(description.isEmpty()
                           ? shown
                           : description + QStringLiteral(" (") + shown + QLatin1Char(')'));
    }
    return filters;
}

std::optional<std::string> QtFileDialogs::Show(const forms::FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow());
    // Qt's own dialog first: the options below belong to it.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // It must come in front of windows that float above everything.
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setWindowTitle(QString::fromStdString(request.title));
    if (request.save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        // Saving over a file asks nothing: the program means to replace it.
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        // A name that names no file is the program's to answer, not the
        // dialog's.
        dialog.setFileMode(QFileDialog::AnyFile);
    }
    const QStringList filters = NameFiltersOf(request.filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        const int index = request.filterIndex - 1;
        dialog.selectNameFilter(filters.value(index >= 0 && index < filters.size() ? index : 0));
    }
    dialog.setDefaultSuffix(QString::fromStdString(request.defaultExt));
    if (!request.initDir.empty()) {
        dialog.setDirectory(QFile::decodeName(request.initDir.c_str()));
    }
    if (!request.fileName.empty()) dialog.selectFile(QFile::decodeName(request.fileName.c_str()));

    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QStringList chosen = dialog.selectedFiles();
    if (chosen.isEmpty()) return std::nullopt;
    return QFile::encodeName(chosen.first()).toStdString();
}

}  // namespace qtbind
