#include "tape/tape_printing.h"

#include <string>
#include <string_view>

#include "measure/text_tools.h"

namespace tape {

namespace {

constexpr const char* kPrintFont = "Courier";

// The length of a text in characters, as the layout counts blanks.
std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++count;
    }
    return count;
}

bool HasTape(const TapeStore& store, std::int16_t tape) {
    return tape >= 0 && static_cast<std::size_t>(tape) < store.TapeNames().size() &&
           static_cast<std::size_t>(tape) < store.TapeRowCount().size();
}

// Blanks, then the text: what one printed line holds. A count that does not
// fit a 16-bit number, or is negative, fails the print statement.
void PrintPadded(forms::Printer* printer, int blanks, const std::string& text) {
    if (!printer || blanks < 0 || blanks > 32767) return;
    printer->PrintLine(std::string(static_cast<std::size_t>(blanks), ' ') + text);
}

}  // namespace

void PrintTape(core::Program& p, std::int16_t tape) {
    forms::Printer* printer = p.runtime.GetServices().printer;
    TapeStore& store = *p.tape;
    forms::Grid& grid = store.Grid1();
    grid.SetCol(tape);
    if (printer) printer->SetFontName(kPrintFont);
    // A tape beyond the arrays fails every statement that names its title or
    // its row count: nothing is printed, and the document stays empty.
    if (HasTape(store, tape)) {
        const std::string& title = store.TapeNames()[static_cast<std::size_t>(tape)];
        const std::int16_t lastRow = store.TapeRowCount()[static_cast<std::size_t>(tape)];
        std::int16_t printWidth = 0;
        measure::Store16(printWidth, CharacterCount(title));
        // Row 0 is counted too: it is the empty line under the title.
        for (int r = 0; r <= lastRow; ++r) {
            grid.SetRow(r);
            std::int16_t length = 0;
            if (!measure::Store16(length, CharacterCount(measure::TrimBlanks(grid.Text())))) {
                continue;
            }
            if (length > printWidth) printWidth = length;
        }
        std::int16_t titleLength = 0;
        if (measure::Store16(titleLength, CharacterCount(title))) {
            // Centred, the odd blank going to the right of the title.
            PrintPadded(printer, (printWidth - titleLength) / 2, title);
        }
        for (int r = 0; r <= lastRow; ++r) {
            grid.SetRow(r);
            const std::string line = measure::TrimBlanks(grid.Text());
            std::int16_t length = 0;
            if (!measure::Store16(length, CharacterCount(line))) continue;
            PrintPadded(printer, printWidth - length, line);
        }
    }
    if (printer) printer->EndDoc();
}

void MenuPrintClick(core::Program& p) {
    PrintTape(p, p.tape->Grid1().Col());
}

void MenuPrintAllClick(core::Program& p) {
    // The number is read once, before the first tape.
    const int last = p.NextMemoryNumber - 1;
    for (int t = 0; t <= last; ++t) PrintTape(p, static_cast<std::int16_t>(t));
}

void WireTapePrinting(core::Program& p) {
    p.Calculator->GetMenu("mnuPrint").Click = [&p] { MenuPrintClick(p); };
    p.Calculator->GetMenu("mnuPrintAll").Click = [&p] { MenuPrintAllClick(p); };
    p.frmTape->GetMenu("mnuPopup2PrintTape").Click = [&p] { MenuPrintClick(p); };
    p.frmTape->GetMenu("mnuPopup2PrintAllTapes").Click = [&p] { MenuPrintAllClick(p); };
}

}  // namespace tape
