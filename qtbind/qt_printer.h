// The default printer behind real windows, through Qt's print support: the
// lines of a document are kept until EndDoc and then drawn, one a line, in
// the font asked for at its ordinary size, from the top left corner of the
// page's printable area; a full page goes on to the next. No dialog, no
// header, no page numbers. With no default printer the document goes
// nowhere, without a word.
//
// Made with a file name instead, the same drawing goes to a PDF file: for
// machines where no print queue can be had, and for tests.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "forms/services.h"

namespace qtbind {

class QtPrinter : public forms::Printer {
  public:
    QtPrinter() = default;
    explicit QtPrinter(QString pdfFile) : pdfFile_(std::move(pdfFile)) {}

    void SetFontName(const std::string& name) override { fontName_ = name; }
    void PrintLine(const std::string& line) override { lines_.push_back(line); }
    void EndDoc() override;

    // The point size that a font has when none is asked for.
    static constexpr double kOrdinarySize = 12.0;
    // The name of each job, as the print queue lists it.
    static constexpr const char* kJobName = "Lathmark Calculator tape";

  private:
    QString pdfFile_;
    std::string fontName_ = "Courier";
    std::vector<std::string> lines_;
};

}  // namespace qtbind
