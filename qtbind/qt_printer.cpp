#include "qtbind/qt_printer.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <memory>

namespace qtbind {

namespace {

// The printer for one job, or nothing when there is none to print to.
std::unique_ptr<QPrinter> OpenPrinter(const QString& pdfFile) {
    if (!pdfFile.isEmpty()) {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdfFile);
        return printer;
    }
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) return nullptr;
    return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

}  // namespace

void QtPrinter::EndDoc() {
    std::vector<std::string> lines;
    lines.swap(lines_);
    // A document is begun by its first line: with none, nothing is sent.
    if (lines.empty()) return;
    std::unique_ptr<QPrinter> printer = OpenPrinter(pdfFile_);
    if (!printer) return;
    printer->setDocName(QString::fromLatin1(kJobName));
    printer->setFullPage(false);
    QPainter painter;
    if (!painter.begin(printer.get())) return;

    QFont font(QString::fromStdString(fontName_));
    // The blanks lay the lines out: the font must keep every character
    // equally wide, whatever the desktop puts in its place.
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(kOrdinarySize);
    painter.setFont(font);
    const QFontMetricsF metrics(painter.font(), printer.get());
    const double pageHeight = printer->pageLayout().paintRectPixels(printer->resolution()).height();
    double top = 0;
    for (const std::string& line : lines) {
        if (top > 0 && top + metrics.height() > pageHeight) {
            printer->newPage();
            top = 0;
        }
        painter.drawText(QPointF(0, top + metrics.ascent()), QString::fromStdString(line));
        top += metrics.lineSpacing();
    }
    painter.end();
}

}  // namespace qtbind
